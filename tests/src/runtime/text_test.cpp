// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/text.h"

#include <gtest/gtest.h>

#include "support/expect_error.h"

namespace corvane {
namespace {

TEST(Text, LengthCountsCharactersNotBytes) {
    EXPECT_EQ(Len(""), 0);
    EXPECT_EQ(Len("notepad"), 7);
    EXPECT_EQ(Len("Müller"), 6);
    EXPECT_EQ(Len("a\r\n"), 3);
    EXPECT_EQ(Len("\xF0\x9F\x8E\xA4"), 1);
}

TEST(Text, ABrokenByteCountsAsOneCharacter) {
    EXPECT_EQ(Len("a\xFF"
                  "b"),
              3);
    EXPECT_EQ(Len("\xC3"), 1);
    EXPECT_EQ(Mid("\xE2\x82z", 3, 1), "z");
}

TEST(Text, LeftTakesWhatThereIs) {
    EXPECT_EQ(Left("öffnen", 2), "öf");
    EXPECT_EQ(Left("ab", 5), "ab");
    EXPECT_EQ(Left("ab", 0), "");
    EXPECT_ERROR(kInvalidProcedureCall, Left("ab", -1));
}

TEST(Text, MidCountsFromOneAndIsEmptyBeyondTheEnd) {
    EXPECT_EQ(Mid("run notepad", 5, 7), "notepad");
    EXPECT_EQ(Mid("grün", 3, 1), "ü");
    EXPECT_EQ(Mid("run", 4, 1), "");
    EXPECT_EQ(Mid("run", 3, 9), "n");
    EXPECT_ERROR(kInvalidProcedureCall, Mid("run", 0, 1));
    EXPECT_ERROR(kInvalidProcedureCall, Mid("run", 1, -1));
}

TEST(Text, InStrFindsTheFirstExactOccurrence) {
    EXPECT_EQ(InStr(1, "run notepad", "notepad"), 5);
    EXPECT_EQ(InStr(1, "run Notepad", "notepad"), 0);
    EXPECT_EQ(InStr(1, "grün run", "run"), 6);
    EXPECT_EQ(InStr(2, "aa", "a"), 2);
    EXPECT_EQ(InStr(3, "aa", "a"), 0);
    EXPECT_ERROR(kInvalidProcedureCall, InStr(0, "a", "a"));
}

TEST(Text, AnEmptyTextIsFoundAtTheStartUnlessThereIsNothingToSearch) {
    EXPECT_EQ(InStr(1, "abc", ""), 1);
    EXPECT_EQ(InStr(4, "abc", ""), 0);
    EXPECT_EQ(InStr(1, "", ""), 0);
}

TEST(Text, AMatchNeverBeginsInsideACharacter) {
    EXPECT_EQ(InStr(1, "\xC3\xA9", "\xA9"), 0);
}

TEST(Text, LastCharacterOfNothingIsNothing) {
    EXPECT_EQ(LastCharacter(""), "");
    EXPECT_EQ(LastCharacter("/opt/corvane"), "e");
    EXPECT_EQ(LastCharacter("né"), "é");
}

TEST(Text, AVariantIsItsDigitsAndAnEmptyOneNothing) {
    EXPECT_EQ(CStr(Variant(std::int64_t{98304})), "98304");
    EXPECT_EQ(CStr(Variant(std::int64_t{5'000'000'000})), "5000000000");
    EXPECT_EQ(CStr(Variant()), "");
}

TEST(Text, LCaseLowersTheLettersAToZAndLeavesTheRest) {
    EXPECT_EQ(LCase("C:/Programs/Editor.EXE"), "c:/programs/editor.exe");
    EXPECT_EQ(LCase("[@Z`\xC3\x84"), "[@z`\xC3\x84");
    EXPECT_EQ(LCase(""), "");
}

TEST(Text, UCaseRaisesTheLettersAToZAndLeavesTheRest) {
    EXPECT_EQ(UCase("c"), "C");
    EXPECT_EQ(UCase("drive Z, `{1\xC3\xA4"), "DRIVE Z, `{1\xC3\xA4");
    EXPECT_EQ(UCase(""), "");
}

}  // namespace
}  // namespace corvane
