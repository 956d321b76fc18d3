// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <malloc.h>

#include <fstream>

namespace corvane::engine::testing {

/// Whether memory in use says something of the code: a sanitizer keeps what was freed.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool kMemoryCounts = false;
#else
inline constexpr bool kMemoryCounts = true;
#endif

/// Kilobytes of this process that are in memory, without what has been freed.
inline long ResidentKilobytes() {
    malloc_trim(0);
    std::ifstream file("/proc/self/statm");
    long all = 0;
    long resident = 0;
    file >> all >> resident;
    return resident * 4;
}

}  // namespace corvane::engine::testing
