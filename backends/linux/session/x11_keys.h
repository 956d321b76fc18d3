// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "linux/session/keys.h"
#include "linux/session/x11_connection.h"
#include "linux/session/x11_ping.h"

namespace corvane::linux_desktop {

/// Keys for an X11 session, by the server's XTEST extension: a stroke is that of a real keyboard,
/// so only characters of the layout in force can be typed.
class X11Keys final : public Keys {
public:
    /// `do_events` lets our own windows take what is typed into them.
    explicit X11Keys(std::function<void()> do_events);

    SessionAnswer Type(std::span<const KeyStroke> strokes) override;
    void WaitUntilTaken() override;

private:
    X11Connection x_;
    bool xtest_;
    X11Ping ping_;
};

}  // namespace corvane::linux_desktop
