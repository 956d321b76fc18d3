// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string_view>

#include "linux/session/keys.h"
#include "linux/session/x11_lent_selection.h"
#include "linux/session/x11_ping.h"

namespace corvane::linux_desktop {

/// Text that goes into a program by way of what it pastes, on an X11 session.
class X11Paste {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// `do_events` lets our own windows work.
    explicit X11Paste(std::function<void()> do_events);

    /// Whether the program would never tell when it has looked up its keys, but does tell when it
    /// has fetched a text.
    [[nodiscard]] static bool IsSurerThanLentKeys(const X11Ping::Target& target);

    /// The stroke by which a program pastes: a terminal takes Ctrl+V for a character of its own.
    [[nodiscard]] static KeyStroke StrokeFor(const X11Ping::Target& target);

    /// Whether what the person has copied could be given back: a program that keeps silent about
    /// it, or that keeps more than we can, would lose it.
    [[nodiscard]] bool CanOffer(const X11Ping::Target& target, Time end);
    /// Puts the text where that program will fetch it on its stroke. False if that can't be; what
    /// the person has copied is there then.
    bool Offer(std::u32string_view text, const X11Ping::Target& target, Time end);
    /// Forgets who has fetched so far: the stroke comes. Programs that collect what was copied
    /// fetch each text as soon as it is offered.
    void StrokeComes();
    /// Whether it has fetched the text since; to be asked over and over.
    [[nodiscard]] bool FetchedBy(const X11Ping::Target& target);
    /// Whether any program has: some have another connection for this.
    [[nodiscard]] bool Fetched();
    /// Gives back what the person had copied: at once, or, if the text was not fetched, once a
    /// program that hangs has had its time; it must not paste something else when it awakes.
    void GiveBack(bool fetched);
    /// Gives it back at once and has the session keep it once we are gone; `patience` at most.
    void HandOver(std::chrono::milliseconds patience);

private:
    /// Makes what is needed for that program.
    void Prepare(const X11Ping::Target& target);
    [[nodiscard]] static bool TakesShiftInsert(const X11Ping::Target& target);

    std::function<void()> do_events_;
    // Made when first needed: few texts are pasted.
    std::optional<X11LentSelection> clipboard_, primary_;
    bool primary_is_lent_ = false;
};

}  // namespace corvane::linux_desktop
