// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace corvane::linux_desktop {

/// One line of the kernel's table of mounts.
struct Mount {
    std::string device;  ///< major:minor; the same for each mount of one file system
    std::string point;
    std::string type;
    std::string source;
};

/// The mounts in the order of the table. Lines that can't be read are left out.
[[nodiscard]] std::vector<Mount> MountsOf(const std::string& mountinfo);

/// Whether it is a store of files, and not the kernel's or a program's way to show something.
[[nodiscard]] bool HoldsFiles(const Mount& mount);

/// Whether its files lie with another machine, which may not answer.
[[nodiscard]] bool IsOnNetwork(const Mount& mount);

/// The table of this machine at the moment.
[[nodiscard]] std::string PresentMountTable();

/// The machine's block devices whose names begin so, in order of their numbers, as in "/dev/sr0".
[[nodiscard]] std::vector<std::string> BlockDevices(const std::string& prefix);

}  // namespace corvane::linux_desktop
