// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/text_positions.h"

#include <gtest/gtest.h>

namespace corvane::linux_desktop {
namespace {

TEST(TextPositions, LineEndsAreTranslatedBothWays) {
    EXPECT_EQ(ControlText("one\r\ntwo\r\n"), QString("one\ntwo\n"));
    EXPECT_EQ(SystemText("one\ntwo\n"), "one\r\ntwo\r\n");
}

TEST(TextPositions, LoneCarriageReturnAndLineFeedEndALineToo) {
    EXPECT_EQ(ControlText("a\rb\nc"), QString("a\nb\nc"));
}

TEST(TextPositions, LineEndCountsAsTwo) {
    EXPECT_EQ(ControlPosition("ab\r\ncd", 4), 3);
    EXPECT_EQ(SystemPosition("ab\ncd", 3), 4);
}

TEST(TextPositions, BetweenCarriageReturnAndLineFeedIsTheEndOfTheLine) {
    EXPECT_EQ(ControlPosition("ab\r\n", 3), 2);
}

TEST(TextPositions, CharacterBeyondTheBasicPlaneCountsAsOne) {
    EXPECT_EQ(ControlPosition("😀b", 1), 2);
    EXPECT_EQ(SystemPosition(QString("😀b"), 2), 1);
    EXPECT_EQ(SystemPosition(QString("éb"), 1), 1);
}

TEST(TextPositions, ByteThatIsNoCharacterCountsAsOne) {
    EXPECT_EQ(Characters("a\xFF\xE2\x82z"), U"a\uFFFD\uFFFD\uFFFDz");
    EXPECT_EQ(ControlText("a\xFFz"), QString("a\uFFFDz"));
    EXPECT_EQ(ControlPosition("a\xFFz", 2), 2);
}

TEST(TextPositions, BeyondTheEndIsTheEnd) {
    EXPECT_EQ(ControlPosition("ab", 9), 2);
    EXPECT_EQ(SystemPosition("ab", 9), 2);
}

TEST(TextPositions, EveryCharacterBoundaryFindsItsWayBack) {
    const std::string text = "A\r\né😀\r\n\r\nz";
    const QString shown = ControlText(text);
    EXPECT_EQ(SystemText(shown), text);
    // Inside a line end there is no place of its own.
    for (const int position : {0, 1, 3, 4, 5, 7, 9, 10})
        EXPECT_EQ(SystemPosition(shown, ControlPosition(text, position)), position);
}

}  // namespace
}  // namespace corvane::linux_desktop
