// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "linux/session/windows.h"
#include "linux/windows/own_windows.h"
#include "platform/user32.h"

namespace corvane::linux_desktop {

/// The windows of the session, with what ours need beside: a hidden one is known to Qt alone, one
/// of fixed size must first be let grow. Needs a QApplication. A handle is the session's number.
class DesktopWindows {
public:
    explicit DesktopWindows(std::unique_ptr<Windows> session);

    [[nodiscard]] HWND Foreground();
    /// Nothing for a window that is not there.
    [[nodiscard]] std::optional<WindowFacts> Describe(HWND window);
    /// Whether it was brought to the front. A hidden one stays hidden.
    bool BringToFront(HWND window);
    /// Whether it was visible before. `command` is a ShowCommand; others do nothing.
    bool Show(HWND window, std::int32_t command);
    /// Whether it was asked to close; one of ours is asked by a message of the loop.
    bool AskToClose(HWND window);

private:
    void Maximise(HWND window, QWidget* own);
    void NormalSize(HWND window, QWidget* own);

    std::unique_ptr<Windows> session_;
    OwnWindows own_;
};

/// The windows of the session in which Qt shows ours.
[[nodiscard]] std::unique_ptr<Windows> MakeSessionWindows();

}  // namespace corvane::linux_desktop
