// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/user32.h"
#include "runtime/forms/form.h"
#include "runtime/message_loop.h"
#include "shell/form2.h"

namespace corvane {

/// What acts on the window that the person is looking at, whatever program it belongs to, and what
/// takes its place in front.
class WindowCommands {
public:
    WindowCommands(IUser32& user32, MessageLoop& loop, forms::Lazy<Form2>& main_window);

    /// Sets the show state of the window in front, be it the main window.
    void ShowForegroundWindow(ShowCommand nCmdShow);

    /// Asks the window in front to close and does not wait for it. The main window alone is
    /// protected: false, and nothing is asked. Otherwise true.
    bool CloseForegroundWindow();

    /// Brings a window to the front, also where the window system refuses that to a program in the
    /// background. Yields once if another thread's window was in front. Always false.
    bool ForceForegroundWindow(HWND hWnd);

private:
    IUser32& user32_;
    MessageLoop& loop_;
    forms::Lazy<Form2>& main_window_;
};

}  // namespace corvane
