// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "linux/session/windows.h"
#include "linux/session/x11_bare_screen.h"
#include "linux/session/x11_connection.h"
#include "linux/session/x11_window_facts.h"
#include "linux/session/x11_window_manager.h"

namespace corvane::linux_desktop {

/// The windows of an X11 session. It has a connection of its own, so that an error about a window
/// that has gone disturbs nobody.
class X11Windows final : public Windows {
public:
    /// `program` is the connection of our own windows; nullptr if they stand elsewhere.
    explicit X11Windows(xcb_connection_t* program);

    [[nodiscard]] WindowId Active() override;
    [[nodiscard]] std::vector<WindowId> List() override;
    [[nodiscard]] std::optional<WindowFacts> Describe(WindowId window) override;
    SessionAnswer Activate(WindowId window) override;
    SessionAnswer Minimise(WindowId window) override;
    SessionAnswer Maximise(WindowId window) override;
    SessionAnswer NormalSize(WindowId window) override;
    SessionAnswer Close(WindowId window) override;

private:
    using Act = SessionAnswer (X11WindowActs::*)(WindowId);
    SessionAnswer Do(Act act, WindowId window);
    void FinishWhatOurWindowsAskedFor() const;

    X11Connection x_;
    xcb_connection_t* program_;
    X11WindowFacts facts_{x_};
    X11WindowManager manager_{x_, facts_};
    X11BareScreen bare_screen_{x_, facts_};
};

}  // namespace corvane::linux_desktop
