// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace corvane::testing {

/// What a program holds of the memory that it was given by `new`.
struct Allocations {
    std::int64_t blocks = 0;
    std::int64_t bytes = 0;
};

/// At the moment. A program that is linked with this counts from its beginning.
[[nodiscard]] Allocations AllocationsInUse();

}  // namespace corvane::testing
