// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "linux/windows/desktop_windows.h"
#include "platform/user32.h"

namespace corvane::linux_desktop {

class ControlHandles;
class Gdi;
class SessionEnd;

/// The window system's calls. A thread is told by its program's process, since no desktop here
/// knows of threads. Needs a QApplication.
class User32 final : public IUser32 {
public:
    /// `controls` are those of our windows, `gdi` knows the pages they are printed on. All outlive
    /// this; without `session_end` the session can't be ended.
    User32(std::unique_ptr<Windows> session, const ControlHandles& controls, const Gdi& gdi,
           SessionEnd* session_end = nullptr)
        : windows_(std::move(session)), controls_(controls), gdi_(gdi), session_end_(session_end) {}

    bool ReleaseCapture() override;
    /// To a window of this program; those of others take no messages.
    std::int32_t SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                              std::int32_t lParam) override;
    std::int32_t SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                              const FORMATRANGE* range) override;
    HWND GetForegroundWindow() override { return windows_.Foreground(); }
    std::int32_t GetWindowTextLengthA(HWND hWnd) override;
    std::int32_t GetWindowTextA(HWND hWnd, char* buffer, std::int32_t count) override;
    bool PostMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                      std::int32_t lParam) override;
    std::uint32_t GetWindowThreadProcessId(HWND hWnd, std::uint32_t* processId) override;
    /// Nothing: nobody here refuses the front to a program whose input is not joined.
    bool AttachThreadInput(std::uint32_t, std::uint32_t, std::int32_t) override { return true; }
    bool SetForegroundWindow(HWND hWnd) override { return windows_.BringToFront(hWnd); }
    bool IsIconic(HWND hWnd) override;
    bool ShowWindow(HWND hWnd, std::int32_t nCmdShow) override {
        return windows_.Show(hWnd, nCmdShow);
    }
    bool ExitWindowsEx(std::uint32_t flags, std::uint32_t reserved) override;
    std::int32_t GetSysColor(std::int32_t index) override;

private:
    DesktopWindows windows_;
    const ControlHandles& controls_;
    const Gdi& gdi_;
    SessionEnd* session_end_;
};

}  // namespace corvane::linux_desktop
