// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/kernel32.h"

#include <sys/statvfs.h>

#include <cctype>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <utility>

#include "linux/system/drives.h"
#include "linux/system/process_tokens.h"

namespace corvane::linux_desktop {

Kernel32::Kernel32(std::string program_folder) : program_folder_(std::move(program_folder)) {}

std::string Kernel32::MountPointOf(const std::string& root) const {
    if (root.size() != 3 || root.substr(1) != ":\\") return {};
    // A path begins with this where others begin with the letter of a drive.
    if (root[0] == '/') return program_folder_;
    const auto letter = static_cast<char>(std::toupper(static_cast<unsigned char>(root[0])));
    for (const Drive& drive : PresentDrives())
        if (drive.letter == letter) return drive.mount_point;
    return {};
}

bool Kernel32::GetDiskFreeSpaceExA(const std::string& root, ByteCount& availableToCaller,
                                   ByteCount& totalBytes, ByteCount& totalFreeBytes) {
    const std::string mount_point = MountPointOf(root);
    struct statvfs sizes {};
    if (mount_point.empty() || statvfs(mount_point.c_str(), &sizes) != 0) return false;
    availableToCaller = ByteCount{sizes.f_bavail} * sizes.f_frsize;
    totalBytes = ByteCount{sizes.f_blocks} * sizes.f_frsize;
    totalFreeBytes = ByteCount{sizes.f_bfree} * sizes.f_frsize;
    return true;
}

void Kernel32::GlobalMemoryStatus(MEMORYSTATUS& status) {
    std::ifstream table("/proc/meminfo");
    status = MemoryOf({std::istreambuf_iterator<char>(table), {}});
}

HANDLE Kernel32::GetCurrentProcess() {
    return kThisProcess;
}

MEMORYSTATUS MemoryOf(const std::string& meminfo) {
    std::map<std::string, std::int64_t> bytes;
    std::istringstream lines(meminfo);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string name;
        std::int64_t kibibytes = 0;
        if (fields >> name >> kibibytes) bytes[name] = kibibytes * 1024;
    }
    MEMORYSTATUS status;
    status.dwLength = sizeof status;
    status.dwTotalPhys = bytes["MemTotal:"];
    status.dwAvailPhys = bytes["MemAvailable:"];
    status.dwTotalPageFile = status.dwTotalPhys + bytes["SwapTotal:"];
    status.dwAvailPageFile = status.dwAvailPhys + bytes["SwapFree:"];
    status.dwTotalVirtual = status.dwTotalPageFile;
    status.dwAvailVirtual = status.dwAvailPageFile;
    if (status.dwTotalPhys > 0)
        status.dwMemoryLoad =
            static_cast<std::uint32_t>(100 - status.dwAvailPhys * 100 / status.dwTotalPhys);
    return status;
}

}  // namespace corvane::linux_desktop
