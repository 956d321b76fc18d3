// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <string>

#include "linux/session/x11_connection.h"

namespace corvane::linux_desktop {

/// Asks the program with the focus whether it has come as far as our question, by the round trip
/// that window managers use to find out who still answers.
class X11Ping {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// `do_events` lets our own windows work; it is called when one of them has the focus.
    X11Ping(const X11Connection& x, std::function<void()> do_events);

    /// Who has the focus.
    struct Target {
        xcb_window_t focus = XCB_WINDOW_NONE;   ///< may lie inside of `window`
        xcb_window_t window = XCB_WINDOW_NONE;  ///< what a question is put to
        std::string window_class;               ///< tells the program
        bool answers = false;                   ///< it takes part in the protocol
        pid_t process = 0;                      ///< 0 if it does not tell
        bool ours = false;
    };
    /// `last` is who had it last.
    [[nodiscard]] Target FindTarget(const Target& last) const;

    /// So many questions, one after the answer to the other: some programs answer the first before
    /// the keys in front of it. False if they were not all answered before `end`.
    [[nodiscard]] bool Ask(const Target& target, int questions, Time end);
    /// Lets the time go by; our own windows work meanwhile if the target is one of them.
    void Pause(const Target& target, Time end) const;

private:
    [[nodiscard]] Target Describe(xcb_window_t window) const;
    void ListenForAnswers(bool listen) const;
    [[nodiscard]] bool RoundTrip(const Target& target, Time end);
    [[nodiscard]] bool AnswerHasArrived(std::uint32_t serial) const;
    void WaitForEvents(const Target& target, std::chrono::milliseconds most) const;

    const X11Connection& x_;
    std::function<void()> do_events_;
    xcb_atom_t wm_protocols_, net_wm_ping_, net_wm_pid_;
    std::uint32_t serial_ = 0;
};

}  // namespace corvane::linux_desktop
