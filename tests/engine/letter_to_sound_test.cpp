// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/letter_to_sound.h"

#include <gtest/gtest.h>

#include <thread>

namespace corvane::engine {
namespace {

TEST(LetterToSound, SaysWordsThatNoDictionaryHolds) {
    EXPECT_EQ(LetterToSound("corvane"), "K AO R V EY N");
    EXPECT_EQ(LetterToSound("whiteboard"), "W AY T B AO R D");
    EXPECT_EQ(LetterToSound("powerdown"), "P AW ER D AW N");
    EXPECT_EQ(LetterToSound("logoff"), "L AA G AO F");
}

TEST(LetterToSound, SaysDigitsAndForeignLetters) {
    EXPECT_EQ(LetterToSound("3d"), "TH R IY D IY");
    EXPECT_FALSE(LetterToSound("na\xC3\xAFve").empty());
}

TEST(LetterToSound, SignsAreNoWords) {
    EXPECT_EQ(LetterToSound(""), "");
    EXPECT_EQ(LetterToSound("---"), "");
}

TEST(LetterToSound, AnRThatTheVowelHasSaidIsNotSaidTwice) {
    EXPECT_EQ(PhonesOfPhonemes("v_'e@_r_i"), "V EH R IY");
}

TEST(LetterToSound, UnknownPhonemeMakesNoSound) {
    EXPECT_EQ(PhonesOfPhonemes("b_!!_t"), "");
}

TEST(LetterToSound, ThreadsDoNotGetEachOthersSounds) {
    const auto check = [](const char* word, const char* phones) {
        for (int i = 0; i < 200; ++i) ASSERT_EQ(LetterToSound(word), phones);
    };
    std::thread other(check, "logoff", "L AA G AO F");
    check("corvane", "K AO R V EY N");
    other.join();
}

}  // namespace
}  // namespace corvane::engine
