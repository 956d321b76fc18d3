// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "linux/session/x11_connection.h"
#include "linux/session/x11_keyboard.h"

namespace corvane::linux_desktop {

/// A stroke as keys of a keyboard.
struct KeyChord {
    std::vector<xcb_keycode_t> modifiers;  ///< in the order in which they go down
    xcb_keycode_t key = 0;
    bool joined = false;  ///< modifiers that the next chord has too stay down until then
};

/// Moves keys, by the server's XTEST extension. The modifiers that the person holds are let go: the
/// finger may leave the key at any time, and one pressed for it would stay down for good. Caps Lock
/// is out of force until the fingers rest.
class X11Fingers {
public:
    X11Fingers(const X11Connection& x, const X11Keyboard& keyboard);
    ~X11Fingers() { Rest(); }
    X11Fingers(const X11Fingers&) = delete;
    X11Fingers& operator=(const X11Fingers&) = delete;

    void Strike(const KeyChord& chord);
    /// Lets all modifiers go and puts Caps Lock back; only once.
    void Rest();

    /// Whether the server has the extension.
    [[nodiscard]] static bool Exist(const X11Connection& x);

private:
    void ReleaseAllBut(const std::vector<xcb_keycode_t>& wanted);

    const X11Connection& x_;
    const X11Keyboard& keyboard_;
    bool rests_ = false;
    std::vector<xcb_keycode_t> down_;  // modifiers, in the order in which they went down
};

}  // namespace corvane::linux_desktop
