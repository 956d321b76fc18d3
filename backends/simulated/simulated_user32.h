// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "platform/user32.h"
#include "simulated/call_record.h"
#include "simulated/cell_windows.h"
#include "simulated/screen.h"
#include "simulated/simulated_printer.h"
#include "simulated/simulated_tokens.h"
#include "simulated/virtual_queue.h"

namespace corvane::simulated {

/// The window system as it answers calls on any window. It refuses the front to a program that does
/// not have it and is not joined with the one that has. Every call but GetSysColor is recorded.
/// Operations that can be told to fail: SendMessageA, FormatRange.
class SimulatedUser32 final : public IUser32 {
public:
    /// `printer` lays out the texts of `windows`.
    SimulatedUser32(CallRecord& record, VirtualQueue& queue, Screen& screen,
                    const SimulatedTokens& tokens, const CellWindows& windows,
                    SimulatedPrinter& printer);

    bool ReleaseCapture() override;
    std::int32_t SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                              std::int32_t lParam) override;
    std::int32_t SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                              const FORMATRANGE* range) override;
    HWND GetForegroundWindow() override;
    std::int32_t GetWindowTextLengthA(HWND hWnd) override;
    std::int32_t GetWindowTextA(HWND hWnd, char* buffer, std::int32_t count) override;
    bool PostMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                      std::int32_t lParam) override;
    std::uint32_t GetWindowThreadProcessId(HWND hWnd, std::uint32_t* processId) override;
    bool AttachThreadInput(std::uint32_t idAttach, std::uint32_t idAttachTo,
                           std::int32_t fAttach) override;
    bool SetForegroundWindow(HWND hWnd) override;
    bool IsIconic(HWND hWnd) override;
    bool ShowWindow(HWND hWnd, std::int32_t nCmdShow) override;
    bool ExitWindowsEx(std::uint32_t flags, std::uint32_t reserved) override;
    std::int32_t GetSysColor(std::int32_t index) override;

    /// Every system colour is a grey of its own at first.
    void SetSysColor(std::int32_t index, std::int32_t rgb) { colours_[index] = rgb; }
    /// How the session has been told to end; nothing while it goes on.
    [[nodiscard]] std::optional<std::uint32_t> SessionEnd() const { return session_end_; }
    /// Whether the input of any threads is joined.
    [[nodiscard]] bool InputJoined() const { return !joined_.empty(); }

private:
    [[nodiscard]] bool MayTakeFront() const;

    CallRecord& record_;
    VirtualQueue& queue_;
    Screen& screen_;
    const SimulatedTokens& tokens_;
    const CellWindows& windows_;
    SimulatedPrinter& printer_;
    std::map<std::int32_t, std::int32_t> colours_;
    std::set<std::pair<std::uint32_t, std::uint32_t>> joined_;  // the lower number first
    std::optional<std::uint32_t> session_end_;
};

}  // namespace corvane::simulated
