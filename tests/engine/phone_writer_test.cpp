// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/lexicon/phone_writer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/speech_engine.h"
#include "platform/error.h"
#include "support/generated_sound.h"
#include "support/speech.h"

namespace corvane::engine {
namespace {

using testing::Say;
using std::chrono_literals::operator""ms;

class PhoneWriterTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }
    PhoneWriter writer{SpeechEngineConfig().acoustic_model, {}};
};

TEST_F(PhoneWriterTest, WhatIsSaidAsItIsReadIsWrittenSo) {
    EXPECT_EQ(writer.Write(Say("mother"), {"M AH DH ER"}), "M AH DH ER");
    EXPECT_EQ(writer.Write(Say("paper"), {"P EY P ER"}), "P EY P ER");
    EXPECT_EQ(writer.Write(Say("gwendolyn"), {"G W EH N D AH L IH N"}), "G W EH N D AH L IH N");
}

TEST_F(PhoneWriterTest, OfSeveralGuessesTheOneThatWasSaidIsTaken) {
    const WaysToSay guesses{"R IY D", "M AH DH ER", "R EH D"};
    EXPECT_EQ(writer.Write(Say("mother"), guesses), "M AH DH ER");
}

TEST_F(PhoneWriterTest, ClearlyAnotherSoundIsWrittenInPlaceOfTheGuessed) {
    // A vowel and a consonant of it were guessed wrong.
    const std::string phones = writer.Write(Say("mother"), {"M IY SH ER"});
    EXPECT_NE(phones, "M IY SH ER");
    EXPECT_TRUE(phones.starts_with("M ") && phones.ends_with(" ER")) << phones;
}

TEST_F(PhoneWriterTest, WithoutAGuessThereAreStillPhones) {
    EXPECT_TRUE(ArePhones(writer.Write(Say("gwendolyn"), {})));
}

TEST_F(PhoneWriterTest, AGuessThatIsNoPhonesCountsForNothing) {
    const auto sound = Say("mother");
    EXPECT_EQ(writer.Write(sound, {"", "QQ", "m ah"}), writer.Write(sound, {}));
}

TEST_F(PhoneWriterTest, NothingOrTooMuchIsNoWord) {
    EXPECT_EQ(writer.Write({}, {"M AH DH ER"}), "");
    EXPECT_EQ(writer.Write({}, {}), "");
    std::string many;
    for (int i = 0; i < 12; ++i) many += "seventeen yellow ";
    EXPECT_EQ(writer.Write(Say(many), {}), "");
}

TEST_F(PhoneWriterTest, TheSameSoundIsAlwaysWrittenTheSameWay) {
    const auto sound = Say("zorbel");
    const std::string phones = writer.Write(sound, {"Z AO R B AH L"});
    EXPECT_EQ(writer.Write(sound, {"Z AO R B AH L"}), phones);
}

TEST(PhoneWriter, WithoutAModelItIsAnError) {
    EXPECT_THROW(PhoneWriter("/missing", {}), RuntimeError);
}

}  // namespace
}  // namespace corvane::engine
