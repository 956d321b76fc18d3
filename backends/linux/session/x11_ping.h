// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>

#include "linux/session/x11_connection.h"

namespace corvane::linux_desktop {

/// Asks the program with the focus whether it has come as far as our question, by the round trip
/// that window managers use to find out who still answers.
class X11Ping {
public:
    /// `do_events` lets our own windows work; it is called when one of them has the focus.
    X11Ping(const X11Connection& x, std::function<void()> do_events);

    /// Returns when the window with the focus has worked off its keys, or at a bound.
    void WaitForFocusWindow();

private:
    struct Target {
        xcb_window_t window = XCB_WINDOW_NONE;
        bool answers = false;  ///< it takes part in the protocol
        bool ours = false;
    };

    [[nodiscard]] Target FindTarget() const;
    [[nodiscard]] Target Describe(xcb_window_t window) const;
    void ListenForAnswers(bool listen) const;
    /// Whether the answer came before the time.
    [[nodiscard]] bool RoundTrip(const Target& target, std::chrono::steady_clock::time_point end);
    [[nodiscard]] bool AnswerHasArrived(std::uint32_t serial) const;
    void WaitForEvents(const Target& target, std::chrono::milliseconds most) const;

    const X11Connection& x_;
    std::function<void()> do_events_;
    xcb_atom_t wm_protocols_, net_wm_ping_, net_wm_pid_;
    std::uint32_t serial_ = 0;
};

}  // namespace corvane::linux_desktop
