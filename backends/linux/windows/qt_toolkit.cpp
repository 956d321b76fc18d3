// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/qt_toolkit.h"

#include <QApplication>
#include <utility>

#include "linux/windows/look.h"
#include "linux/windows/qt_window.h"

namespace corvane::linux_desktop {

QtToolkit::QtToolkit() {
    QApplication::setFont(DialogFont());
}

std::unique_ptr<IWindowPeer> QtToolkit::CreateWindow(const WindowDescription& description,
                                                     WindowPeerEvents events) {
    return std::make_unique<QtWindow>(description, std::move(events));
}

}  // namespace corvane::linux_desktop
