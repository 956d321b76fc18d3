// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/user32.h"

namespace corvane::linux_desktop {

/// Calls on windows of this program; those of others take no messages.
class User32 final : public IUser32 {
public:
    bool ReleaseCapture() override;
    std::int32_t SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                              std::int32_t lParam) override;
    HWND GetForegroundWindow() override { return 0; }
    std::int32_t GetWindowTextLengthA(HWND) override { return 0; }
    std::int32_t GetWindowTextA(HWND, char*, std::int32_t) override { return 0; }
    bool PostMessageA(HWND, std::uint32_t, std::uint32_t, std::int32_t) override { return false; }
    std::uint32_t GetWindowThreadProcessId(HWND, std::uint32_t*) override { return 0; }
    bool AttachThreadInput(std::uint32_t, std::uint32_t, std::int32_t) override { return false; }
    bool SetForegroundWindow(HWND) override { return false; }
    bool IsIconic(HWND) override { return false; }
    bool ShowWindow(HWND, std::int32_t) override { return false; }
    bool ExitWindowsEx(std::uint32_t, std::uint32_t) override { return false; }
    std::int32_t GetSysColor(std::int32_t index) override;
};

}  // namespace corvane::linux_desktop
