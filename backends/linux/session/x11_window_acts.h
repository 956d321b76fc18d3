// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "linux/session/windows.h"

namespace corvane::linux_desktop {

/// The acts of Windows in one of the two worlds of an X11 session: with a window manager, which is
/// asked for them, and without one. The window was there a moment ago.
class X11WindowActs {
public:
    virtual ~X11WindowActs() = default;
    virtual SessionAnswer Activate(WindowId window) = 0;
    virtual SessionAnswer Minimise(WindowId window) = 0;
    virtual SessionAnswer Maximise(WindowId window) = 0;
    virtual SessionAnswer NormalSize(WindowId window) = 0;
    virtual SessionAnswer Close(WindowId window) = 0;
};

}  // namespace corvane::linux_desktop
