// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSystemTrayIcon>
#include <map>
#include <memory>
#include <utility>

#include "platform/shell32.h"

namespace corvane::linux_desktop {

/// The desktop's tray. Its icons are the program's icon, whatever hIcon says, and take no input.
/// Needs a QApplication.
class Tray {
public:
    /// As IShell32's.
    bool Shell_NotifyIconA(std::uint32_t dwMessage, const NOTIFYICONDATA& data);

private:
    using IconKey = std::pair<HWND, std::uint32_t>;  // window, number
    std::map<IconKey, std::unique_ptr<QSystemTrayIcon>> icons_;
};

}  // namespace corvane::linux_desktop
