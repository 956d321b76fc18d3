// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_fingers.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace corvane::linux_desktop {
namespace {

enum class Direction : std::uint8_t { Down = XCB_KEY_PRESS, Up = XCB_KEY_RELEASE };

void Move(const X11Connection& x, xcb_keycode_t code, Direction direction) {
    xcb_test_fake_input(x.connection(), static_cast<std::uint8_t>(direction), code,
                        XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
}

void Tap(const X11Connection& x, xcb_keycode_t code) {
    Move(x, code, Direction::Down);
    Move(x, code, Direction::Up);
}

bool Contains(const std::vector<xcb_keycode_t>& codes, xcb_keycode_t code) {
    return std::ranges::find(codes, code) != codes.end();
}

}  // namespace

bool X11Fingers::Exist(const X11Connection& x) {
    if (!x.usable()) return false;
    const auto* extension = xcb_get_extension_data(x.connection(), &xcb_test_id);
    return extension != nullptr && extension->present != 0;
}

X11Fingers::X11Fingers(const X11Connection& x, const X11Keyboard& keyboard)
    : x_(x), keyboard_(keyboard) {
    for (const xcb_keycode_t code : keyboard_.held()) Move(x_, code, Direction::Up);
    if (keyboard_.lock_in_force() != 0) Tap(x_, keyboard_.lock_in_force());
}

void X11Fingers::Rest() {
    ReleaseAllBut({});
    if (std::exchange(rests_, true)) return;
    if (keyboard_.lock_in_force() != 0) Tap(x_, keyboard_.lock_in_force());
    x_.Sync();
}

void X11Fingers::Strike(const KeyChord& chord) {
    ReleaseAllBut(chord.modifiers);
    // A key that is down already does not go down again.
    if (keyboard_.IsDown(chord.key)) Move(x_, chord.key, Direction::Up);
    for (const xcb_keycode_t code : chord.modifiers) {
        if (Contains(down_, code)) continue;
        Move(x_, code, Direction::Down);
        down_.push_back(code);
    }
    Tap(x_, chord.key);
    if (!chord.joined) ReleaseAllBut({});
}

void X11Fingers::ReleaseAllBut(const std::vector<xcb_keycode_t>& wanted) {
    const std::vector<xcb_keycode_t> down = down_;
    down_.clear();
    for (const xcb_keycode_t code : down)
        if (Contains(wanted, code)) down_.push_back(code);
    for (auto code = down.rbegin(); code != down.rend(); ++code)
        if (!Contains(wanted, *code)) Move(x_, *code, Direction::Up);
}

}  // namespace corvane::linux_desktop
