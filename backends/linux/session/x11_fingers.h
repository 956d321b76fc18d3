// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
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

/// Moves keys, by the server's XTEST extension. For as long as it lives the modifiers that the
/// person holds, and Caps Lock, are out of force. After more than half a second the modifiers stay
/// so: the finger may have left the key meanwhile, and nobody would let it go.
class X11Fingers {
public:
    X11Fingers(const X11Connection& x, const X11Keyboard& keyboard);
    ~X11Fingers();
    X11Fingers(const X11Fingers&) = delete;
    X11Fingers& operator=(const X11Fingers&) = delete;

    void Strike(const KeyChord& chord);

    /// Whether the server has the extension.
    [[nodiscard]] static bool Exist(const X11Connection& x);

private:
    void ReleaseAllBut(const std::vector<xcb_keycode_t>& wanted);

    const X11Connection& x_;
    const X11Keyboard& keyboard_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    std::vector<xcb_keycode_t> down_;  // modifiers, in the order in which they went down
};

}  // namespace corvane::linux_desktop
