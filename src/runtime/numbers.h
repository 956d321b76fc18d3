// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <string>

#include "platform/error.h"

namespace corvane {

/// A signed whole number that never wraps: each operation is computed in 64 bits and narrowed to
/// `Rep`, and a value that does not fit raises kOverflow. Division truncates toward zero; by zero
/// it raises kDivisionByZero.
template <std::signed_integral Rep>
class CheckedNumber {
public:
    constexpr CheckedNumber() = default;
    constexpr CheckedNumber(std::int64_t wide) : rep_(Narrow(wide)) {}  // NOLINT(google-explicit-*)

    /// A narrower number is a value of every wider type.
    template <std::signed_integral Narrower>
    requires(sizeof(Narrower) <
             sizeof(Rep)) constexpr CheckedNumber(CheckedNumber<Narrower> narrower)
        : rep_(narrower.rep()) {}

    [[nodiscard]] constexpr Rep rep() const { return rep_; }

    friend constexpr bool operator==(CheckedNumber, CheckedNumber) = default;
    // The linter takes the compiler's own comparison with 0 for a pointer.
    friend constexpr auto operator<=>(CheckedNumber, CheckedNumber) = default;  // NOLINT

    friend constexpr CheckedNumber operator+(CheckedNumber a, CheckedNumber b) {
        return a.wide() + b.wide();
    }
    friend constexpr CheckedNumber operator-(CheckedNumber a, CheckedNumber b) {
        return a.wide() - b.wide();
    }
    friend constexpr CheckedNumber operator*(CheckedNumber a, CheckedNumber b) {
        return a.wide() * b.wide();
    }
    friend constexpr CheckedNumber operator/(CheckedNumber a, CheckedNumber b) {
        if (b.rep_ == 0) throw RuntimeError(kDivisionByZero, "Division by zero");
        return a.wide() / b.wide();
    }

    constexpr CheckedNumber& operator+=(CheckedNumber other) { return *this = *this + other; }
    constexpr CheckedNumber& operator-=(CheckedNumber other) { return *this = *this - other; }

private:
    static constexpr Rep Narrow(std::int64_t wide) {
        if (wide < std::numeric_limits<Rep>::min() || wide > std::numeric_limits<Rep>::max())
            throw RuntimeError(kOverflow, "Overflow");
        return static_cast<Rep>(wide);
    }
    [[nodiscard]] constexpr std::int64_t wide() const { return rep_; }

    Rep rep_ = 0;
};

using Integer = CheckedNumber<std::int16_t>;
using Long = CheckedNumber<std::int32_t>;

/// Decimal digits, a minus sign in front of a negative number, no blank before a positive one.
template <std::signed_integral Rep>
[[nodiscard]] std::string CStr(CheckedNumber<Rep> number) {
    return std::to_string(number.rep());
}

}  // namespace corvane
