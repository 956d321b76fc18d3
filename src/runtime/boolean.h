// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace corvane {

/// A truth value of 16 bits, True being -1.
class Boolean {
public:
    constexpr Boolean() = default;
    constexpr Boolean(bool value) : rep_(value ? -1 : 0) {}  // NOLINT(google-explicit-*)
    constexpr operator bool() const { return rep_ != 0; }    // NOLINT(google-explicit-*)

    [[nodiscard]] constexpr std::int16_t rep() const { return rep_; }

private:
    std::int16_t rep_ = 0;
};

}  // namespace corvane
