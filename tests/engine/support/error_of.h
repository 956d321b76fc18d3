// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>

#include "platform/error.h"

namespace corvane::engine::testing {

/// The number of the error that the call raises; 0 if it raises none.
inline std::int32_t ErrorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

}  // namespace corvane::engine::testing
