// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation.h"
#include "platform/shell32.h"
#include "platform/user32.h"
#include "simulated/call_record.h"
#include "simulated/cell_windows.h"
#include "simulated/simulated_printer.h"

namespace corvane::simulated {

/// A tray that holds any number of icons.
class SimulatedTray final : public IShell32 {
public:
    explicit SimulatedTray(CallRecord& record);

    bool Shell_NotifyIconA(std::uint32_t dwMessage, const NOTIFYICONDATA& data) override;

    [[nodiscard]] const std::vector<NOTIFYICONDATA>& Icons() const { return icons_; }

private:
    CallRecord& record_;
    std::vector<NOTIFYICONDATA> icons_;
};

/// The window system as it answers calls on any window. Operations that can be told to fail:
/// SendMessageA, FormatRange.
class SimulatedUser32 final : public IUser32 {
public:
    /// `printer` lays out the texts of `windows`.
    SimulatedUser32(CallRecord& record, const CellWindows& windows, SimulatedPrinter& printer);

    bool ReleaseCapture() override;
    std::int32_t SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                              std::int32_t lParam) override;
    std::int32_t SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                              const FORMATRANGE* range) override;
    std::int32_t GetSysColor(std::int32_t index) override;

    /// Every system colour is a grey of its own at first.
    void SetSysColor(std::int32_t index, std::int32_t rgb) { colours_[index] = rgb; }

private:
    CallRecord& record_;
    const CellWindows& windows_;
    SimulatedPrinter& printer_;
    std::map<std::int32_t, std::int32_t> colours_;
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
