// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/display.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <QDir>
#include <QLibraryInfo>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include "linux/files/file_descriptor.h"
#include "linux/session/x11_connection.h"

namespace corvane::linux_desktop {
namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool WaylandAnswers(const std::string& display) {
    const auto path = std::filesystem::path(Variable("XDG_RUNTIME_DIR")) / display;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.string().size() >= sizeof address.sun_path) return false;
    path.string().copy(address.sun_path, sizeof address.sun_path - 1);
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return ::connect(socket.number(), reinterpret_cast<const sockaddr*>(&address),
                     sizeof address) == 0;
}

bool QtSpeaksWayland() {
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms");
    return !plugins.entryList({"libqwayland*"}).empty();
}

}  // namespace

void RequireDisplay() {
    // Whoever chose a platform for Qt knows what for.
    if (!Variable("QT_QPA_PLATFORM").empty() && Variable("QT_QPA_PLATFORM") != "xcb") return;
    const std::string x11 = Variable("DISPLAY");
    const std::string wayland = Variable("WAYLAND_DISPLAY");
    if (!x11.empty() && X11Connection().usable()) {
        qputenv("QT_QPA_PLATFORM", "xcb");
        return;
    }
    if (!wayland.empty() && WaylandAnswers(wayland) && QtSpeaksWayland()) {
        qputenv("QT_QPA_PLATFORM", "wayland");
        return;
    }
    std::cerr << "KT Corvane needs a desktop to show its windows on, and there is none here: ";
    if (x11.empty() && wayland.empty())
        std::cerr << "neither DISPLAY nor WAYLAND_DISPLAY is set.\n";
    else if (!x11.empty())
        std::cerr << "the display \"" << x11 << "\" that DISPLAY names can't be reached.\n";
    else
        std::cerr << "the display \"" << wayland
                  << "\" that WAYLAND_DISPLAY names can't be used.\n";
    std::cerr.flush();
    std::_Exit(1);
}

}  // namespace corvane::linux_desktop
