// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/winmm.h"
#include "runtime/forms/form.h"
#include "runtime/message_loop.h"
#include "shell/form2.h"

namespace corvane {

/// Opens and closes the CD tray. What the tray really does is never looked at: it is where the last
/// command has put it, as far as the main window knows.
class CdDoor {
public:
    CdDoor(IWinMm& winmm, MessageLoop& loop, forms::Lazy<Form2>& main_window);

    /// Moves the tray to its other place, and waits for it; nothing else runs meanwhile. Words and
    /// picture follow whether it has moved or not. Never raises.
    void ToggleCdDoor();

private:
    void Move(const char* command);

    IWinMm& winmm_;
    MessageLoop& loop_;
    forms::Lazy<Form2>& main_window_;
};

}  // namespace corvane
