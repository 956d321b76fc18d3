// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "platform/error.h"

namespace corvane::linux_desktop {

/// The number of the error that `act` raises; 0 if it raises none.
template <class Act>
[[nodiscard]] std::int32_t ErrorOf(Act&& act) {
    try {
        act();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

}  // namespace corvane::linux_desktop
