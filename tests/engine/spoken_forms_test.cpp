// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/spoken_forms.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/grammar/transliteration.h"

namespace corvane::engine {
namespace {

using Readings = std::vector<std::string>;

Readings Joined(const std::vector<SpokenForm>& forms) {
    Readings readings;
    for (const SpokenForm& form : forms) {
        std::string& reading = readings.emplace_back();
        for (const std::string& word : form) reading += (reading.empty() ? "" : " ") + word;
    }
    return readings;
}

Readings ReadingsOf(const std::string& word) {
    return Joined(SpokenForms(word));
}

TEST(SpokenForms, PlainWordIsReadAsItIs) {
    EXPECT_EQ(ReadingsOf("corvane"), Readings{"corvane"});
    EXPECT_EQ(ReadingsOf("Corvane"), Readings{"corvane"});
}

TEST(SpokenForms, LetterIsReadByItsName) {
    EXPECT_EQ(ReadingsOf("c"), Readings{"C"});
    EXPECT_EQ(ReadingsOf("A"), Readings{"A"});
}

TEST(SpokenForms, CapitalsAreSpelledAndReadAsAWord) {
    EXPECT_EQ(ReadingsOf("KDE"), (Readings{"K D E", "kde"}));
    EXPECT_EQ(ReadingsOf("GIMP"), (Readings{"G I M P", "gimp"}));
}

TEST(SpokenForms, WordWithoutVowelIsSpelled) {
    EXPECT_EQ(ReadingsOf("VLC"), Readings{"V L C"});
    EXPECT_EQ(ReadingsOf("mpv"), Readings{"M P V"});
}

TEST(SpokenForms, ShortWordInSmallLettersMayBeAnAcronymToo) {
    EXPECT_EQ(ReadingsOf("gimp"), (Readings{"gimp", "G I M P"}));
    EXPECT_EQ(ReadingsOf("bonobo"), Readings{"bonobo"});
}

TEST(SpokenForms, ShoutedWordIsNotSpelled) {
    EXPECT_EQ(ReadingsOf("CORVANE"), Readings{"corvane"});
}

TEST(SpokenForms, CapitalsInsidePartWordsOrDoNot) {
    EXPECT_EQ(ReadingsOf("LibreOffice"), (Readings{"libre office", "libreoffice"}));
    EXPECT_EQ(ReadingsOf("iTunes"), (Readings{"I tunes", "itunes"}));
    EXPECT_EQ(ReadingsOf("HTMLEditor").front(), "H T M L editor");
}

TEST(SpokenForms, DigitsAreReadAsNumberAsYearAndOneByOne) {
    EXPECT_EQ(ReadingsOf("2048"),
              (Readings{"two thousand forty eight", "twenty forty eight", "two zero four eight"}));
    EXPECT_EQ(ReadingsOf("365"),
              (Readings{"three hundred sixty five", "three sixty five", "three six five"}));
    EXPECT_EQ(ReadingsOf("10"), (Readings{"ten", "one zero"}));
    EXPECT_EQ(ReadingsOf("7"), Readings{"seven"});
    EXPECT_EQ(ReadingsOf("0"), Readings{"zero"});
    EXPECT_EQ(ReadingsOf("007"), Readings{"zero zero seven"});
    EXPECT_EQ(ReadingsOf("100000").front(), "one hundred thousand");
    EXPECT_EQ(ReadingsOf("1000001"), Readings{"one zero zero zero zero zero one"});
}

TEST(SpokenForms, DigitsAndLettersArePartedAnywhere) {
    EXPECT_EQ(ReadingsOf("7zip"), Readings{"seven zip"});
    EXPECT_EQ(ReadingsOf("x86"), (Readings{"X eighty six", "X eight six"}));
}

TEST(SpokenForms, SignsWithNamesAreRead) {
    EXPECT_EQ(ReadingsOf("notepad++"), Readings{"notepad plus plus"});
    EXPECT_EQ(ReadingsOf("c#"), (Readings{"C sharp", "C hash"}));
    EXPECT_EQ(ReadingsOf("node.js"), (Readings{"node J S", "node dot J S"}));
    EXPECT_EQ(ReadingsOf("at&t"), (Readings{"at and T", "A T and T"}));
}

TEST(SpokenForms, ApostropheStaysInTheWordAndHyphenPartsIt) {
    EXPECT_EQ(ReadingsOf("o'reillys"), Readings{"o'reillys"});
    EXPECT_EQ(ReadingsOf("o\u2019reillys"), Readings{"o'reillys"});
    EXPECT_EQ(ReadingsOf("photo-editor"), Readings{"photo editor"});
}

TEST(SpokenForms, SignsAloneHaveNoSound) {
    for (const char* word : {"", "---", "'", "''", "_", "(", "\u65e5\u672c", "\U0001F680", "\xFF"})
        EXPECT_TRUE(SpokenForms(word).empty()) << word;
}

TEST(SpokenForms, NeverMoreThanAFew) {
    EXPECT_LE(SpokenForms("a.b.c.d.e.f#g#h#2048#GIMP").size(), kMostForms);
    EXPECT_LE(SpokenForms("KDE2048GIMP1999iTunes").size(), kMostForms);
}

TEST(Transliteration, LettersOfOtherScriptsAreThoseNextToThem) {
    EXPECT_EQ(Transliterated("\u00DCbersicht"), "Ubersicht");
    EXPECT_EQ(Transliterated("caf\u00E9 na\u00EFve \u0141\u00F3d\u017A stra\u00DFe"),
              "cafe naive Lodz strasse");
    EXPECT_EQ(Transliterated("\u041C\u043E\u0441\u043A\u0432\u0430"), "Moskva");
    EXPECT_EQ(Transliterated("\u03A9\u03BC\u03AD\u03B3\u03B1"), "Omega");
}

TEST(Transliteration, AccentThatStandsAloneIsLeftOut) {
    EXPECT_EQ(Transliterated("cafe\u0301"), "cafe");
}

TEST(Transliteration, WhatEnglishHasNoSoundForIsLeftOut) {
    EXPECT_EQ(Transliterated("\u65E5\u672C"), "");
    EXPECT_EQ(Transliterated("\U0001F680go"), "go");
}

TEST(Transliteration, BrokenTextEndsNothing) {
    EXPECT_EQ(Transliterated("a\xC3"), "a");
    EXPECT_EQ(Transliterated("\xF0\x9F\x9A"), "");
    EXPECT_EQ(Transliterated("\x80\xFF\xC0z"), "z");
    EXPECT_EQ(Transliterated("\xE2\x28\x61"), "(a");
}

}  // namespace
}  // namespace corvane::engine
