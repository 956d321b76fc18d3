// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "linux/session/keys.h"
#include "linux/session/x11_connection.h"
#include "linux/session/x11_fingers.h"
#include "linux/session/x11_keyboard.h"
#include "linux/session/x11_paste.h"
#include "linux/session/x11_ping.h"
#include "linux/session/x11_spare_keys.h"

namespace corvane::linux_desktop {

/// Keys for an X11 session. A stroke is that of a real keyboard. A few characters that the layout
/// in force lacks are lent keys that it leaves free; a text with more of them is pasted, and the
/// person's clipboard given back.
///
/// A text to be pasted is denied, before a key is struck, if what the person has copied could not
/// be kept meanwhile; so is the rest of a text of which a program does not fetch a pasted run.
///
/// A program that hangs is waited for once in a text, for a second at most; waiting for one that
/// is slow comes to a second and 10 ms for each stroke at most, reading a clipboard whose keeper
/// hangs to half a second. What was struck reaches it when it goes on.
class X11Keys final : public Keys {
public:
    /// `do_events` lets our own windows take what is typed into them. `wait_for_relay`, if there is
    /// one, returns when a third program, by way of which the given one may take its keys, has let
    /// them go; false if it does not take them so.
    explicit X11Keys(std::function<void()> do_events,
                     std::function<bool(pid_t)> wait_for_relay = {});

    SessionAnswer Type(std::span<const KeyStroke> strokes) override;
    void WaitUntilTaken() override;
    void GiveAllBack() override;
    ~X11Keys() override;
    X11Keys(const X11Keys&) = delete;
    X11Keys& operator=(const X11Keys&) = delete;

private:
    using Time = std::chrono::steady_clock::time_point;
    using Strokes = std::span<const KeyStroke>;
    enum class Way { Typed, Pasted };
    enum class Outcome { Taken, NotOffered, NotTaken };
    struct Piece {
        Strokes strokes;
        Way way;
    };

    [[nodiscard]] std::vector<Piece> PiecesOf(Strokes strokes, const X11Keyboard& keyboard) const;
    [[nodiscard]] static std::vector<Piece> PiecesWithPastedRuns(Strokes strokes,
                                                                 const X11Keyboard& keyboard);
    /// Lends keys to what is typed; false if there are too few.
    bool LendKeys(const std::vector<Piece>& pieces, const X11Keyboard& keyboard);
    /// No key for a stroke that has none.
    [[nodiscard]] std::optional<KeyChord> ChordOf(const KeyStroke& stroke,
                                                  const X11Keyboard& keyboard) const;

    void TypePiece(Strokes strokes, const X11Keyboard& keyboard, X11Fingers& fingers);
    [[nodiscard]] Outcome TypePieces(const std::vector<Piece>& pieces, const X11Keyboard& keyboard,
                                     X11Fingers& fingers);
    [[nodiscard]] Outcome PastePiece(Strokes strokes, const X11Keyboard& keyboard,
                                     X11Fingers& fingers);
    /// Waits until the program has fetched what it pastes; false if it does not.
    bool AwaitFetch(const X11Ping::Target& target);

    /// Who has the focus now: keys may have moved it.
    const X11Ping::Target& FindTarget();
    /// Waits for the program with the focus; false if it was waited for in vain, now or before.
    bool Await(int questions, std::chrono::milliseconds without_answers);
    /// Waits until it has taken all; false likewise.
    bool AwaitAll();

    X11Connection x_;
    bool xtest_;
    std::function<void()> do_events_;
    std::function<bool(pid_t)> wait_for_relay_;
    X11Ping ping_;
    X11SpareKeys spare_{x_};
    X11Paste paste_;
    X11Ping::Target target_;  // who had the focus last
    Time patience_ends_;
    bool all_taken_ = true;
    // Of the texts being typed: one in the middle of another if our own windows work meanwhile.
    std::vector<X11Fingers*> at_work_;
};

}  // namespace corvane::linux_desktop
