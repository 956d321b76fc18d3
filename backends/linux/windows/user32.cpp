// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/user32.h"

#include <QTextEdit>
#include <QWidget>
#include <QWindow>
#include <algorithm>

#include "linux/canvas/canvas.h"
#include "linux/canvas/system_colours.h"
#include "linux/printing/format_range.h"
#include "linux/printing/printer_error.h"
#include "linux/system/session_end.h"
#include "linux/windows/control_handles.h"

namespace corvane::linux_desktop {

bool User32::ReleaseCapture() {
    if (QWidget* grabber = QWidget::mouseGrabber()) grabber->releaseMouse();
    return true;
}

std::int32_t User32::SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                                  std::int32_t /*lParam*/) {
    if (msg != WM_NCLBUTTONDOWN || wParam != HTCAPTION) return 0;
    // Only in answer to a button that is down; otherwise the desktop does nothing.
    const QWidget* own = FindOwnWindow(hWnd);
    if (own != nullptr && own->windowHandle() != nullptr) own->windowHandle()->startSystemMove();
    return 0;
}

std::int32_t User32::GetWindowTextLengthA(HWND hWnd) {
    const auto facts = windows_.Describe(hWnd);
    return facts ? static_cast<std::int32_t>(facts->title.size()) : 0;
}

std::int32_t User32::GetWindowTextA(HWND hWnd, char* buffer, std::int32_t count) {
    const auto facts = windows_.Describe(hWnd);
    if (!facts || count <= 0) return 0;
    const auto copied = std::min(facts->title.size(), static_cast<std::size_t>(count) - 1);
    facts->title.copy(buffer, copied);
    buffer[copied] = '\0';
    return static_cast<std::int32_t>(copied);
}

bool User32::PostMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t /*wParam*/,
                          std::int32_t /*lParam*/) {
    // A window can be sent any message, and programs here would heed no other.
    return msg == WM_CLOSE ? windows_.AskToClose(hWnd) : windows_.Describe(hWnd).has_value();
}

std::uint32_t User32::GetWindowThreadProcessId(HWND hWnd, std::uint32_t* processId) {
    const auto facts = windows_.Describe(hWnd);
    const pid_t process = facts ? facts->process.value_or(0) : 0;
    if (processId != nullptr) *processId = static_cast<std::uint32_t>(process);
    return static_cast<std::uint32_t>(process);
}

bool User32::IsIconic(HWND hWnd) {
    const auto facts = windows_.Describe(hWnd);
    return facts && facts->minimised;
}

bool User32::ExitWindowsEx(std::uint32_t flags, std::uint32_t /*reserved*/) {
    return session_end_ != nullptr && session_end_->ExitWindowsEx(flags);
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
