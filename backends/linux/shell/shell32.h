// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "linux/shell/tray.h"
#include "linux/system/recycle_bin.h"
#include "platform/shell32.h"

namespace corvane::linux_desktop {

/// The desktop's tray and the person's trash.
class Shell32 final : public IShell32 {
public:
    bool Shell_NotifyIconA(std::uint32_t dwMessage, const NOTIFYICONDATA& data) override {
        return tray_.Shell_NotifyIconA(dwMessage, data);
    }
    std::int32_t SHEmptyRecycleBinA(HWND owner, const std::string& rootPath,
                                    std::uint32_t flags) override {
        return recycle_bin_.Empty(owner, rootPath, flags);
    }

private:
    Tray tray_;
    RecycleBin recycle_bin_;
};

}  // namespace corvane::linux_desktop
