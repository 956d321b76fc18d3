// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/interference_judge.h"

#include <gtest/gtest.h>

#include <cmath>

namespace corvane::engine {
namespace {

using Events = InterferenceJudge::Events;
using std::chrono_literals::operator""ms;

class Judge : public ::testing::Test {
protected:
    /// Seconds of a steady sound of this level.
    Events Hear(double seconds, double decibels) {
        return HearPower(seconds, std::pow(10.0, decibels / 10.0));
    }

    Events HearNothing(double seconds) { return HearPower(seconds, 0.0); }

    Events Say(const UtteranceSound& sound) { return judge.HearUtterance(sound); }

    static constexpr double kRoom = 26.0;
    static constexpr double kFan = 60.0;
    const UtteranceSound kOrdinary{
        .duration = 1500ms, .level = 65.0, .clipped_share = 0.0, .phones = 12, .pace = 12.0};
    UtteranceSound quiet = kOrdinary;
    UtteranceSound loud = kOrdinary;
    UtteranceSound fast = kOrdinary;
    UtteranceSound slow = kOrdinary;

    void SetUp() override {
        quiet.level = 35.0;
        loud.clipped_share = 0.02;
        fast.pace = 24.0;
        slow.pace = 5.0;
    }

    InterferenceJudge judge;

private:
    Events HearPower(double seconds, double mean_square) {
        Events all;
        for (int block = 0; block < static_cast<int>(seconds * 10.0); ++block) {
            const Events events = judge.HearBlock({mean_square, mean_square});
            all.insert(all.end(), events.begin(), events.end());
        }
        return all;
    }
};

const Events kNothing;

TEST_F(Judge, OrdinarySpeechInAQuietRoomIsNoTrouble) {
    EXPECT_EQ(Hear(60, kRoom), kNothing);
    EXPECT_EQ(Say(kOrdinary), kNothing);
    EXPECT_EQ(Say(kOrdinary), kNothing);
}

TEST_F(Judge, ThreeSecondsOfNothingAreNoSignalAndToldOnce) {
    EXPECT_EQ(HearNothing(2.9), kNothing);
    EXPECT_EQ(HearNothing(0.1), Events{SINoSignal});
    EXPECT_EQ(HearNothing(60), kNothing);
    EXPECT_EQ(Hear(0.1, kRoom), Events{SINone});
    EXPECT_EQ(Hear(60, kRoom), kNothing);
}

TEST_F(Judge, FaintestSoundIsASignal) {
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(HearNothing(2), kNothing);
        EXPECT_EQ(Hear(0.1, 0.0), kNothing);
    }
}

TEST_F(Judge, LoudRoomIsNoiseUntilItIsCalmForAMoment) {
    EXPECT_EQ(Hear(2.9, kFan), kNothing);
    EXPECT_EQ(Hear(10, kFan), Events{SINoise});
    EXPECT_EQ(Hear(0.4, kRoom), kNothing);
    EXPECT_EQ(Hear(1, kFan), kNothing);
    EXPECT_EQ(Hear(0.5, kRoom), Events{SINone});
}

TEST_F(Judge, SpeechThatFallsStillBetweenItsWordsIsNoNoise) {
    for (int word = 0; word < 20; ++word) {
        EXPECT_EQ(Hear(2, 70.0), kNothing);
        EXPECT_EQ(judge.HearBlock({1e7, 100.0}), kNothing);
    }
}

TEST_F(Judge, WayOfSpeakingHoldsUntilAnUtteranceWithoutIt) {
    for (const auto& [sound, condition] :
         {std::pair{loud, SITooLoud}, std::pair{quiet, SITooQuiet}, std::pair{fast, SITooFast},
          std::pair{slow, SITooSlow}}) {
        EXPECT_EQ(Say(sound), Events{condition});
        EXPECT_EQ(Hear(30, kRoom), kNothing);
        EXPECT_EQ(Say(sound), kNothing);
        EXPECT_EQ(Say(kOrdinary), Events{SINone});
    }
}

TEST_F(Judge, OneWayOfSpeakingMayFollowAnother) {
    EXPECT_EQ(Say(quiet), Events{SITooQuiet});
    EXPECT_EQ(Say(fast), Events{SITooFast});
    EXPECT_EQ(Say(kOrdinary), Events{SINone});
}

TEST_F(Judge, NoneIsToldOnlyWhenTheLastHasEnded) {
    EXPECT_EQ(Say(quiet), Events{SITooQuiet});
    EXPECT_EQ(HearNothing(4), Events{SINoSignal});
    EXPECT_EQ(Hear(1, kRoom), kNothing);
    EXPECT_EQ(Say(kOrdinary), Events{SINone});
}

TEST_F(Judge, ClickIsNoUtterance) {
    quiet.duration = 500ms;
    EXPECT_EQ(Say(quiet), kNothing);
    EXPECT_EQ(Say(loud), Events{SITooLoud});
    EXPECT_EQ(Say(quiet), kNothing);
}

TEST_F(Judge, ShortPhraseHasNoPace) {
    fast.phones = 5;
    slow.phones = 5;
    EXPECT_EQ(Say(fast), kNothing);
    EXPECT_EQ(Say(slow), kNothing);
}

}  // namespace
}  // namespace corvane::engine
