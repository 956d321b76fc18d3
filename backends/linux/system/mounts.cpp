// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/mounts.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string_view>
#include <tuple>

namespace corvane::linux_desktop {
namespace {

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

}  // namespace

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

bool HoldsFiles(const Mount& mount) {
    if (mount.type == "squashfs") return false;  // a packed program
    return mount.source.starts_with("/dev/") || mount.type == "zfs" || IsOnNetwork(mount);
}

bool IsOnNetwork(const Mount& mount) {
    constexpr std::array<std::string_view, 9> kNetwork{
        "nfs", "nfs4", "cifs", "smb3", "9p", "fuse.sshfs", "afs", "ceph", "virtiofs"};
    return std::find(kNetwork.begin(), kNetwork.end(), mount.type) != kNetwork.end();
}

std::string PresentMountTable() {
    std::ifstream table("/proc/self/mountinfo");
    return {std::istreambuf_iterator<char>(table), {}};
}

std::vector<std::string> BlockDevices(const std::string& prefix) {
    std::vector<std::string> devices;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator("/sys/block", none))
        if (const std::string name = entry.path().filename(); name.starts_with(prefix))
            devices.push_back("/dev/" + name);
    std::sort(devices.begin(), devices.end(), [](const std::string& a, const std::string& b) {
        return std::tuple(a.size(), a) < std::tuple(b.size(), b);  // the tenth is behind the second
    });
    return devices;
}

}  // namespace corvane::linux_desktop
