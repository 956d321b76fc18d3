// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

#include "linux/session/x11_connection.h"

namespace corvane::linux_desktop {

/// Waits for the window manager, which carries out what it is asked in its own time and tells
/// nobody when it leaves things as they are.
class X11ManagerTurn {
public:
    using Time = std::chrono::steady_clock::time_point;

    explicit X11ManagerTurn(const X11Connection& x);
    ~X11ManagerTurn();
    X11ManagerTurn(const X11ManagerTurn&) = delete;
    X11ManagerTurn& operator=(const X11ManagerTurn&) = delete;

    /// Returns when the manager has done what it was asked before, and has heard what came of that.
    /// False if it does not answer before `end`.
    [[nodiscard]] bool Await(Time end) const;

private:
    [[nodiscard]] bool RoundTrip(Time end) const;

    const X11Connection& x_;
    xcb_atom_t question_, answer_;
    xcb_window_t window_;  // of ours, never shown: about it the manager is asked
};

}  // namespace corvane::linux_desktop
