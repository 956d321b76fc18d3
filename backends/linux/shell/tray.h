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
class Tray final : public IShell32 {
public:
    bool Shell_NotifyIconA(std::uint32_t dwMessage, const NOTIFYICONDATA& data) override;
    std::int32_t SHEmptyRecycleBinA(HWND, const std::string&, std::uint32_t) override { return 1; }

private:
    using IconKey = std::pair<HWND, std::uint32_t>;  // window, number
    std::map<IconKey, std::unique_ptr<QSystemTrayIcon>> icons_;
};

}  // namespace corvane::linux_desktop
