// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_bare_screen.h"

#include <array>

namespace corvane::linux_desktop {

X11BareScreen::X11BareScreen(const X11Connection& x, const X11WindowFacts& facts)
    : x_(x),
      facts_(facts),
      time_(x),
      wm_protocols_(x.Atom("WM_PROTOCOLS")),
      wm_delete_(x.Atom("WM_DELETE_WINDOW")) {}

SessionAnswer X11BareScreen::Activate(WindowId window) {
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(x_.connection(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_set_input_focus(x_.connection(), XCB_INPUT_FOCUS_PARENT, window, time_.Now());
    x_.Sync();
    return facts_.Active() == window ? SessionAnswer::Done : SessionAnswer::Denied;
}

SessionAnswer X11BareScreen::Minimise(WindowId /*window*/) {
    return SessionAnswer::Unsupported;
}

SessionAnswer X11BareScreen::Maximise(WindowId window) {
    const auto screen =
        Answer<xcb_get_geometry_reply>(x_, xcb_get_geometry(x_.connection(), x_.root()));
    const auto now = Answer<xcb_get_geometry_reply>(x_, xcb_get_geometry(x_.connection(), window));
    if (!screen || !now) return SessionAnswer::Denied;
    ForgetClosedWindows();
    // The first place counts: a second time would make the whole screen the normal size.
    normal_places_.try_emplace(window, Place{now->x, now->y, now->width, now->height});
    const auto borders = static_cast<std::uint32_t>(2 * now->border_width);
    Move(window, {0, 0, screen->width - borders, screen->height - borders});
    return SessionAnswer::Done;
}

SessionAnswer X11BareScreen::NormalSize(WindowId window) {
    if (const auto place = normal_places_.extract(window)) Move(window, place.mapped());
    return SessionAnswer::Done;
}

SessionAnswer X11BareScreen::Close(WindowId window) {
    if (!facts_.TakesPartIn(window, wm_delete_)) return SessionAnswer::Unsupported;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = wm_protocols_;
    message.data.data32[0] = wm_delete_;
    message.data.data32[1] = time_.Now();
    xcb_send_event(x_.connection(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(x_.connection());
    return SessionAnswer::Done;
}

void X11BareScreen::Move(WindowId window, const Place& place) const {
    const std::array<std::uint32_t, 4> values{static_cast<std::uint32_t>(place.x),
                                              static_cast<std::uint32_t>(place.y), place.width,
                                              place.height};
    xcb_configure_window(x_.connection(), window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    x_.Sync();
}

void X11BareScreen::ForgetClosedWindows() {
    std::erase_if(normal_places_, [this](const auto& of) { return !facts_.IsThere(of.first); });
}

}  // namespace corvane::linux_desktop
