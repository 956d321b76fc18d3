// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/shown_text.h"

#include <gtest/gtest.h>

#include "linux/text_positions.h"

namespace corvane::linux_desktop {
namespace {

constexpr const char* kFace = "\U0001F600";  // one character, two units

TEST(ShownText, TextThatGrowsGivesItsAddition) {
    ShownText shown("one\r\n");
    EXPECT_EQ(shown.Replace("one\r\ntwo"), "two");
    EXPECT_EQ(shown.Replace("one\r\ntwo"), "");
    EXPECT_EQ(shown.text(), "one\r\ntwo");
}

TEST(ShownText, AnotherTextIsShownAnew) {
    ShownText shown("one");
    EXPECT_EQ(shown.Replace("two three"), std::nullopt);
    EXPECT_EQ(shown.Replace(""), std::nullopt);
    EXPECT_EQ(shown.Replace("x"), std::nullopt);
}

TEST(ShownText, NothingIsAddedInTheMiddleOfALineEndOrACharacter) {
    EXPECT_EQ(ShownText("one\r").Replace("one\r\n"), std::nullopt);
    EXPECT_EQ(ShownText("\xC3").Replace("\xC3\xA4"), std::nullopt);
}

TEST(ShownText, PositionsAreThoseOfTheWholeText) {
    const std::string one = std::string("\u00E4") + kFace + "\r\nend";
    const std::string two = one + "\r\n" + kFace + "x\r\n";
    const std::string three = two + "last\r\n";
    ShownText shown(one);
    ASSERT_TRUE(shown.Replace(two));
    ASSERT_TRUE(shown.Replace(three));
    for (std::int32_t at = 0; at <= SizeOf(three).characters + 1; ++at)
        EXPECT_EQ(shown.ControlPosition(at), ControlPosition(three, at)) << at;
}

TEST(SizeOfText, CountsCharactersAndUnits) {
    EXPECT_EQ(SizeOf(std::string("a\r\n\r") + kFace), (TextSize{5, 5}));
    EXPECT_EQ(SizeOf(""), TextSize());
}

}  // namespace
}  // namespace corvane::linux_desktop
