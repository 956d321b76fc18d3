// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "linux/session/x11_connection.h"

namespace corvane::linux_desktop {

/// The X server's clock. Window managers refuse or complain about a request that bears no time, and
/// one that bears an old time counts as overtaken by what the person did since.
class X11ServerTime {
public:
    explicit X11ServerTime(const X11Connection& x);
    ~X11ServerTime();
    X11ServerTime(const X11ServerTime&) = delete;
    X11ServerTime& operator=(const X11ServerTime&) = delete;

    /// Now; XCB_CURRENT_TIME if the server does not answer. Drops the events that have arrived.
    [[nodiscard]] xcb_timestamp_t Now() const;

private:
    const X11Connection& x_;
    xcb_window_t window_;
};

}  // namespace corvane::linux_desktop
