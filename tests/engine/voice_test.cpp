// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// The voice on a machine without a sound server.
#include "engine/voice/voice.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/grammar/letter_to_sound.h"
#include "engine/voice/synthesizer.h"
#include "engine/voice/utterance.h"
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
        voice = std::make_unique<Voice>("test", [](const std::function<void()>&) {});
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

std::vector<std::int16_t> SoundOf(std::string_view text) {
    std::vector<std::int16_t> sound;
    for (Utterance utterance(text, true); !utterance.Done();) {
        const Spoken spoken = utterance.Next();
        sound.insert(sound.end(), spoken.sound.begin(), spoken.sound.end());
    }
    return sound;
}

double Loudness(const std::vector<std::int16_t>& sound) {
    double energy = 0;
    for (const double sample : sound) energy += sample * sample;
    return std::sqrt(energy / static_cast<double>(sound.size()));
}

TEST(Synthesis, SilenceIsExact) {
    EXPECT_EQ(SoundOf("<silence msec=\"100\"/>"), std::vector<std::int16_t>(kVoiceRate / 10));
}

TEST(Synthesis, AnyTextCanBeSaidAndLeavesNothingBehind) {
    const std::size_t hello = SoundOf("hello").size();
    const auto plain = static_cast<double>(SoundOf("what follows is plain").size());
    for (const std::string text :
         {"\x01", "\x01 9S", "\x80\xFF\xC3", "[[[[", "]]", "<", "&", "\xEF\xBF\xBF",
          "http://example.com/?a=b", "\xF0\x9F\x99\x82", "%s%n"}) {
        EXPECT_GT(SoundOf("hello " + text).size(), hello / 2) << text;
        EXPECT_NEAR(static_cast<double>(SoundOf("what follows is plain").size()), plain,
                    0.05 * plain)
            << text;
    }
}

TEST(Synthesis, EmphasisDoesNotLeakIntoWhatFollows) {
    const auto plain = static_cast<double>(SoundOf("what follows is plain").size());
    EXPECT_GT(static_cast<double>(SoundOf("<emph>what follows is plain</emph>").size()),
              1.1 * plain);
    EXPECT_NEAR(static_cast<double>(SoundOf("what follows is plain").size()), plain, 0.05 * plain);
}

TEST(Synthesis, RateMakesItFasterAndSlower) {
    const auto duration = [](const char* speed) {
        return static_cast<double>(SoundOf(std::string("<rate absspeed=\"") + speed +
                                           "\">The quick brown fox jumps over the dog.</rate>")
                                       .size());
    };
    EXPECT_LT(duration("5"), 0.75 * duration("0"));
    EXPECT_GT(duration("-5"), 1.3 * duration("0"));
}

TEST(Synthesis, VolumeMakesItSofterAndSilent) {
    const double full = Loudness(SoundOf("oh, how loud this is"));
    EXPECT_NEAR(Loudness(SoundOf("<volume level=\"50\">oh, how loud this is</volume>")), full / 2,
                full / 8);
    EXPECT_LT(Loudness(SoundOf("<volume level=\"0\">oh, how loud this is</volume>")), full / 100);
}

/// The period of a steady vowel, in samples.
std::size_t PeriodAtPitch(const std::string& pitch) {
    const auto sound =
        SoundOf("<pitch absmiddle=\"" + pitch + "\"><pron sym=\"uw uw uw uw uw uw\"/></pitch>");
    constexpr std::size_t kWindow = 2000;
    const std::size_t begin = sound.size() / 2 - kWindow / 2;
    std::size_t best = 0;
    double best_likeness = 0;
    for (std::size_t lag = kVoiceRate / 400; lag < kVoiceRate / 40; ++lag) {
        double likeness = 0;
        for (std::size_t i = begin; i < begin + kWindow; ++i)
            likeness += static_cast<double>(sound[i]) * sound[i + lag];
        // A little more is asked of a longer one: twice a period is as like.
        if (likeness > 1.1 * best_likeness) {
            best_likeness = likeness;
            best = lag;
        }
    }
    return best;
}

TEST(Synthesis, PitchMakesItHigherAndLower) {
    EXPECT_LT(PeriodAtPitch("10"), PeriodAtPitch("0"));
    EXPECT_GT(PeriodAtPitch("-10"), PeriodAtPitch("0"));
}

TEST(Synthesis, PronunciationTakesThePlaceOfItsContent) {
    const auto content = SoundOf("This is a rather long text.");
    const auto said = SoundOf("<pron sym=\"h ay 1\">This is a rather long text.</pron>");
    EXPECT_GT(Loudness(said), 100);
    EXPECT_LT(said.size(), content.size() / 2);
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
