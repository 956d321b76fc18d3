// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/reading_catcher.h"

#include <gtest/gtest.h>

#include "support/generated_sound.h"

namespace corvane::engine {
namespace {

using Event = ReadingCatcher::Event;
using std::chrono::milliseconds;
using testing::Joined;
using testing::Mixed;
using testing::Sound;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

class ReadingCatcherTest : public ::testing::Test {
protected:
    /// The events of a sound in a room with some noise, in their order.
    std::vector<Event> Hear(const Sound& sound) {
        const Sound all = Mixed(make.Noise(milliseconds(sound.size() / 16), 10.0), sound);
        std::vector<Event> events;
        for (std::span<const std::int16_t> rest = all; rest.size() >= Endpointer::kFrameSamples;
             rest = rest.subspan(Endpointer::kFrameSamples))
            if (const Event event = catcher.Push(rest.first(Endpointer::kFrameSamples));
                event != Event::none)
                events.push_back(event);
        return events;
    }
    std::vector<Event> HearVoice(milliseconds duration, double rms = 1500.0) {
        return Hear(make.Voice(duration, rms));
    }
    std::vector<Event> HearNothing(milliseconds duration) {
        return Hear(testing::Stillness(duration));
    }
    [[nodiscard]] double SecondsCaught() const {
        return static_cast<double>(catcher.Caught().sound.size()) / kSampleRate;
    }

    testing::GeneratedSound make;
    ReadingCatcher catcher;
};

TEST_F(ReadingCatcherTest, AReadingIsCaughtWithSomeStillnessAroundIt) {
    EXPECT_EQ(HearNothing(3s), (std::vector<Event>{}));
    EXPECT_EQ(HearVoice(2s), (std::vector<Event>{Event::began}));
    EXPECT_EQ(HearNothing(1500ms), (std::vector<Event>{Event::ended}));
    EXPECT_GT(SecondsCaught(), 2.2);
    EXPECT_LT(SecondsCaught(), 3.0);
    EXPECT_FALSE(catcher.Caught().too_loud);
    EXPECT_FALSE(catcher.Caught().too_quiet);
}

TEST_F(ReadingCatcherTest, BreathMayBeTakenWithinAReading) {
    HearNothing(1s);
    EXPECT_EQ(HearVoice(1500ms), (std::vector<Event>{Event::began}));
    EXPECT_EQ(HearNothing(700ms), (std::vector<Event>{}));
    EXPECT_EQ(HearVoice(1500ms), (std::vector<Event>{}));
    EXPECT_EQ(HearNothing(1500ms), (std::vector<Event>{Event::ended}));
    EXPECT_GT(SecondsCaught(), 3.7);
}

TEST_F(ReadingCatcherTest, EachReadingIsCaughtAlone) {
    HearNothing(1s);
    HearVoice(2s);
    EXPECT_EQ(HearNothing(2s), (std::vector<Event>{Event::ended}));
    EXPECT_EQ(HearVoice(1s), (std::vector<Event>{Event::began}));
    EXPECT_EQ(HearNothing(2s), (std::vector<Event>{Event::ended}));
    EXPECT_LT(SecondsCaught(), 2.0);
}

TEST_F(ReadingCatcherTest, WhatIsDroppedComesNoMore) {
    HearNothing(1s);
    HearVoice(2s);
    catcher.Drop();
    EXPECT_EQ(HearVoice(1s), (std::vector<Event>{}));
    EXPECT_EQ(HearNothing(2s), (std::vector<Event>{}));
    EXPECT_EQ(HearVoice(1s), (std::vector<Event>{Event::began}));
    EXPECT_EQ(HearNothing(2s), (std::vector<Event>{Event::ended}));
    EXPECT_LT(SecondsCaught(), 2.0);
}

TEST_F(ReadingCatcherTest, SpeechThatNeverStopsIsEndedInTheEnd) {
    HearNothing(1s);
    std::vector<Event> events = HearVoice(41s);
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[1], Event::ended);
    EXPECT_GT(SecondsCaught(), 38.0);
    EXPECT_EQ(HearNothing(2s), (std::vector<Event>{}));
    EXPECT_EQ(HearVoice(1s), (std::vector<Event>{Event::began}));
}

TEST_F(ReadingCatcherTest, AKnockIsNoReading) {
    HearNothing(1s);
    EXPECT_EQ(Hear(make.Knock(60ms, 8000.0)), (std::vector<Event>{}));
    for (const Event event : HearNothing(3s)) EXPECT_EQ(event, Event::denied);
}

TEST_F(ReadingCatcherTest, WhatWasTooLoudOrTooQuietIsToldSo) {
    HearNothing(1s);
    HearVoice(2s, 25'000.0);
    EXPECT_EQ(HearNothing(2s), (std::vector<Event>{Event::ended}));
    EXPECT_TRUE(catcher.Caught().too_loud);
    HearVoice(2s, 60.0);
    EXPECT_EQ(HearNothing(2s), (std::vector<Event>{Event::ended}));
    EXPECT_TRUE(catcher.Caught().too_quiet);
}

}  // namespace
}  // namespace corvane::engine
