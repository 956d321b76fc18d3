// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/send_keys_notation.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

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

struct NameRow {
    const char* name;
    KeyStroke stroke;
};

constexpr auto kNames = std::to_array<NameRow>({
    {"BACKSPACE", {NamedKey::Backspace}},
    {"BKSP", {NamedKey::Backspace}},
    {"BS", {NamedKey::Backspace}},
    {"BREAK", {.key = NamedKey::Pause, .control = true}},
    {"CAPSLOCK", {NamedKey::CapsLock}},
    {"CLEAR", {NamedKey::Clear}},
    {"DEL", {NamedKey::Delete}},
    {"DELETE", {NamedKey::Delete}},
    {"DOWN", {NamedKey::Down}},
    {"END", {NamedKey::End}},
    {"ENTER", {NamedKey::Enter}},
    {"ESC", {NamedKey::Escape}},
    {"HELP", {NamedKey::Help}},
    {"HOME", {NamedKey::Home}},
    {"INS", {NamedKey::Insert}},
    {"INSERT", {NamedKey::Insert}},
    {"LEFT", {NamedKey::Left}},
    {"NUMLOCK", {NamedKey::NumLock}},
    {"PGDN", {NamedKey::PageDown}},
    {"PGUP", {NamedKey::PageUp}},
    {"PRTSC", {NamedKey::PrintScreen}},
    {"RIGHT", {NamedKey::Right}},
    {"SCROLLLOCK", {NamedKey::ScrollLock}},
    {"TAB", {NamedKey::Tab}},
    {"UP", {NamedKey::Up}},
    {"F1", {NamedKey::F1}},
    {"F2", {NamedKey::F2}},
    {"F3", {NamedKey::F3}},
    {"F4", {NamedKey::F4}},
    {"F5", {NamedKey::F5}},
    {"F6", {NamedKey::F6}},
    {"F7", {NamedKey::F7}},
    {"F8", {NamedKey::F8}},
    {"F9", {NamedKey::F9}},
    {"F10", {NamedKey::F10}},
    {"F11", {NamedKey::F11}},
    {"F12", {NamedKey::F12}},
    {"F13", {NamedKey::F13}},
    {"F14", {NamedKey::F14}},
    {"F15", {NamedKey::F15}},
    {"F16", {NamedKey::F16}},
});

TEST(SendKeysNotation, EachNameIsItsKey) {
    for (const NameRow& row : kNames)
        EXPECT_EQ(ParseKeys("{" + std::string(row.name) + "}"), Strokes{row.stroke}) << row.name;
}

TEST(SendKeysNotation, CountStrikesTheKeySoOften) {
    EXPECT_EQ(ParseKeys("{LEFT 3}"), Strokes(3, {NamedKey::Left}));
    EXPECT_EQ(ParseKeys("{a 10}"), Strokes(10, {U'a'}));
    EXPECT_EQ(ParseKeys("{+  2}{} 2}{  2}"),
              (Strokes{{U'+'}, {U'+'}, {U'}'}, {U'}'}, {U' '}, {U' '}}));
    EXPECT_EQ(ParseKeys("x{a 0}"), Strokes{{U'x'}});
    EXPECT_EQ(ParseKeys("{a 32767}").size(), 32767U);
}

TEST(SendKeysNotation, ModifierStaysDownWhileAKeyIsRepeated) {
    EXPECT_EQ(ParseKeys("%{TAB 2}x"), (Strokes{{.key = NamedKey::Tab, .alt = true, .joined = true},
                                               {.key = NamedKey::Tab, .alt = true},
                                               {U'x'}}));
}

TEST(SendKeysNotation, PrefixHoldsItsModifierForAWholeGroup) {
    EXPECT_EQ(ParseKeys("+(ab)c"), (Strokes{{.key = U'a', .shift = true, .joined = true},
                                            {.key = U'b', .shift = true},
                                            {U'c'}}));
    EXPECT_EQ(ParseKeys("^%({DEL}~)"),
              (Strokes{{.key = NamedKey::Delete, .control = true, .alt = true, .joined = true},
                       {.key = NamedKey::Enter, .control = true, .alt = true}}));
}

TEST(SendKeysNotation, GroupInAGroupAddsItsModifier) {
    EXPECT_EQ(ParseKeys("+(a^(b)%c)"),
              (Strokes{{.key = U'a', .shift = true, .joined = true},
                       {.key = U'b', .control = true, .shift = true, .joined = true},
                       {.key = U'c', .shift = true, .alt = true}}));
}

TEST(SendKeysNotation, GroupWithoutAModifierIsItsKeys) {
    EXPECT_EQ(ParseKeys("(ab)()+()c"), (Strokes{{U'a'}, {U'b'}, {U'c'}}));
}

TEST(SendKeysNotation, LineEndIsOneEnter) {
    EXPECT_EQ(ParseKeys("a\r\nb\nc\rd"), (Strokes{{U'a'},
                                                  {NamedKey::Enter},
                                                  {U'b'},
                                                  {NamedKey::Enter},
                                                  {U'c'},
                                                  {NamedKey::Enter},
                                                  {U'd'}}));
}

TEST(SendKeysNotation, ControlCharacterInBracesIsTheSameCombination) {
    EXPECT_EQ(ParseKeys("{\t 2}"), (Strokes{{NamedKey::Tab}, {NamedKey::Tab}}));
}

TEST(SendKeysNotation, BracketsAreTheirKeysInBracesOrNot) {
    EXPECT_EQ(ParseKeys("[{[}]{]}"), (Strokes{{U'['}, {U'['}, {U']'}, {U']'}}));
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
                                         "ab%", "{ENTER}{", "{a b}", "{a }", "{a -1}", "{a 1x}",
                                         "{a 32768}", "{a 99999999999}", "{NOKEY 2}", "{ENTER2}",
                                         "{F17}", "{}abc}", "+(ab", "(a))", "+(a^)", "+)", "((a)"));

}  // namespace
}  // namespace corvane::linux_desktop
