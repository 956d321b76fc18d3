// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <cstdint>

#include "platform/error.h"
#include "runtime/numbers.h"

/// Arithmetic with floating values, the same whatever the state of the processor: a result that is
/// no finite number never comes out, it raises.
namespace corvane {

using Single = float;

/// `value` itself; raises kOverflow if it is infinite or not a number.
[[nodiscard]] inline double Finite(double value) {
    if (!std::isfinite(value)) throw RuntimeError(kOverflow, "Overflow");
    return value;
}

/// Rounded to 32 bits.
[[nodiscard]] inline Single CSng(double value) {
    constexpr double kRoundsToInfinity = 0x1.ffffffp+127;
    if (!(std::fabs(value) < kRoundsToInfinity)) throw RuntimeError(kOverflow, "Overflow");
    return static_cast<Single>(value);
}

/// By zero raises kDivisionByZero; zero by zero is no number at all and raises kOverflow.
[[nodiscard]] inline double Divide(double dividend, double divisor) {
    if (divisor == 0) {
        if (dividend == 0) throw RuntimeError(kOverflow, "Overflow");
        throw RuntimeError(kDivisionByZero, "Division by zero");
    }
    return Finite(dividend / divisor);
}

/// To the nearest whole number, a tie to the even neighbour. Raises kOverflow if it is no Long.
[[nodiscard]] Long Round(double value);

/// Toward zero. Raises kOverflow if it is no Long.
[[nodiscard]] Long Fix(double value);

/// What is left of a whole-number division; has the sign of `dividend`.
[[nodiscard]] inline Long Mod(Long dividend, Long divisor) {
    return dividend - dividend / divisor * divisor;
}

}  // namespace corvane
