// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/disc_players.h"

#include <fcntl.h>
#include <linux/cdrom.h>

#include <cerrno>
#include <thread>
#include <utility>

#include "linux/system/media_command.h"

namespace corvane::linux_desktop {
namespace {

MediaResult MoveDoor(DeviceCalls& devices, const std::string& drive, bool open) {
    // Without O_NONBLOCK a drive can't be opened while there is no disc in it.
    const FileDescriptor device = devices.Open(drive, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (!device.open()) return kMediaHardwareFailed;
    const auto move = [&] {
        if (!open) return devices.Control(device.number(), CDROMCLOSETRAY, 0);
        devices.Control(device.number(), CDROM_LOCKDOOR, 0);  // where it can be locked
        return devices.Control(device.number(), CDROMEJECT, 0);
    };
    int error = move();
    if (error == EBUSY && open && devices.Unmount(drive)) error = move();
    return error == 0 ? kMediaDone : kMediaHardwareFailed;
}

}  // namespace

DiscPlayers::DiscPlayers(std::shared_ptr<DeviceCalls> devices) : devices_(std::move(devices)) {}

std::uint32_t DiscPlayers::mciSendStringA(const std::string& command, std::string& reply,
                                          std::uint32_t replyLength, HWND /*callback*/) {
    DoorCommand door;
    if (const MediaResult wrong = ParseDoorCommand(command, door); wrong != kMediaDone)
        return wrong;
    const std::vector<std::string> drives = devices_->OpticalDrives();
    if (drives.empty()) return kMediaNoDevice;
    if (replyLength != 0) reply.clear();
    if (door.wait) return MoveDoor(*devices_, drives.front(), door.open);
    std::thread([devices = devices_, drive = drives.front(), open = door.open] {
        MoveDoor(*devices, drive, open);
    }).detach();
    return kMediaDone;
}

}  // namespace corvane::linux_desktop
