// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/kernel32.h"

namespace corvane::linux_desktop {

class Kernel32 final : public IKernel32 {
public:
    /// The root "/:\" is the file system that holds `program_folder`.
    explicit Kernel32(std::string program_folder);

    bool GetDiskFreeSpaceExA(const std::string& root, ByteCount& availableToCaller,
                             ByteCount& totalBytes, ByteCount& totalFreeBytes) override;
    void GlobalMemoryStatus(MEMORYSTATUS& status) override;
    HANDLE GetCurrentProcess() override;

private:
    [[nodiscard]] std::string MountPointOf(const std::string& root) const;

    std::string program_folder_;
};

/// The record from the kernel's table of memory; a line that is missing counts as 0.
[[nodiscard]] MEMORYSTATUS MemoryOf(const std::string& meminfo);

}  // namespace corvane::linux_desktop
