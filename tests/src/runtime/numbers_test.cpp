// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/numbers.h"

#include <gtest/gtest.h>

#include "support/expect_error.h"

namespace corvane {
namespace {

TEST(Numbers, SixteenBitsHoldTheirWholeRange) {
    EXPECT_EQ(Integer(32767).rep(), 32767);
    EXPECT_EQ(Integer(-32768).rep(), -32768);
}

TEST(Numbers, SixteenBitsOverflowAsAnError) {
    EXPECT_ERROR(kOverflow, Integer(32768));
    EXPECT_ERROR(kOverflow, Integer(32767) + 1);
    EXPECT_ERROR(kOverflow, Integer(-32768) - 1);
    EXPECT_ERROR(kOverflow, Integer(256) * 128);
    EXPECT_ERROR(kOverflow, Integer(-32768) / -1);
}

TEST(Numbers, ThirtyTwoBitsOverflowAsAnError) {
    EXPECT_EQ((Long(2147483646) + 1).rep(), 2147483647);
    EXPECT_ERROR(kOverflow, Long(2147483647) + 1);
    EXPECT_ERROR(kOverflow, Long(65536) * 65536);
    EXPECT_ERROR(kOverflow, Long(2147483647LL + 1));
}

TEST(Numbers, MixedWidthsAreComputedInTheWiderOne) {
    EXPECT_EQ(Integer(32767) + Long(1), Long(32768));
    EXPECT_EQ(Long(1) + Integer(32767), Long(32768));
}

TEST(Numbers, AnAssignmentThatOverflowsKeepsTheOldValue) {
    Integer value = 7;
    EXPECT_ERROR(kOverflow, value += 32767);
    EXPECT_EQ(value, 7);
}

TEST(Numbers, DivisionTruncatesTowardZero) {
    EXPECT_EQ(Long(7) / 2, 3);
    EXPECT_EQ(Long(-7) / 2, -3);
}

TEST(Numbers, DivisionByZeroIsAnError) {
    EXPECT_ERROR(kDivisionByZero, Long(1) / 0);
}

TEST(Numbers, NumbersAsTextHaveNoBlankInFront) {
    EXPECT_EQ(CStr(Long(0)), "0");
    EXPECT_EQ(CStr(Long(-1)), "-1");
    EXPECT_EQ(CStr(Integer(98)), "98");
}

}  // namespace
}  // namespace corvane
