// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/trash_places.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>

#include "linux/system/mounts.h"

namespace corvane::linux_desktop {
namespace {

bool IsBelow(const std::string& path, const std::string& folder) {
    if (folder == "/") return true;
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

/// The file system that a path lies on: that of the longest mount point above it, and of the last
/// one where several are mounted on each other.
std::string DeviceOf(const std::vector<Mount>& mounts, const std::string& path) {
    const Mount* holder = nullptr;
    for (const Mount& mount : mounts)
        if (IsBelow(path, mount.point) &&
            (holder == nullptr || mount.point.size() >= holder->point.size()))
            holder = &mount;
    return holder == nullptr ? "" : holder->device;
}

/// The mount point of the drive that a path names; nothing if it names none, empty if the drive is
/// not ready.
std::optional<std::string> DriveNamedBy(const std::string& root, const std::vector<Drive>& drives) {
    if (root.size() < 2 || root[1] != ':') return std::nullopt;
    const auto letter = static_cast<char>(std::toupper(static_cast<unsigned char>(root[0])));
    const auto drive = std::ranges::find(drives, letter, &Drive::letter);
    if (drive == drives.end()) return std::nullopt;
    return drive->mount_point;
}

std::string HomeTrash() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && *data == '/') return std::string(data) + "/Trash";
    const char* home = std::getenv("HOME");
    return home == nullptr ? "" : std::string(home) + "/.local/share/Trash";
}

}  // namespace

std::optional<TrashPlaces> TrashPlacesOf(const TrashMap& map, const std::string& root) {
    const std::vector<Mount> mounts = MountsOf(map.mountinfo);
    std::string device;  // none for all of them
    if (!root.empty()) {
        const auto mount_point = DriveNamedBy(root, map.drives);
        if (!mount_point) return std::nullopt;
        if (mount_point->empty()) return TrashPlaces{.home = {}, .tops = {}, .person = map.person};
        device = DeviceOf(mounts, *mount_point);
    }
    TrashPlaces places{.home = {}, .tops = {}, .person = map.person};
    std::error_code unreachable;
    const auto real_home = std::filesystem::weakly_canonical(map.home_trash, unreachable);
    if (device.empty() || DeviceOf(mounts, real_home) == device) places.home = map.home_trash;
    // Parts of one file system may be mounted as volumes of their own, each with a trash.
    std::vector<std::string> on_network;
    for (const Mount& mount : mounts) {
        const bool volume = mount.point == "/" || HoldsFiles(mount);
        if (volume && (device.empty() || mount.device == device))
            (IsOnNetwork(mount) ? on_network : places.tops).push_back(mount.point);
    }
    places.tops.insert(places.tops.end(), on_network.begin(), on_network.end());
    return places;
}

std::optional<TrashPlaces> PresentTrashPlaces(const std::string& root) {
    return TrashPlacesOf({.mountinfo = PresentMountTable(),
                          .drives = PresentDrives(),
                          .home_trash = HomeTrash(),
                          .person = ::geteuid()},
                         root);
}

}  // namespace corvane::linux_desktop
