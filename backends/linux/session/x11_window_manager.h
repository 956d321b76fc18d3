// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>

#include "linux/session/x11_connection.h"
#include "linux/session/x11_manager_turn.h"
#include "linux/session/x11_server_time.h"
#include "linux/session/x11_window_acts.h"
#include "linux/session/x11_window_facts.h"

namespace corvane::linux_desktop {

/// Asks the window manager as a pager does: it takes that for the person's own wish, so it does not
/// refuse the front to us as to a program that pushes itself forward.
class X11WindowManager final : public X11WindowActs {
public:
    X11WindowManager(const X11Connection& x, const X11WindowFacts& facts);

    SessionAnswer Activate(WindowId window) override;
    SessionAnswer Minimise(WindowId window) override;
    SessionAnswer Maximise(WindowId window) override;
    SessionAnswer NormalSize(WindowId window) override;
    SessionAnswer Close(WindowId window) override;

private:
    using Data = std::array<std::uint32_t, 5>;
    void Ask(WindowId window, xcb_atom_t request, const Data& data) const;
    void AskForSize(WindowId window, std::uint32_t action) const;
    /// Waits until it is so, for that long at most.
    [[nodiscard]] SessionAnswer WaitFor(
        const std::function<bool()>& effect,
        std::chrono::milliseconds patience = Windows::kPatience) const;

    const X11Connection& x_;
    const X11WindowFacts& facts_;
    X11ServerTime time_;
    X11ManagerTurn turn_;
    xcb_atom_t active_, current_desktop_, change_state_, state_, maximised_across_, maximised_down_,
        close_;
};

}  // namespace corvane::linux_desktop
