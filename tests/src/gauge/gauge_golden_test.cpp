// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gauge_golden.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace corvane {
namespace {

class GaugeGolden : public ::testing::TestWithParam<const char*> {};

TEST_P(GaugeGolden, MakesTheCallsThatWereReadOver) {
    const auto cases = testing::ReadGaugeDrawings(
        testing::ProjectFile(std::string("tests/golden/gauge/") + GetParam() + ".txt"));
    ASSERT_GE(cases.size(), 12U);
    for (const auto& one : cases)
        EXPECT_EQ(testing::CallsOfGauge(one.properties), one.calls) << one.properties;
}

INSTANTIATE_TEST_SUITE_P(Drawings, GaugeGolden,
                         ::testing::Values("values", "colours", "borders", "directions", "ticks",
                                           "needles", "circles", "texts", "failures"),
                         [](const auto& name) { return std::string(name.param); });

}  // namespace
}  // namespace corvane
