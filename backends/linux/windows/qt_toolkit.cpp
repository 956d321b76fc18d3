// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/qt_toolkit.h"

#include <QApplication>
#include <utility>

#include "linux/windows/accessible_widgets.h"
#include "linux/windows/look.h"
#include "linux/windows/outlined_style.h"
#include "linux/windows/qt_window.h"

namespace corvane::linux_desktop {

QtToolkit::QtToolkit(const std::string& picture_folder) : pictures_(Words(picture_folder)) {
    QApplication::setFont(DialogFont());
    QApplication::setWindowIcon(pictures_.ProgramIcon());
    MakeWindowsVisible();
    TellOfOurWidgets();
}

std::unique_ptr<IWindowPeer> QtToolkit::CreateWindow(const WindowDescription& description,
                                                     WindowPeerEvents events) {
    return std::make_unique<QtWindow>(description, std::move(events),
                                      ToolkitParts{pictures_, gdi_, controls_, printer_});
}

}  // namespace corvane::linux_desktop
