// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/user32.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

#include "linux/canvas/system_colours.h"

namespace corvane::linux_desktop {
namespace {

QWindow* FindWindow(HWND hWnd) {
    for (const QWidget* widget : QApplication::topLevelWidgets())
        if (widget->internalWinId() == hWnd) return widget->windowHandle();
    return nullptr;
}

}  // namespace

bool User32::ReleaseCapture() {
    if (QWidget* grabber = QWidget::mouseGrabber()) grabber->releaseMouse();
    return true;
}

std::int32_t User32::SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                                  std::int32_t /*lParam*/) {
    if (msg != WM_NCLBUTTONDOWN || wParam != HTCAPTION || hWnd == 0) return 0;
    // Only in answer to a button that is down; otherwise the desktop does nothing.
    if (QWindow* window = FindWindow(hWnd)) window->startSystemMove();
    return 0;
}

std::int32_t User32::SendMessageA(HWND /*hWnd*/, std::uint32_t /*msg*/, std::uint32_t /*wParam*/,
                                  const FORMATRANGE* /*range*/) {
    return 0;
}

std::int32_t User32::GetSysColor(std::int32_t index) {
    return SystemColour(index);
}

}  // namespace corvane::linux_desktop
