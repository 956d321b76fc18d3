// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace corvane::linux_desktop {

/// A drive: its letter as a capital, and where it is mounted; empty when it is not ready.
struct Drive {
    char letter = 0;
    std::string mount_point;
    friend bool operator==(const Drive&, const Drive&) = default;
};

/// Devices that are drives also when they are not mounted, as in "/dev/sr0".
struct RemovableDevices {
    std::vector<std::string> floppies;
    std::vector<std::string> optical;
};

/// The drives of a machine in order of their letters. A and B are floppies, C is the file system at
/// the root, D onward are the other real ones in order of their mount points, and behind them the
/// optical drives, with or without a disc. `mountinfo` is the kernel's table of mounts. A file
/// system that is mounted more than once is one drive, at its first place.
[[nodiscard]] std::vector<Drive> DrivesOf(const std::string& mountinfo,
                                          const RemovableDevices& devices);

/// The drives of this machine at the moment.
[[nodiscard]] std::vector<Drive> PresentDrives();

}  // namespace corvane::linux_desktop
