// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "support/generated_sound.h"
#include "support/room.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

using testing::Listening;
using testing::Room;
using testing::Say;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

constexpr const char* kCommands = CORVANE_PROJECT_FOLDER "/data/keywords.xml";
constexpr std::array kVoices{"slt", "rms", "awb"};

struct Saying {
    std::string rule;
    std::string text;
};

std::vector<Saying> Sayings() {
    std::vector<Saying> sayings;
    std::ifstream file(CORVANE_PROJECT_FOLDER "/tests/engine/sayings.txt");
    Saying saying;
    while (std::getline(file, saying.rule, '\t') && std::getline(file, saying.text))
        sayings.push_back(saying);
    return sayings;
}

/// What the engine makes of one saying on its own.
std::vector<std::shared_ptr<ISpeechRecoResult>> Heard(const std::string& text, const char* voice) {
    Room room;
    const Listening listening(*room.engine, kCommands);
    room.HearToTheEnd(Say(text, voice));
    return listening.recognised;
}

class Recognition : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }
};

TEST_F(Recognition, CommandsAreHeardAsTheirRulesWithHighConfidence) {
    const std::vector<Saying> sayings = Sayings();
    ASSERT_EQ(sayings.size(), 18U);
    std::size_t right = 0;
    std::string failures;
    for (const char* voice : kVoices) {
        for (const Saying& saying : sayings) {
            const auto results = Heard(saying.text, voice);
            const bool good = results.size() == 1 &&
                              results[0]->PhraseInfo()->Rule()->Name() == saying.rule &&
                              results[0]->PhraseInfo()->Rule()->Confidence() == SECHighConfidence;
            if (good)
                ++right;
            else
                failures += std::string(voice) + ": " + saying.text + "\n";
        }
    }
    RecordProperty("right", static_cast<int>(right));
    EXPECT_GE(right * 10, sayings.size() * kVoices.size() * 9) << failures;
}

TEST_F(Recognition, OtherSpeechIsNeverHeardWithHighConfidence) {
    for (const char* voice : kVoices)
        for (const char* text :
             {"the weather in the mountains was unusually mild this year",
              "my sister bought three pounds of apples on the market",
              "could you ask him whether the train has left already",
              "a good book is worth more than a bad film", "elephants", "yesterday evening"})
            for (const auto& result : Heard(text, voice))
                EXPECT_LT(result->PhraseInfo()->Rule()->Confidence(), SECHighConfidence)
                    << voice << ": " << text << " as " << testing::Told(result);
}

/// A command's sound without the stillness around it.
testing::Sound SaidAtOnce(const std::string& text) {
    const auto loud = [](std::int16_t sample) { return std::abs(sample) >= 300; };
    const testing::Sound sound = Say(text);
    const auto begin = std::ranges::find_if(sound, loud);
    const auto end = std::find_if(sound.rbegin(), sound.rend(), loud).base();
    return {begin, end};
}

constexpr const char* kTimeRule =
    R"(<RULE NAME="the time" TOPLEVEL="ACTIVE"><P>what time is it</P></RULE>)";
constexpr const char* kCloseRule =
    R"(<RULE NAME="close" TOPLEVEL="ACTIVE"><P>normalize</P><O>window</O></RULE>)";

TEST_F(Recognition, CommandToWhichNothingCanBeAddedIsToldBeforeTheStillnessHasLasted) {
    const testing::TemporaryFile grammar(testing::GrammarOf(std::string(kTimeRule) + kCloseRule));
    Room room;
    const Listening listening(*room.engine, grammar.Path(), SRERecognition);
    room.microphone.Hear(testing::Joined(testing::Stillness(400ms), SaidAtOnce("what time is it")));
    room.microphone.Hear(testing::Stillness(260ms));
    ASSERT_TRUE(room.messages.WaitForOne());
    room.messages.Run();
    ASSERT_EQ(listening.recognised.size(), 1U);
    EXPECT_EQ(testing::Told(listening.recognised[0]), "the time: what time is it");
    room.HearToTheEnd(testing::Stillness(1s));
    EXPECT_EQ(listening.recognised.size(), 1U) << "it is told once";
}

TEST_F(Recognition, CommandThatMayGoOnIsNotCutInTwoByAPause) {
    const testing::TemporaryFile grammar(testing::GrammarOf(std::string(kTimeRule) + kCloseRule));
    Room room;
    const Listening listening(*room.engine, grammar.Path());
    const testing::Sound speech = testing::Joined(
        testing::Joined(SaidAtOnce("normalize"), testing::Stillness(240ms)), SaidAtOnce("window"));
    room.HearToTheEnd(testing::Joined(testing::Stillness(400ms), speech));
    ASSERT_EQ(listening.recognised.size(), 1U);
    EXPECT_EQ(testing::Told(listening.recognised[0]), "close: normalize window");
}

TEST_F(Recognition, WhatIsNothingLikeACommandIsToldToNobody) {
    for (const char* voice : kVoices)
        EXPECT_TRUE(Heard("my sister bought three pounds of apples on the market", voice).empty())
            << voice;
}

TEST_F(Recognition, CommandAtTheEndOfALongTalkIsNone) {
    testing::GeneratedSound make;
    testing::Sound command = Say("what time is it");
    testing::Sound at_once = command;
    at_once.erase(at_once.begin(), at_once.begin() + 16 * 400);  // the stillness before it
    Room room;
    const Listening listening(*room.engine, kCommands);
    room.HearToTheEnd(testing::Joined(testing::Joined(make.Voice(14s, 2000.0), at_once), command));
    ASSERT_EQ(listening.recognised.size(), 1U) << "said again by itself it is one";
    EXPECT_EQ(testing::Told(listening.recognised[0]), "the time: what time is it");
    EXPECT_GE(listening.positions[0], 15 * 2 * kSampleRate);
}

}  // namespace
}  // namespace corvane::engine
