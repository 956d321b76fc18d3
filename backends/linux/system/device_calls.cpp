// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/device_calls.h"

#include <fcntl.h>
#include <sys/ioctl.h>

#include <QDBusMessage>
#include <QString>
#include <QVariantMap>
#include <cerrno>
#include <utility>

#include "linux/system/mounts.h"

namespace corvane::linux_desktop {

MachineDevices::MachineDevices(QDBusConnection bus) : bus_(std::move(bus)) {}

std::vector<std::string> MachineDevices::OpticalDrives() {
    return BlockDevices("sr");
}

FileDescriptor MachineDevices::Open(const std::string& device, int flags) {
    return FileDescriptor(::open(device.c_str(), flags));
}

int MachineDevices::Control(int device, unsigned long request, int argument) {
    return ::ioctl(device, request, argument) == 0 ? 0 : errno;
}

bool MachineDevices::Unmount(const std::string& device) {
    constexpr int kPatience = 10'000;  // milliseconds; what is still to be written is written
    if (!bus_.isConnected()) return false;
    const QString name = QString::fromStdString(device).section(u'/', -1);
    QDBusMessage request = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.UDisks2"),
        QStringLiteral("/org/freedesktop/UDisks2/block_devices/") + name,
        QStringLiteral("org.freedesktop.UDisks2.Filesystem"), QStringLiteral("Unmount"));
    request << QVariantMap();
    return bus_.call(request, QDBus::Block, kPatience).type() == QDBusMessage::ReplyMessage;
}

}  // namespace corvane::linux_desktop
