// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/send_keys_notation.h"

#include <gtest/gtest.h>

#include "expect_error.h"

namespace corvane::linux_desktop {
namespace {

using Strokes = std::vector<KeyStroke>;

TEST(SendKeysNotation, PlainCharactersAreTheirKeys) {
    EXPECT_EQ(ParseKeys("yN é"), (Strokes{{U'y'}, {U'N'}, {U' '}, {U'é'}}));
}

TEST(SendKeysNotation, PrefixHoldsItsModifierForTheNextKeyOnly) {
    EXPECT_EQ(ParseKeys("^cx"), (Strokes{{.key = U'c', .control = true}, {U'x'}}));
    EXPECT_EQ(ParseKeys("+{TAB}"), (Strokes{{.key = NamedKey::Tab, .shift = true}}));
    EXPECT_EQ(ParseKeys("%{F4}"), (Strokes{{.key = NamedKey::F4, .alt = true}}));
    EXPECT_EQ(ParseKeys("^%{DEL}"),
              (Strokes{{.key = NamedKey::Delete, .control = true, .alt = true}}));
}

TEST(SendKeysNotation, BracesNameAKeyInEitherCase) {
    EXPECT_EQ(ParseKeys("{ESC}{enter}{Bs}"),
              (Strokes{{NamedKey::Escape}, {NamedKey::Enter}, {NamedKey::Backspace}}));
}

TEST(SendKeysNotation, TildeIsEnter) {
    EXPECT_EQ(ParseKeys("~"), Strokes{{NamedKey::Enter}});
}

TEST(SendKeysNotation, BracesAroundOneCharacterMeanThatCharacter) {
    EXPECT_EQ(ParseKeys("{^}{+}{%}{~}{(}{{}{}}"),
              (Strokes{{U'^'}, {U'+'}, {U'%'}, {U'~'}, {U'('}, {U'{'}, {U'}'}}));
}

TEST(SendKeysNotation, ControlCharacterIsTheCombinationThatMakesIt) {
    EXPECT_EQ(
        ParseKeys("\r\t\b\x1B"),
        (Strokes{{NamedKey::Enter}, {NamedKey::Tab}, {NamedKey::Backspace}, {NamedKey::Escape}}));
    EXPECT_EQ(ParseKeys("\x10"), (Strokes{{.key = U'p', .control = true}}));
    EXPECT_EQ(ParseKeys("\x1C"), (Strokes{{.key = U'\\', .control = true}}));
    EXPECT_EQ(ParseKeys("%\x01"), (Strokes{{.key = U'a', .control = true, .alt = true}}));
}

TEST(SendKeysNotation, NoKeysAreNoStrokes) {
    EXPECT_EQ(ParseKeys(""), Strokes{});
}

class BadNotation : public testing::TestWithParam<const char*> {};

TEST_P(BadNotation, RaisesInvalidProcedureCall) {
    EXPECT_EQ(ErrorOf([] { (void)ParseKeys(GetParam()); }), kInvalidProcedureCall);
}

INSTANTIATE_TEST_SUITE_P(SendKeysNotation, BadNotation,
                         testing::Values("{", "}", "{}", "{NOKEY}", "{ESC", "a}", "(", ")", "^",
                                         "ab%", "{ENTER}{"));

}  // namespace
}  // namespace corvane::linux_desktop
