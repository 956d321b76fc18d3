// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/automation.h"
#include "platform/shell32.h"
#include "simulated/call_record.h"

namespace corvane::simulated {

/// A tray that holds any number of icons, and a recycle bin.
class SimulatedTray final : public IShell32 {
public:
    explicit SimulatedTray(CallRecord& record);

    bool Shell_NotifyIconA(std::uint32_t dwMessage, const NOTIFYICONDATA& data) override;
    std::int32_t SHEmptyRecycleBinA(HWND owner, const std::string& rootPath,
                                    std::uint32_t flags) override;

    [[nodiscard]] const std::vector<NOTIFYICONDATA>& Icons() const { return icons_; }
    /// What a person has put into the bin. All of it lies on the drive C.
    std::vector<std::string> RecycleBin;

private:
    CallRecord& record_;
    std::vector<NOTIFYICONDATA> icons_;
};

/// A browser that a person can close. Operations that can be told to fail: CreateInternetExplorer,
/// Navigate2.
class SimulatedAutomation final : public IAutomation {
public:
    explicit SimulatedAutomation(CallRecord& record);

    std::shared_ptr<IInternetExplorer> CreateInternetExplorer(
        InternetExplorerEvents events) override;

    /// A person closes the browser that was opened last.
    void QuitBrowser();

private:
    CallRecord& record_;
    InternetExplorerEvents browser_;
};

}  // namespace corvane::simulated
