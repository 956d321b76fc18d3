// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/arithmetic.h"

namespace corvane {
namespace {

// Beyond these nothing rounds to a Long; within, a double has room for every fraction that matters.
constexpr double kTooLow = -2147483649.0;
constexpr double kTooHigh = 2147483648.0;

std::int64_t WholePart(double value) {
    // Written so that a value which is no number fails too.
    if (!(value > kTooLow && value < kTooHigh)) throw RuntimeError(kOverflow, "Overflow");
    return static_cast<std::int64_t>(value);
}

}  // namespace

Long Round(double value) {
    const std::int64_t whole = WholePart(value);
    const double rest = std::fabs(value - static_cast<double>(whole));
    const std::int64_t away = value < 0 ? whole - 1 : whole + 1;
    const bool odd = whole % 2 != 0;
    return rest > 0.5 || (rest == 0.5 && odd) ? away : whole;
}

Long Fix(double value) {
    return WholePart(value);
}

}  // namespace corvane
