// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/endpointer.h"

#include <gtest/gtest.h>

#include <random>

namespace corvane::engine {
namespace {

using Event = Endpointer::Event;

class EndpointerTest : public ::testing::Test {
protected:
    /// White noise of an RMS for some frames; the events in their order.
    std::vector<Event> Hear(int frames, double rms, double offset = 0.0) {
        std::vector<Event> events;
        std::normal_distribution<double> noise(offset, rms);
        std::vector<std::int16_t> frame(Endpointer::kFrameSamples);
        for (int i = 0; i < frames; ++i) {
            for (std::int16_t& sample : frame) sample = static_cast<std::int16_t>(noise(random_));
            if (const Event event = endpointer.Push(frame); event != Event::none)
                events.push_back(event);
        }
        return events;
    }

    Endpointer endpointer;
    static constexpr double kRoom = 20.0;
    static constexpr double kVoice = 1000.0;

private:
    std::mt19937 random_{1};
};

const std::vector<Event> kNothing;
const std::vector<Event> kBegan{Event::speech_began};
const std::vector<Event> kEnded{Event::speech_ended};

TEST_F(EndpointerTest, QuietRoomIsNoSpeech) {
    EXPECT_EQ(Hear(1000, kRoom), kNothing);
}

TEST_F(EndpointerTest, DigitalSilenceIsNoSpeech) {
    EXPECT_EQ(Hear(300, 0.0), kNothing);
    EXPECT_EQ(Hear(300, 1.0), kNothing);
}

TEST_F(EndpointerTest, RoomAfterDigitalSilenceIsNoSpeech) {
    Hear(300, 0.0);
    EXPECT_EQ(Hear(300, kRoom), kNothing);
    Hear(300, 0.0);
    EXPECT_EQ(Hear(300, kRoom), kNothing);
}

TEST_F(EndpointerTest, SoundCardsOffsetIsNoSound) {
    EXPECT_EQ(Hear(100, kRoom), kNothing);
    EXPECT_EQ(Hear(100, kRoom, 900.0), kNothing);
}

TEST_F(EndpointerTest, SpeechBeginsWithSomeOfTheRoomBeforeIt) {
    Hear(200, kRoom);
    EXPECT_EQ(Hear(20, kVoice), kBegan);
    EXPECT_LE(endpointer.Begin(), 200 - Endpointer::kLeadingFrames);
    EXPECT_GT(endpointer.Begin(), 200 - 2 * Endpointer::kLeadingFrames);
}

TEST_F(EndpointerTest, SpeechEndsAfterShortStillness) {
    Hear(200, kRoom);
    Hear(100, kVoice);
    EXPECT_EQ(Hear(Endpointer::kTrailingFrames - 1, kRoom), kNothing);
    EXPECT_EQ(Hear(1, kRoom), kEnded);
    EXPECT_EQ(endpointer.LastLoud(), 300);
}

TEST_F(EndpointerTest, PauseBetweenWordsIsNoEnd) {
    Hear(200, kRoom);
    Hear(50, kVoice);
    EXPECT_EQ(Hear(20, kRoom), kNothing);
    EXPECT_EQ(Hear(50, kVoice), kNothing);
    EXPECT_EQ(Hear(100, kRoom), kEnded);
}

TEST_F(EndpointerTest, ClickIsNoSpeech) {
    Hear(200, kRoom);
    EXPECT_EQ(Hear(3, kVoice), kNothing);
    EXPECT_EQ(Hear(100, kRoom), kNothing);
}

TEST_F(EndpointerTest, ClickAfterSpeechDoesNotPutItsEndOff) {
    Hear(200, kRoom);
    Hear(100, kVoice);
    Hear(15, kRoom);
    Hear(2, kVoice);
    EXPECT_EQ(Hear(11, kRoom), kEnded);
}

TEST_F(EndpointerTest, SpeechFromTheFirstFrameIsHeard) {
    EXPECT_EQ(Hear(50, kVoice), kBegan);
    EXPECT_EQ(endpointer.Begin(), 0);
}

TEST_F(EndpointerTest, FanThatStartsBecomesTheRoom) {
    constexpr double kFan = 200.0;
    Hear(200, kRoom);
    EXPECT_EQ(Hear(Endpointer::kLongestFrames + 100, kFan),
              (std::vector<Event>{Event::speech_began, Event::speech_ended}));
    EXPECT_EQ(Hear(500, kFan), kNothing);
    EXPECT_EQ(Hear(50, 10 * kFan), kBegan);
}

TEST_F(EndpointerTest, QuieterRoomIsFollowedAtOnce) {
    Hear(300, 10 * kRoom);
    Hear(50, kRoom);
    EXPECT_EQ(Hear(50, 5 * kRoom), kBegan);
}

TEST_F(EndpointerTest, UtterancesDoNotOverlap) {
    Hear(200, kRoom);
    Hear(60, kVoice);
    Hear(Endpointer::kTrailingFrames, kRoom);
    const std::int64_t end = endpointer.LastLoud();
    EXPECT_EQ(Hear(30, kVoice), kBegan);
    EXPECT_GE(endpointer.Begin(), end);
}

TEST_F(EndpointerTest, EndOfStreamEndsSpeech) {
    EXPECT_EQ(endpointer.Finish(), Event::none);
    Hear(100, kRoom);
    Hear(30, kVoice);
    EXPECT_EQ(endpointer.Finish(), Event::speech_ended);
    EXPECT_FALSE(endpointer.InSpeech());
}

}  // namespace
}  // namespace corvane::engine
