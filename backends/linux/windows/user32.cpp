// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/user32.h"

#include <QApplication>
#include <QTextEdit>
#include <QWidget>
#include <QWindow>

#include "linux/canvas/canvas.h"
#include "linux/canvas/system_colours.h"
#include "linux/printing/format_range.h"
#include "linux/printing/printer_error.h"
#include "linux/windows/control_handles.h"

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

std::int32_t User32::SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                                  const FORMATRANGE* range) {
    const auto* editor = qobject_cast<QTextEdit*>(controls_.Find(hWnd));
    // No layout outlives its call, so without a range there is none to free.
    if (msg != EM_FORMATRANGE || editor == nullptr || range == nullptr) return 0;
    PrintedPage* const page = gdi_.FindPage(range->hdc);
    if (page == nullptr || range->hdcTarget != range->hdc) RaisePrinterError();
    return FormatRange(*editor, *range, *page, wParam == 0 ? Rendering::Measure : Rendering::Draw);
}

std::int32_t User32::GetSysColor(std::int32_t index) {
    return SystemColour(index);
}

}  // namespace corvane::linux_desktop
