// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/own_windows.h"

#include <unistd.h>

#include <QApplication>
#include <QWidget>

namespace corvane::linux_desktop {
namespace {

SessionAnswer SetState(WindowId window, Qt::WindowState state, bool on) {
    QWidget* own = FindOwnWindow(window);
    if (own == nullptr) return SessionAnswer::Unsupported;
    own->setWindowState(own->windowState().setFlag(state, on));
    return SessionAnswer::Done;
}

}  // namespace

QWidget* FindOwnWindow(WindowId window) {
    if (window == 0) return nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->internalWinId() == window) return widget;
    return nullptr;
}

WindowId OwnWindows::Active() {
    const QWidget* active = QApplication::activeWindow();
    return active == nullptr ? 0 : static_cast<WindowId>(active->internalWinId());
}

std::vector<WindowId> OwnWindows::List() {
    std::vector<WindowId> windows;
    for (const QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible()) windows.push_back(static_cast<WindowId>(widget->internalWinId()));
    return windows;
}

std::optional<WindowFacts> OwnWindows::Describe(WindowId window) {
    const QWidget* own = FindOwnWindow(window);
    if (own == nullptr) return {};
    return WindowFacts{.title = own->windowTitle().toStdString(),
                       .application = QApplication::applicationName().toStdString(),
                       .process = ::getpid(),
                       .minimised = own->isMinimized(),
                       .maximised = own->isMaximized()};
}

SessionAnswer OwnWindows::Activate(WindowId window) {
    const auto answer = SetState(window, Qt::WindowMinimized, false);
    if (QWidget* own = FindOwnWindow(window)) {
        own->raise();
        own->activateWindow();
    }
    return answer;
}

SessionAnswer OwnWindows::Minimise(WindowId window) {
    return SetState(window, Qt::WindowMinimized, true);
}

SessionAnswer OwnWindows::Maximise(WindowId window) {
    return SetState(window, Qt::WindowMaximized, true);
}

SessionAnswer OwnWindows::NormalSize(WindowId window) {
    return SetState(window, Qt::WindowMaximized, false);
}

SessionAnswer OwnWindows::Close(WindowId window) {
    QWidget* own = FindOwnWindow(window);
    if (own == nullptr) return SessionAnswer::Unsupported;
    QMetaObject::invokeMethod(own, &QWidget::close, Qt::QueuedConnection);
    return SessionAnswer::Done;
}

}  // namespace corvane::linux_desktop
