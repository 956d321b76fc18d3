// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/desktop_windows.h"

#include <QGuiApplication>
#include <QWidget>
#include <utility>

#include "linux/session/x11_windows.h"
#include "linux/windows/frame.h"

namespace corvane::linux_desktop {
namespace {

bool IsHidden(const QWidget* own) {
    return own != nullptr && !own->isVisible();
}

bool Minimises(std::int32_t command) {
    return command == SW_MINIMIZE || command == SW_SHOWMINIMIZED;
}

/// One that is minimised comes out as such, unless the command is to change that.
void Reveal(QWidget& own, std::int32_t command) {
    if (command != SW_SHOW)
        own.setWindowState(own.windowState().setFlag(Qt::WindowMinimized, Minimises(command)));
    own.show();
    if (!own.isMinimized()) own.raise();
}

}  // namespace

DesktopWindows::DesktopWindows(std::unique_ptr<Windows> session) : session_(std::move(session)) {}

HWND DesktopWindows::Foreground() {
    const HWND active = session_->Active();
    // The desktop may hear a moment later that ours was hidden.
    return IsHidden(FindOwnWindow(active)) ? 0 : active;
}

std::optional<WindowFacts> DesktopWindows::Describe(HWND window) {
    // The desktop keeps nothing about a hidden window.
    return IsHidden(FindOwnWindow(window)) ? own_.Describe(window) : session_->Describe(window);
}

bool DesktopWindows::BringToFront(HWND window) {
    return !IsHidden(FindOwnWindow(window)) && session_->Activate(window) == SessionAnswer::Done;
}

bool DesktopWindows::Show(HWND window, std::int32_t command) {
    const auto before = Describe(window);
    if (!before) return false;
    QWidget* own = FindOwnWindow(window);
    const bool was_hidden = IsHidden(own);
    if (was_hidden) Reveal(*own, command);
    switch (command) {
        case SW_SHOWMINIMIZED:
        case SW_MINIMIZE:
            session_->Minimise(window);
            break;
        case SW_SHOW:
            // Activating it would also bring it back.
            if (!before->minimised) session_->Activate(window);
            break;
        case SW_SHOWMAXIMIZED:
            session_->Activate(window);
            Maximise(window, own);
            break;
        case SW_SHOWNORMAL:
            session_->Activate(window);
            NormalSize(window, own);
            break;
        case SW_RESTORE:
            session_->Activate(window);
            if (!before->minimised) NormalSize(window, own);
            break;
        default:
            break;
    }
    return !was_hidden;
}

bool DesktopWindows::AskToClose(HWND window) {
    if (FindOwnWindow(window) != nullptr) return own_.Close(window) == SessionAnswer::Done;
    return session_->Close(window) == SessionAnswer::Done;
}

void DesktopWindows::Maximise(HWND window, QWidget* own) {
    auto* frame = dynamic_cast<Frame*>(own);
    if (frame != nullptr) frame->LetGrow();
    if (session_->Maximise(window) != SessionAnswer::Done && frame != nullptr) frame->HoldSize();
}

void DesktopWindows::NormalSize(HWND window, QWidget* own) {
    session_->NormalSize(window);
    // A frame that has heard of its state from the desktop will hear of the change too.
    auto* frame = dynamic_cast<Frame*>(own);
    if (frame != nullptr && !frame->isMaximized()) frame->HoldSize();
}

std::unique_ptr<Windows> MakeSessionWindows() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Where nobody sees the windows, Qt may have a connection for other ends.
    if (x11 == nullptr || QGuiApplication::platformName() != "xcb")
        return std::make_unique<OwnWindows>();
    return std::make_unique<X11Windows>(x11->connection());
}

}  // namespace corvane::linux_desktop
