// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>

#include "linux/session/x11_connection.h"
#include "linux/session/x11_server_time.h"
#include "linux/session/x11_window_acts.h"
#include "linux/session/x11_window_facts.h"

namespace corvane::linux_desktop {

/// An X11 session without a window manager, where nobody hears requests: what can be done with the
/// windows directly. Minimising can't: nobody would show the person a way back.
class X11BareScreen final : public X11WindowActs {
public:
    X11BareScreen(const X11Connection& x, const X11WindowFacts& facts);

    SessionAnswer Activate(WindowId window) override;
    SessionAnswer Minimise(WindowId window) override;
    SessionAnswer Maximise(WindowId window) override;
    SessionAnswer NormalSize(WindowId window) override;
    SessionAnswer Close(WindowId window) override;

private:
    struct Place {
        std::int32_t x = 0, y = 0;
        std::uint32_t width = 0, height = 0;
    };
    void Move(WindowId window, const Place& place) const;
    void ForgetClosedWindows();

    const X11Connection& x_;
    const X11WindowFacts& facts_;
    X11ServerTime time_;
    xcb_atom_t wm_protocols_, wm_delete_;
    std::map<WindowId, Place> normal_places_;  // of the windows that we have maximised
};

}  // namespace corvane::linux_desktop
