// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/window_commands.h"

#include <string>

namespace corvane {
namespace {

// A truth value as the window system is given it.
constexpr std::int32_t kTrue = -1;
constexpr std::int32_t kFalse = 0;

}  // namespace

WindowCommands::WindowCommands(IUser32& user32, MessageLoop& loop, forms::Lazy<Form2>& main_window)
    : user32_(user32), loop_(loop), main_window_(main_window) {}

void WindowCommands::ShowForegroundWindow(ShowCommand nCmdShow) {
    user32_.ShowWindow(user32_.GetForegroundWindow(), nCmdShow);
}

bool WindowCommands::CloseForegroundWindow() {
    const HWND hWnd = user32_.GetForegroundWindow();

    // There is room for the caption, but nothing ever sets how much of it: deliberately the count
    // is 0, and the caption comes out empty. The protection goes by the handle.
    constexpr std::int32_t kCount = 0;
    std::string caption(static_cast<std::size_t>(user32_.GetWindowTextLengthA(hWnd)), ' ');
    caption.resize(static_cast<std::size_t>(user32_.GetWindowTextA(hWnd, caption.data(), kCount)));

    if (hWnd == main_window_->hWnd()) return false;
    user32_.PostMessageA(hWnd, WM_CLOSE, 0, 0);
    return true;
}

bool WindowCommands::ForceForegroundWindow(HWND hWnd) {
    // In front already: not even the show state is touched.
    if (hWnd == user32_.GetForegroundWindow()) return false;

    const std::uint32_t foregroundThread =
        user32_.GetWindowThreadProcessId(user32_.GetForegroundWindow(), nullptr);
    const std::uint32_t targetThread = user32_.GetWindowThreadProcessId(hWnd, nullptr);
    if (foregroundThread != targetThread) {
        // While their input is joined, the call counts as one of the thread in front and is not
        // refused. Other events may run before it is parted again.
        user32_.AttachThreadInput(foregroundThread, targetThread, kTrue);
        user32_.SetForegroundWindow(hWnd);
        loop_.DoEvents();
        user32_.AttachThreadInput(foregroundThread, targetThread, kFalse);
    } else {
        user32_.SetForegroundWindow(hWnd);
    }
    user32_.ShowWindow(hWnd, user32_.IsIconic(hWnd) ? SW_RESTORE : SW_SHOW);
    return false;
}

}  // namespace corvane
