// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/drives.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string_view>

namespace corvane::linux_desktop {
namespace {

struct Mount {
    std::string device;  // major:minor
    std::string point;
    std::string type;
    std::string source;
};

/// The kernel writes blanks and the like as "\040".
std::string Unescaped(const std::string& field) {
    std::string text;
    for (std::size_t i = 0; i < field.size(); ++i) {
        const bool escaped = field[i] == '\\' && field.size() - i > 3 &&
                             std::all_of(field.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                                         field.begin() + static_cast<std::ptrdiff_t>(i) + 4,
                                         [](char c) { return c >= '0' && c <= '7'; });
        if (!escaped) {
            text += field[i];
            continue;
        }
        text += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 +
                                  (field[i + 3] - '0'));
        i += 3;
    }
    return text;
}

std::vector<Mount> MountsOf(const std::string& mountinfo) {
    std::vector<Mount> mounts;
    std::istringstream lines(mountinfo);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string id, parent, root, field;
        Mount mount;
        fields >> id >> parent >> mount.device >> root >> mount.point;
        while (fields >> field && field != "-") {
        }
        fields >> mount.type >> mount.source;
        if (mount.source.empty()) continue;
        mount.point = Unescaped(mount.point);
        mount.source = Unescaped(mount.source);
        mounts.push_back(std::move(mount));
    }
    return mounts;
}

/// Whether it is a store of files, and not the kernel's or a program's way to show something.
bool IsReal(const Mount& mount) {
    constexpr std::array<std::string_view, 10> kNetwork{
        "nfs", "nfs4", "cifs", "smb3", "9p", "fuse.sshfs", "afs", "ceph", "zfs", "virtiofs"};
    if (mount.type == "squashfs") return false;  // a packed program
    return mount.source.starts_with("/dev/") ||
           std::find(kNetwork.begin(), kNetwork.end(), mount.type) != kNetwork.end();
}

std::string PlaceOf(const std::vector<Mount>& mounts, const std::string& source) {
    const auto found = std::find_if(mounts.begin(), mounts.end(),
                                    [&](const Mount& mount) { return mount.source == source; });
    return found == mounts.end() ? "" : found->point;
}

bool Contains(const std::vector<std::string>& devices, const std::string& source) {
    return std::find(devices.begin(), devices.end(), source) != devices.end();
}

std::vector<std::string> BlockDevices(const std::string& prefix) {
    std::vector<std::string> devices;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator("/sys/block", none))
        if (const std::string name = entry.path().filename(); name.starts_with(prefix))
            devices.push_back("/dev/" + name);
    std::sort(devices.begin(), devices.end());
    return devices;
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
        if (IsReal(mount) && !removable && seen.insert(mount.device).second) add(mount.point);
    }
    for (const std::string& optical : devices.optical) add(PlaceOf(mounts, optical));
    return drives;
}

std::vector<Drive> PresentDrives() {
    std::ifstream table("/proc/self/mountinfo");
    const std::string mountinfo{std::istreambuf_iterator<char>(table), {}};
    return DrivesOf(mountinfo, {.floppies = BlockDevices("fd"), .optical = BlockDevices("sr")});
}

}  // namespace corvane::linux_desktop
