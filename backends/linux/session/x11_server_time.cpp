// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_server_time.h"

#include <cstdint>

namespace corvane::linux_desktop {

X11ServerTime::X11ServerTime(const X11Connection& x)
    : x_(x), window_(xcb_generate_id(x.connection())) {
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(x.connection(), XCB_COPY_FROM_PARENT, window_, x.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
}

X11ServerTime::~X11ServerTime() {
    xcb_destroy_window(x_.connection(), window_);
    xcb_flush(x_.connection());
}

xcb_timestamp_t X11ServerTime::Now() const {
    if (!x_.usable()) return XCB_CURRENT_TIME;
    x_.DropEvents();
    // The server tells the time of each change, even of one that adds nothing.
    xcb_change_property(x_.connection(), XCB_PROP_MODE_APPEND, window_, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 0, nullptr);
    x_.Sync();
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(x_.connection())}) {
        if ((event->response_type & 0x7FU) != XCB_PROPERTY_NOTIFY) continue;
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
        if (change.window == window_) return change.time;
    }
    return XCB_CURRENT_TIME;
}

}  // namespace corvane::linux_desktop
