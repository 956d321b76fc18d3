// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <cstdlib>

namespace corvane::fuzz {

/// Ends the run, which keeps the input, when what is promised does not hold.
inline void Require(bool promise, const char* what) {
    if (promise) return;
    std::fprintf(stderr, "broken promise: %s\n", what);
    std::abort();
}

}  // namespace corvane::fuzz
