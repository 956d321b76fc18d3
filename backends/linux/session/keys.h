// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <variant>

#include "linux/session/session_answer.h"

/// Keys typed for the person into whatever has the focus. Each kind of desktop session has its own
/// way to do it.
namespace corvane::linux_desktop {

enum class NamedKey {
    Backspace,
    CapsLock,
    Clear,
    Delete,
    Down,
    End,
    Enter,
    Escape,
    Help,
    Home,
    Insert,
    Left,
    NumLock,
    PageDown,
    PageUp,
    Pause,
    PrintScreen,
    Right,
    ScrollLock,
    Tab,
    Up,
    F1,
    F2,
    F3,
    F4,
    F5,
    F6,
    F7,
    F8,
    F9,
    F10,
    F11,
    F12,
    F13,
    F14,
    F15,
    F16,
};

/// One key going down and up while modifiers are held. A character brings the modifiers that it
/// needs itself, such as Shift for a capital, in addition.
struct KeyStroke {
    std::variant<char32_t, NamedKey> key;
    bool control = false;
    bool shift = false;
    bool alt = false;
    bool joined = false;  ///< the modifiers that the next stroke has too stay down until then
    friend bool operator==(const KeyStroke&, const KeyStroke&) = default;
};

class Keys {
public:
    virtual ~Keys() = default;

    /// Types the strokes in order, or none if one of them can't be typed: Unsupported if there is
    /// no key for it, Denied if it would cost the person something, such as what was copied last.
    /// Any character can be typed by itself. Denied also if the program takes a part of it no more;
    /// what stands behind that is dropped then. Modifiers and locks that the person has set are out
    /// of force meanwhile. Waits, for a bounded time, where a long text or one that the keyboard
    /// lacks needs it: messages of our own windows run then if one of them has the focus, or keeps
    /// the clipboard.
    virtual SessionAnswer Type(std::span<const KeyStroke> strokes) = 0;

    /// Returns when the program with the focus has taken the strokes typed last, or after a bounded
    /// time if that can't be known.
    virtual void WaitUntilTaken() = 0;

    /// Puts everything back that typing has changed in the session, also in the middle of a text:
    /// for a process that ends. Waits for other programs for three seconds at most; messages of our
    /// own windows do not run.
    virtual void GiveAllBack() = 0;
};

}  // namespace corvane::linux_desktop
