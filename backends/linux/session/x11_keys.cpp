// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_keys.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "linux/session/x11_keyboard.h"

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

/// Takes the person's modifiers and Caps Lock out of force for as long as it lives.
class QuietKeyboard {
public:
    QuietKeyboard(const X11Connection& x, const X11Keyboard& keyboard)
        : x_(x), keyboard_(keyboard) {
        for (const xcb_keycode_t code : keyboard_.held()) Move(x_, code, Direction::Up);
        if (keyboard_.lock_in_force() != 0) Tap(x_, keyboard_.lock_in_force());
    }
    ~QuietKeyboard() {
        if (keyboard_.lock_in_force() != 0) Tap(x_, keyboard_.lock_in_force());
        for (const xcb_keycode_t code : keyboard_.held()) Move(x_, code, Direction::Down);
    }
    QuietKeyboard(const QuietKeyboard&) = delete;
    QuietKeyboard& operator=(const QuietKeyboard&) = delete;

private:
    const X11Connection& x_;
    const X11Keyboard& keyboard_;
};

/// The key codes of a stroke in the order in which they go down; none if it has no key here.
std::vector<xcb_keycode_t> KeysOf(const KeyStroke& stroke, const X11Keyboard& keyboard) {
    const auto position = keyboard.Find(stroke);
    if (!position) return {};
    std::vector<xcb_keycode_t> codes;
    if (stroke.control) codes.push_back(keyboard.control());
    if (stroke.alt) codes.push_back(keyboard.alt());
    if (position->level3) codes.push_back(keyboard.level3());
    if (stroke.shift || position->shift) codes.push_back(keyboard.shift());
    codes.push_back(position->code);
    if (std::ranges::find(codes, 0) != codes.end()) return {};
    return codes;
}

bool HasXTest(const X11Connection& x) {
    if (!x.usable()) return false;
    const auto* extension = xcb_get_extension_data(x.connection(), &xcb_test_id);
    return extension != nullptr && extension->present != 0;
}

}  // namespace

X11Keys::X11Keys(std::function<void()> do_events)
    : xtest_(HasXTest(x_)), ping_(x_, std::move(do_events)) {}

SessionAnswer X11Keys::Type(std::span<const KeyStroke> strokes) {
    if (!xtest_) return SessionAnswer::Denied;
    x_.DropEvents();
    // Read anew each time: people change their layout while we run.
    const X11Keyboard keyboard(x_);
    std::vector<std::vector<xcb_keycode_t>> keys;
    for (const KeyStroke& stroke : strokes) {
        keys.push_back(KeysOf(stroke, keyboard));
        if (keys.back().empty()) return SessionAnswer::Unsupported;
    }
    {
        const QuietKeyboard quiet(x_, keyboard);
        for (auto& stroke : keys) {
            // A key that is down already does not go down again.
            if (keyboard.IsDown(stroke.back())) Move(x_, stroke.back(), Direction::Up);
            for (const xcb_keycode_t code : stroke) Move(x_, code, Direction::Down);
            std::ranges::reverse(stroke);
            for (const xcb_keycode_t code : stroke) Move(x_, code, Direction::Up);
        }
    }
    x_.Sync();
    return SessionAnswer::Done;
}

void X11Keys::WaitUntilTaken() {
    if (xtest_) ping_.WaitForFocusWindow();
}

}  // namespace corvane::linux_desktop
