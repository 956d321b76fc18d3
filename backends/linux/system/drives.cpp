// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/drives.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "linux/system/mounts.h"

namespace corvane::linux_desktop {
namespace {

std::string PlaceOf(const std::vector<Mount>& mounts, const std::string& source) {
    const auto found = std::find_if(mounts.begin(), mounts.end(),
                                    [&](const Mount& mount) { return mount.source == source; });
    return found == mounts.end() ? "" : found->point;
}

bool Contains(const std::vector<std::string>& devices, const std::string& source) {
    return std::find(devices.begin(), devices.end(), source) != devices.end();
}

}  // namespace

std::vector<Drive> DrivesOf(const std::string& mountinfo, const RemovableDevices& devices) {
    std::vector<Mount> mounts = MountsOf(mountinfo);
    std::vector<Drive> drives;
    char letter = 'A';
    for (const std::string& floppy : devices.floppies)
        if (letter <= 'B') drives.push_back({letter++, PlaceOf(mounts, floppy)});
    drives.push_back({'C', "/"});

    std::stable_sort(mounts.begin(), mounts.end(),
                     [](const Mount& a, const Mount& b) { return a.point < b.point; });
    std::set<std::string> seen;
    for (const Mount& mount : mounts)
        if (mount.point == "/") seen.insert(mount.device);
    letter = 'D';
    const auto add = [&](const std::string& point) {
        if (letter <= 'Z') drives.push_back({letter++, point});
    };
    for (const Mount& mount : mounts) {
        const bool removable =
            Contains(devices.floppies, mount.source) || Contains(devices.optical, mount.source);
        if (HoldsFiles(mount) && !removable && seen.insert(mount.device).second) add(mount.point);
    }
    for (const std::string& optical : devices.optical) add(PlaceOf(mounts, optical));
    return drives;
}

std::vector<Drive> PresentDrives() {
    return DrivesOf(PresentMountTable(),
                    {.floppies = BlockDevices("fd"), .optical = BlockDevices("sr")});
}

}  // namespace corvane::linux_desktop
