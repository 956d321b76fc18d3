// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// The voice on a machine without a sound server.
#include "engine/voice/voice.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <memory>

#include "engine/grammar/letter_to_sound.h"
#include "engine/voice/synthesizer.h"
#include "platform/error.h"
#include "support/room.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using std::chrono_literals::operator""ms;

constexpr std::int32_t kFlags = SVSFlagsAsync + SVSFPurgeBeforeSpeak + SVSFIsXML;

class UnheardVoice : public ::testing::Test {
protected:
    void SetUp() override {
        setenv("PULSE_SERVER", "unix:/nowhere/at/all", 1);
        voice = std::make_unique<Voice>("test");
        begun = steady_clock::now();
    }
    void TearDown() override { unsetenv("PULSE_SERVER"); }

    [[nodiscard]] milliseconds Elapsed() const {
        return std::chrono::duration_cast<milliseconds>(steady_clock::now() - begun);
    }

    std::unique_ptr<Voice> voice;
    steady_clock::time_point begun;
};

TEST_F(UnheardVoice, IsDoneAtOnceWhenNothingWasGivenToIt) {
    EXPECT_TRUE(voice->WaitUntilDone(0));
}

TEST_F(UnheardVoice, TakesTheTimeOfTheSoundThatNobodyHears) {
    voice->Speak("<silence msec=\"300\"/>", kFlags);
    EXPECT_LT(Elapsed(), 100ms);
    EXPECT_FALSE(voice->WaitUntilDone(100));
    EXPECT_TRUE(voice->WaitUntilDone(5000));
    EXPECT_GE(Elapsed(), 300ms);
    EXPECT_LT(Elapsed(), 600ms);
}

TEST_F(UnheardVoice, SaysGoodbyeInLessThanASecond) {
    voice->Speak("<emph>goodbye</emph> ", kFlags);
    EXPECT_TRUE(voice->WaitUntilDone(1000));
    EXPECT_GE(Elapsed(), 400ms);
}

TEST_F(UnheardVoice, GivesUpWaitingWhenTheTimeIsUp) {
    voice->Speak("<silence msec=\"60000\"/>", kFlags);
    EXPECT_FALSE(voice->WaitUntilDone(100));
    EXPECT_GE(Elapsed(), 100ms);
    EXPECT_LT(Elapsed(), 300ms);
}

TEST_F(UnheardVoice, NumbersItsStreamsFromOne) {
    EXPECT_EQ(voice->Speak("", kFlags), 1);
    EXPECT_EQ(voice->Speak("", SVSFlagsAsync), 2);
    EXPECT_EQ(voice->Speak("", 0), 3);
}

TEST_F(UnheardVoice, TextWithoutSoundEndsAtOnce) {
    for (const char* text : {"", "   ", "<emph></emph>", "</spell>"}) {
        voice->Speak(text, kFlags);
        EXPECT_TRUE(voice->WaitUntilDone(300)) << text;
    }
}

TEST_F(UnheardVoice, WithoutPurgeOneTextFollowsTheOther) {
    voice->Speak("<silence msec=\"200\"/>", SVSFlagsAsync + SVSFIsXML);
    voice->Speak("<silence msec=\"200\"/>", SVSFlagsAsync + SVSFIsXML);
    EXPECT_TRUE(voice->WaitUntilDone(5000));
    EXPECT_GE(Elapsed(), 400ms);
}

TEST_F(UnheardVoice, PurgeEndsWhatIsSaidAndWhatWaits) {
    voice->Speak("<silence msec=\"60000\"/>", kFlags);
    voice->Speak("<silence msec=\"60000\"/>", SVSFlagsAsync + SVSFIsXML);
    voice->Speak("", kFlags);
    EXPECT_TRUE(voice->WaitUntilDone(300));
}

TEST_F(UnheardVoice, WithoutAsyncItReturnsWhenHeardOut) {
    voice->Speak("<silence msec=\"200\"/>", SVSFIsXML);
    EXPECT_GE(Elapsed(), 200ms);
    EXPECT_TRUE(voice->WaitUntilDone(0));
}

TEST_F(UnheardVoice, MarkupIsTextWhereItIsNotAskedFor) {
    voice->Speak("<silence msec=\"1\"/>", SVSFlagsAsync);
    EXPECT_FALSE(voice->WaitUntilDone(500));
}

TEST_F(UnheardVoice, VeryLongTextReturnsAtOnceAndCanBeCutOff) {
    std::string text;
    while (text.size() < 100'000) text += "All work and no play makes nobody happy. ";
    begun = steady_clock::now();
    voice->Speak(text, kFlags);
    EXPECT_LT(Elapsed(), 50ms);
    EXPECT_FALSE(voice->WaitUntilDone(200));
    voice->Speak("", kFlags);
    EXPECT_TRUE(voice->WaitUntilDone(500));
}

TEST_F(UnheardVoice, MayGoWhileItSpeaks) {
    voice->Speak("<silence msec=\"60000\"/>", kFlags);
    voice.reset();
    EXPECT_LT(Elapsed(), 500ms);
}

TEST_F(UnheardVoice, KeepsItsEventInterests) {
    EXPECT_EQ(voice->EventInterests(), 0);
    voice->SetEventInterests(548);
    EXPECT_EQ(voice->EventInterests(), 548);
}

TEST_F(UnheardVoice, LetterToSoundGoesOnBesideIt) {
    voice->Speak("Anything that takes a while to say, and says it in several sentences. Like this.",
                 kFlags);
    for (int i = 0; i < 200; ++i) ASSERT_EQ(LetterToSound("corvane"), "K AO R V EY N");
}

TEST(Synthesis, SilenceIsExact) {
    Piece piece;
    piece.silence = 100ms;
    EXPECT_EQ(Synthesize(piece), std::vector<std::int16_t>(kVoiceRate / 10));
}

TEST(Synthesis, AnyTextCanBeSaid) {
    for (const char* text : {"\x01", "\x80\xFF\xC3", "[[[[", "]]", "<", "&", "\xEF\xBF\xBF",
                             "http://example.com/?a=b", "\xF0\x9F\x99\x82", "%s%n"})
        for (const Piece& piece : CutIntoPieces(PlainText(text))) (void)Synthesize(piece);
}

TEST(Synthesis, EmphasisDoesNotLeakIntoWhatFollows) {
    const auto duration = [](const char* text) {
        return Synthesize(CutIntoPieces(ParseMarkup(text)).at(0)).size();
    };
    const auto plain = static_cast<double>(duration("what follows is plain"));
    EXPECT_GT(static_cast<double>(duration("<emph>what follows is plain</emph>")), 1.1 * plain);
    EXPECT_NEAR(static_cast<double>(duration("what follows is plain")), plain, 0.05 * plain);
}

TEST(VoiceDeathTest, WithoutVoiceDataNoVoiceIsCreated) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    // The library looks for its data once in a process.
    const auto attempt = [] {
        setenv("ESPEAK_DATA_PATH", "/proc", 1);
        try {
            (void)testing::Room().engine->CreateSpVoice();
        } catch (const RuntimeError& error) {
            std::_Exit(error.number() == kAutomationError ? 7 : 1);
        }
        std::_Exit(0);
    };
    EXPECT_EXIT(attempt(), ::testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace corvane::engine
