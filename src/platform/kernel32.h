// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

/// The machine's drives and memory, and the process.
namespace corvane {

using HANDLE = std::uint32_t;  ///< of a process or a token; 0 is none

using ByteCount = std::uint64_t;

/// What the machine has of memory, in bytes. The counts are as wide as a pointer, and read as
/// signed.
struct MEMORYSTATUS {
    std::uint32_t dwLength = 0;
    std::uint32_t dwMemoryLoad = 0;  ///< percent in use
    std::int64_t dwTotalPhys = 0;
    std::int64_t dwAvailPhys = 0;  ///< what programs can have without others being paged out
    std::int64_t dwTotalPageFile = 0;
    std::int64_t dwAvailPageFile = 0;
    std::int64_t dwTotalVirtual = 0;
    std::int64_t dwAvailVirtual = 0;
};

class IKernel32 {
public:
    virtual ~IKernel32() = default;

    /// Sizes of a drive in bytes. `root`: its letter, in any case, followed by ":\". Returns false
    /// and leaves all three as they are when there is no such drive or it is not ready.
    virtual bool GetDiskFreeSpaceExA(const std::string& root, ByteCount& availableToCaller,
                                     ByteCount& totalBytes, ByteCount& totalFreeBytes) = 0;

    /// Fills the whole record, whatever its dwLength.
    virtual void GlobalMemoryStatus(MEMORYSTATUS& status) = 0;

    /// A handle that stands for the calling process and needs no closing.
    [[nodiscard]] virtual HANDLE GetCurrentProcess() = 0;
};

}  // namespace corvane
