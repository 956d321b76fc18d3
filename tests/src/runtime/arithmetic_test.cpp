// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/arithmetic.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <limits>

#include "runtime/currency.h"
#include "support/expect_error.h"

namespace corvane {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

TEST(Round, GoesToTheNearestAndATieToTheEvenNeighbour) {
    const std::pair<double, int> rounded[] = {{0.5, 0},   {1.5, 2},   {2.5, 2},  {-0.5, 0},
                                              {-1.5, -2}, {-2.5, -2}, {0.49, 0}, {-0.51, -1},
                                              {12.5, 12}, {13.5, 14}, {7, 7}};
    for (const auto& [value, whole] : rounded) EXPECT_EQ(Round(value), whole) << value;
}

TEST(Round, DoesNotDependOnTheProcessorsState) {
    std::fesetround(FE_UPWARD);
    EXPECT_EQ(Round(2.25), 2);
    EXPECT_EQ(Round(-2.75), -3);
    std::fesetround(FE_TONEAREST);
}

TEST(Round, KnowsTheEndsOfALong) {
    EXPECT_EQ(Round(2147483647.4), 2147483647);
    EXPECT_EQ(Round(-2147483648.5), std::int64_t{-2147483648});
    for (const double value :
         {2147483647.5, 2147483648.0, -2147483648.6, 1e300, kNotANumber, kInfinite, -kInfinite})
        EXPECT_ERROR(kOverflow, Round(value));
}

TEST(Fix, GoesTowardZero) {
    EXPECT_EQ(Fix(1.9), 1);
    EXPECT_EQ(Fix(-1.9), -1);
    EXPECT_EQ(Fix(2147483647.9), 2147483647);
    EXPECT_ERROR(kOverflow, Fix(2147483648.0));
    EXPECT_ERROR(kOverflow, Fix(kNotANumber));
}

TEST(Mod, HasTheSignOfTheDividend) {
    EXPECT_EQ(Mod(-7, 3), -1);
    EXPECT_EQ(Mod(7, -3), 1);
    EXPECT_ERROR(kDivisionByZero, Mod(1, 0));
}

TEST(Divide, NothingByNothingIsAnotherErrorThanSomethingByNothing) {
    EXPECT_ERROR(kOverflow, Divide(0, 0));
    EXPECT_ERROR(kDivisionByZero, Divide(1, 0));
    EXPECT_ERROR(kOverflow, Divide(1e300, 1e-300));
}

TEST(CSng, RoundsTo32BitsAndOverflowsBeyond) {
    EXPECT_EQ(CSng(0.1), 0.1F);
    EXPECT_EQ(CSng(3.4028235e38), std::numeric_limits<float>::max());
    EXPECT_ERROR(kOverflow, CSng(3.5e38));
    EXPECT_ERROR(kOverflow, CSng(kNotANumber));
}

TEST(CurrencyTest, HasFourPlaces) {
    EXPECT_EQ(Currency(12).units(), 120000);
    EXPECT_EQ(Currency::OfUnits(125000).ToDouble(), 12.5);
    EXPECT_EQ(CLng(Currency::OfUnits(125000)), 12);
}

}  // namespace
}  // namespace corvane
