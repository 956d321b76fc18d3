// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell32.h"
#include "runtime/forms/form.h"
#include "shell/form2.h"

namespace corvane {

/// The main window away in the tray. The icon there takes no input; the way back is spoken.
class TrayIcon {
public:
    TrayIcon(IShell32& shell32, forms::Lazy<Form2>& main_window);

    /// The one record of the icon, filled at each hiding and kept for the removal.
    NOTIFYICONDATA TrayIconData;

    void HideToTray();
    /// Passes over what fails: with the window in sight there is no icon to remove.
    void ShowFromTray();

private:
    IShell32& shell32_;
    forms::Lazy<Form2>& main_window_;
};

}  // namespace corvane
