// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "runtime/arithmetic.h"

namespace corvane {

/// A decimal number with four places, kept as 64 bits in units of a ten-thousandth.
class Currency {
public:
    constexpr Currency() = default;
    constexpr Currency(Long whole) : units_(std::int64_t{whole.rep()} * kUnits) {}  // NOLINT

    /// A number of ten-thousandths.
    [[nodiscard]] static constexpr Currency OfUnits(std::int64_t units) {
        Currency amount;
        amount.units_ = units;
        return amount;
    }

    [[nodiscard]] constexpr std::int64_t units() const { return units_; }
    [[nodiscard]] constexpr double ToDouble() const { return static_cast<double>(units_) / kUnits; }

    friend constexpr bool operator==(Currency, Currency) = default;

private:
    static constexpr std::int64_t kUnits = 10000;
    std::int64_t units_ = 0;
};

/// To the nearest Long, a tie to the even neighbour. Raises kOverflow where there is none.
[[nodiscard]] inline Long CLng(Currency amount) {
    return Round(amount.ToDouble());
}

}  // namespace corvane
