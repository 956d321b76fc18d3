// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <string>
#include <vector>

#include "linux/files/file_descriptor.h"

namespace corvane::linux_desktop {

/// What is asked of a machine with optical drives. May be used by several threads at once.
class DeviceCalls {
public:
    virtual ~DeviceCalls() = default;

    /// The drives in order of their numbers, as in "/dev/sr0".
    [[nodiscard]] virtual std::vector<std::string> OpticalDrives() = 0;

    /// As open(2); a descriptor that is none on failure.
    [[nodiscard]] virtual FileDescriptor Open(const std::string& device, int flags) = 0;

    /// As ioctl(2), but returns 0 or the number of the error. May take as long as the door moves.
    virtual int Control(int device, unsigned long request, int argument) = 0;

    /// Asks for the end of the device's use as a file system; whether it has ended.
    virtual bool Unmount(const std::string& device) = 0;
};

/// The kernel's calls; UDisks on the given bus for what the desktop has mounted for the person.
class MachineDevices final : public DeviceCalls {
public:
    explicit MachineDevices(QDBusConnection bus);

    [[nodiscard]] std::vector<std::string> OpticalDrives() override;
    [[nodiscard]] FileDescriptor Open(const std::string& device, int flags) override;
    int Control(int device, unsigned long request, int argument) override;
    bool Unmount(const std::string& device) override;

private:
    QDBusConnection bus_;
};

}  // namespace corvane::linux_desktop
