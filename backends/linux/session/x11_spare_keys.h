// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "linux/session/x11_connection.h"
#include "linux/session/x11_keyboard.h"

namespace corvane::linux_desktop {

/// Keys that the layout leaves free, lent to symbols that it lacks. Every change of a key is told
/// to all programs of the session, and some of them take long over it; so there are few.
class X11SpareKeys {
public:
    /// So many keys are lent at most at a time.
    static constexpr std::size_t kMost = 10;

    explicit X11SpareKeys(const X11Connection& x) : x_(x) {}
    ~X11SpareKeys() { GiveBack(); }
    X11SpareKeys(const X11SpareKeys&) = delete;
    X11SpareKeys& operator=(const X11SpareKeys&) = delete;

    /// Whether there are keys enough for these symbols, which may occur more than once. A small
    /// letter and its capital share one.
    [[nodiscard]] bool Suffice(std::span<const xcb_keysym_t> symbols,
                               const X11Keyboard& keyboard) const;
    /// Lends each symbol a key that has none yet. They suffice.
    void Lend(std::span<const xcb_keysym_t> symbols, const X11Keyboard& keyboard);
    /// The key that bears a symbol for now.
    [[nodiscard]] std::optional<KeyPosition> Find(xcb_keysym_t symbol) const;

    /// Whether a key is lent.
    [[nodiscard]] bool any_lent() const { return !loans_.empty(); }
    /// How many keys are lent.
    [[nodiscard]] std::size_t lent() const { return loans_.size(); }
    /// Frees the keys again, but for the first `keep` that were lent. Only when all that was typed
    /// with them has been taken: a program looks up what a key bears when it comes to it, not when
    /// the key was struck.
    void GiveBack(std::size_t keep = 0);
    /// Forgets the keys that bear their symbol no more, since the person has chosen another layout.
    void DropLost();

private:
    struct Loan {
        xcb_keycode_t code;
        xcb_keysym_t small, capital;  // alike for what is no letter
    };
    [[nodiscard]] std::vector<Loan> Missing(std::span<const xcb_keysym_t> symbols) const;
    void SetKey(xcb_keycode_t code, std::span<const xcb_keysym_t> symbols) const;
    [[nodiscard]] bool StillBears(const Loan& loan) const;

    const X11Connection& x_;
    std::vector<Loan> loans_;
    xcb_keycode_t last_ = 0;  // lent last
};

}  // namespace corvane::linux_desktop
