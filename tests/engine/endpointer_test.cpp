// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/endpointer.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/generated_sound.h"

namespace corvane::engine {
namespace {

using Event = Endpointer::Event;
using std::chrono::milliseconds;
using testing::Joined;
using testing::Mixed;
using testing::Sound;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

class EndpointerTest : public ::testing::Test {
protected:
    /// Hears whole frames; the events in their order.
    std::vector<Event> Hear(const Sound& sound) {
        std::vector<Event> events;
        for (std::span<const std::int16_t> rest = sound; rest.size() >= Endpointer::kFrameSamples;
             rest = rest.subspan(Endpointer::kFrameSamples))
            if (const Event event = endpointer.Push(rest.first(Endpointer::kFrameSamples));
                event != Event::none)
                events.push_back(event);
        return events;
    }

    std::vector<Event> HearRoom(milliseconds duration, double rms = kRoom) {
        return Hear(make.Noise(duration, rms));
    }
    std::vector<Event> HearVoice(milliseconds duration, double rms = kVoice, double room = kRoom) {
        return HearInRoom(make.Voice(duration, rms), room);
    }
    std::vector<Event> HearInRoom(const Sound& sound, double room = kRoom) {
        return Hear(Mixed(make.Noise(milliseconds(sound.size() / 16), room), sound));
    }

    /// No utterance reaches back to what the listener may have thrown away, nor ends before it
    /// begins.
    void ExpectNoBeginBeforeTheEarliest(const Sound& sound) {
        std::int64_t earliest = 0;
        for (std::span<const std::int16_t> rest = sound; rest.size() >= Endpointer::kFrameSamples;
             rest = rest.subspan(Endpointer::kFrameSamples)) {
            const Event event = endpointer.Push(rest.first(Endpointer::kFrameSamples));
            if (event != Event::none) {
                EXPECT_GE(endpointer.Begin(), earliest);
            }
            if (event == Event::speech_ended) {
                EXPECT_GT(endpointer.End(), endpointer.Begin());
                EXPECT_GT(endpointer.LastLoud(), endpointer.Begin());
            }
            EXPECT_GE(endpointer.EarliestBegin(), earliest);
            earliest = endpointer.EarliestBegin();
        }
    }

    testing::GeneratedSound make;
    Endpointer endpointer;
    static constexpr double kRoom = 20.0;
    static constexpr double kVoice = 1000.0;
};

const std::vector<Event> kNothing;
const std::vector<Event> kBegan{Event::speech_began};
const std::vector<Event> kEnded{Event::speech_ended};
const std::vector<Event> kBeganAndEnded{Event::speech_began, Event::speech_ended};

TEST_F(EndpointerTest, QuietRoomIsNoSpeech) {
    EXPECT_EQ(HearRoom(10s), kNothing);
}

TEST_F(EndpointerTest, DigitalSilenceIsNoSpeech) {
    EXPECT_EQ(Hear(testing::Stillness(3s)), kNothing);
    EXPECT_EQ(HearRoom(3s, 1.0), kNothing);
}

TEST_F(EndpointerTest, RoomAfterDigitalSilenceIsNoSpeech) {
    Hear(testing::Stillness(3s));
    EXPECT_EQ(HearRoom(3s), kNothing);
    Hear(testing::Stillness(3s));
    EXPECT_EQ(HearRoom(3s), kNothing);
}

TEST_F(EndpointerTest, SpeechOutOfDigitalSilenceIsHeard) {
    Hear(testing::Stillness(3s));
    EXPECT_EQ(Hear(make.Voice(1s, kVoice)), kBegan);
    EXPECT_EQ(Hear(testing::Stillness(1s)), kEnded);
}

TEST_F(EndpointerTest, SoundCardsOffsetIsNoSound) {
    EXPECT_EQ(Hear(make.Noise(3s, kRoom, 3000.0)), kNothing);
    EXPECT_EQ(Hear(make.Noise(1s, kRoom, -900.0)), kNothing);
}

TEST_F(EndpointerTest, SpeechOnTopOfAnOffsetIsHeard) {
    const Sound offset(16 * 1000, 3000);
    Hear(make.Noise(2s, kRoom, 3000.0));
    EXPECT_EQ(HearInRoom(Mixed(offset, make.Voice(1s, kVoice))), kBegan);
    EXPECT_EQ(Hear(make.Noise(1s, kRoom, 3000.0)), kEnded);
}

TEST_F(EndpointerTest, SpeechBeginsWithSomeOfTheRoomBeforeIt) {
    HearRoom(2s);
    EXPECT_EQ(HearVoice(200ms), kBegan);
    EXPECT_LE(endpointer.Begin(), 200 - Endpointer::kLeadingFrames + 5);
    EXPECT_GT(endpointer.Begin(), 200 - 2 * Endpointer::kLeadingFrames);
}

TEST_F(EndpointerTest, HissBeforeTheVowelBelongsToTheWord) {
    HearRoom(2s);
    EXPECT_EQ(HearRoom(250ms, 300.0), kNothing);
    EXPECT_EQ(HearVoice(300ms), kBegan);
    EXPECT_LE(endpointer.Begin(), 200 - Endpointer::kLeadingFrames + 5);
}

TEST_F(EndpointerTest, HissBehindTheVowelBelongsToTheWord) {
    HearRoom(2s);
    HearVoice(300ms);
    EXPECT_EQ(HearRoom(250ms, 300.0), kNothing);
    EXPECT_EQ(HearRoom(500ms), kEnded);
    EXPECT_NEAR(static_cast<double>(endpointer.LastLoud()), 255.0, 3.0);
    EXPECT_EQ(endpointer.End(), endpointer.LastLoud() + Endpointer::kTrailingFrames);
}

TEST_F(EndpointerTest, SpeechEndsAfterShortStillness) {
    HearRoom(2s);
    HearVoice(1s);
    EXPECT_EQ(HearRoom(10ms * (Endpointer::kTrailingFrames - 4)), kNothing);
    EXPECT_EQ(HearRoom(40ms), kEnded);
    EXPECT_NEAR(static_cast<double>(endpointer.LastLoud()), 299.0, 3.0);
    EXPECT_TRUE(endpointer.Whole());
}

TEST_F(EndpointerTest, SpeechRestsAfterAFifthOfASecondOfStillnessUntilItGoesOn) {
    EXPECT_FALSE(endpointer.Rests());
    HearRoom(2s);
    EXPECT_FALSE(endpointer.Rests()) << "nobody has spoken";
    HearVoice(500ms);
    HearRoom(10ms * (Endpointer::kRestFrames - 4));
    EXPECT_FALSE(endpointer.Rests());
    HearRoom(50ms);
    EXPECT_TRUE(endpointer.Rests());
    EXPECT_EQ(HearVoice(200ms), kNothing);
    EXPECT_FALSE(endpointer.Rests());
    EXPECT_EQ(HearRoom(500ms), kEnded);
    EXPECT_FALSE(endpointer.Rests());
}

TEST_F(EndpointerTest, SpeechThatRestsCanBeEndedAtOnceAndTheNextIsHeard) {
    HearRoom(2s);
    HearVoice(500ms);
    HearRoom(230ms);
    ASSERT_TRUE(endpointer.Rests());
    EXPECT_EQ(endpointer.Finish(), Event::speech_ended);
    EXPECT_EQ(endpointer.End(), endpointer.Position());
    const std::int64_t end = endpointer.LastLoud();
    EXPECT_EQ(HearRoom(100ms), kNothing);
    EXPECT_EQ(HearVoice(500ms), kBegan);
    EXPECT_GE(endpointer.Begin(), end);
    EXPECT_EQ(HearRoom(500ms), kEnded);
}

TEST_F(EndpointerTest, PauseBetweenWordsIsNoEnd) {
    HearRoom(2s);
    HearVoice(500ms);
    EXPECT_EQ(HearRoom(270ms), kNothing);
    EXPECT_EQ(HearVoice(500ms), kNothing);
    EXPECT_EQ(HearRoom(1s), kEnded);
}

TEST_F(EndpointerTest, ShortWordIsHeard) {
    HearRoom(2s);
    EXPECT_EQ(HearVoice(150ms), kBegan);
    EXPECT_EQ(HearRoom(1s), kEnded);
}

TEST_F(EndpointerTest, VeryQuietSpeechIsHeard) {
    HearRoom(2s, 3.0);
    EXPECT_EQ(HearVoice(1s, 60.0, 3.0), kBegan);
    EXPECT_EQ(HearRoom(1s, 3.0), kEnded);
}

TEST_F(EndpointerTest, VeryLoudSpeechThatClipsIsHeard) {
    HearRoom(2s);
    EXPECT_EQ(HearVoice(2s, 20000.0), kBegan);
    EXPECT_EQ(HearRoom(1s), kEnded);
}

TEST_F(EndpointerTest, DraggedOutVowelIsNotTakenForTheRoom) {
    HearRoom(2s);
    EXPECT_EQ(HearInRoom(make.HeldVowel(2500ms, kVoice)), kBegan);
    EXPECT_EQ(HearRoom(1s), kEnded);
    EXPECT_GE(endpointer.LastLoud(), 440);
}

TEST_F(EndpointerTest, ClickIsNoSpeech) {
    HearRoom(2s);
    EXPECT_EQ(HearRoom(30ms, kVoice), kNothing);
    EXPECT_EQ(HearRoom(1s), kNothing);
}

TEST_F(EndpointerTest, KnockIsNoSpeech) {
    HearRoom(2s);
    for (const milliseconds duration : {20ms, 40ms, 60ms})
        for (const double peak : {1000.0, 20000.0}) {
            EXPECT_EQ(HearInRoom(make.Knock(duration, peak)), kNothing);
            EXPECT_EQ(HearRoom(1s), kNothing);
        }
}

TEST_F(EndpointerTest, TypingIsNoSpeech) {
    HearRoom(2s);
    EXPECT_EQ(HearInRoom(make.Typing(20s, 1500.0)), kNothing);
    EXPECT_EQ(HearRoom(1s), kNothing);
}

TEST_F(EndpointerTest, WordBehindTypingBeginsWithLittleOfIt) {
    HearRoom(2s);
    HearInRoom(make.Typing(10s, 1500.0));
    EXPECT_EQ(HearVoice(1s), kBegan);
    EXPECT_GE(endpointer.Begin(), 1200 - 100);
    EXPECT_LE(endpointer.Begin(), 1200 - Endpointer::kLeadingFrames + 5);
}

TEST_F(EndpointerTest, TypingBehindAWordDoesNotPutItsEndOffForLong) {
    HearRoom(2s);
    HearVoice(1s);
    EXPECT_EQ(HearInRoom(make.Typing(1s, 1500.0)), kEnded);
}

TEST_F(EndpointerTest, BreathIsNoSpeech) {
    HearRoom(2s);
    EXPECT_EQ(HearInRoom(make.Breath(800ms, 200.0)), kNothing);
    EXPECT_EQ(HearRoom(1s), kNothing);
}

TEST_F(EndpointerTest, ClickAfterSpeechDoesNotPutItsEndOff) {
    HearRoom(2s);
    HearVoice(1s);
    HearRoom(150ms);
    HearRoom(20ms, kVoice);
    EXPECT_EQ(HearRoom(130ms), kEnded);
}

TEST_F(EndpointerTest, SpeechFromTheFirstFrameIsHeard) {
    EXPECT_EQ(HearVoice(500ms), kBegan);
    EXPECT_EQ(endpointer.Begin(), 0);
}

TEST_F(EndpointerTest, FanThatStartsBecomesTheRoomWithinTwoSeconds) {
    constexpr double kFan = 200.0;
    HearRoom(2s);
    EXPECT_EQ(HearRoom(2s, kFan), kNothing);
    EXPECT_NEAR(endpointer.Floor(), 46.0, 3.0);
    EXPECT_EQ(HearVoice(1s, 5.0 * kFan, kFan), kBegan);
    EXPECT_EQ(HearRoom(1s, kFan), kEnded);
}

TEST_F(EndpointerTest, HumThatIsSwitchedOnIsNoSpeech) {
    for (const double frequency : {50.0, 60.0, 100.0, 120.0}) {
        endpointer = {};
        HearRoom(2s);
        // As periodic as a voice, it may be taken for one until it has not changed for a while.
        std::vector<Event> events = HearInRoom(make.Hum(3s, 500.0, frequency));
        if (!events.empty()) {
            EXPECT_EQ(events, (std::vector<Event>{Event::speech_began, Event::speech_denied}));
        }
        EXPECT_EQ(HearInRoom(make.Hum(20s, 500.0, frequency)), kNothing) << frequency;
    }
}

TEST_F(EndpointerTest, SpeechOverAHumIsHeard) {
    HearRoom(1s);
    HearInRoom(make.Hum(3s, 300.0, 50.0));
    EXPECT_EQ(HearInRoom(Mixed(make.Hum(1s, 300.0, 50.0), make.Voice(1s, 2000.0))), kBegan);
    EXPECT_EQ(HearInRoom(make.Hum(1s, 300.0, 50.0)), kEnded);
}

TEST_F(EndpointerTest, FanThatStartsBehindAWordIsNoPartOfIt) {
    HearRoom(2s);
    EXPECT_EQ(HearVoice(1s), kBegan);
    EXPECT_EQ(HearRoom(2s, 200.0), kEnded);
    EXPECT_NEAR(static_cast<double>(endpointer.End()), 350.0, 10.0);
}

TEST_F(EndpointerTest, QuieterRoomIsFollowedAtOnce) {
    HearRoom(3s, 10.0 * kRoom);
    HearRoom(500ms);
    EXPECT_EQ(HearVoice(500ms, 5.0 * kRoom), kBegan);
}

TEST_F(EndpointerTest, UtterancesDoNotOverlap) {
    HearRoom(2s);
    HearVoice(600ms);
    EXPECT_EQ(HearRoom(10ms * (Endpointer::kTrailingFrames + 2)), kEnded);
    const std::int64_t end = endpointer.LastLoud();
    EXPECT_EQ(HearVoice(300ms), kBegan);
    EXPECT_GE(endpointer.Begin(), end);
}

TEST_F(EndpointerTest, NothingOfAnUtteranceLiesBeforeItsEarliestBegin) {
    ExpectNoBeginBeforeTheEarliest(Joined(
        make.Noise(1s, kRoom),
        Joined(make.Typing(3s, 1500.0), Joined(make.Voice(15s, kVoice), make.Noise(1s, kRoom)))));
}

TEST_F(EndpointerTest, SpeechThatGoesOnBehindAPauseAtTheCutBeginsBehindTheCut) {
    for (auto pause_from = 11300ms; pause_from < 12000ms; pause_from += 20ms) {
        SCOPED_TRACE(pause_from.count());
        endpointer = {};
        ExpectNoBeginBeforeTheEarliest(
            Joined(Joined(make.Noise(1s, kRoom), make.Voice(pause_from, kVoice)),
                   Joined(make.Noise(330ms, kRoom),
                          Joined(make.Voice(1s, kVoice), make.Noise(1s, kRoom)))));
    }
}

TEST_F(EndpointerTest, StreamThatEndsAtACutTellsNothingTwice) {
    HearRoom(1s);
    const Sound voice = make.Voice(13s, kVoice);
    std::span<const std::int16_t> rest = voice;
    Event event = Event::none;
    while (event != Event::speech_ended && rest.size() >= Endpointer::kFrameSamples) {
        event = endpointer.Push(rest.first(Endpointer::kFrameSamples));
        rest = rest.subspan(Endpointer::kFrameSamples);
    }
    ASSERT_EQ(event, Event::speech_ended);
    const std::int64_t cut = endpointer.End();
    EXPECT_EQ(endpointer.Finish(), Event::speech_ended);
    EXPECT_EQ(endpointer.Begin(), cut);
    EXPECT_EQ(endpointer.End(), endpointer.Position());
    EXPECT_FALSE(endpointer.InSpeech());
}

TEST_F(EndpointerTest, EndlessSpeechIsCutAtAPause) {
    HearRoom(2s);
    EXPECT_EQ(HearVoice(9s), kBegan);
    EXPECT_EQ(HearRoom(150ms), kNothing);
    EXPECT_EQ(HearVoice(4s), (std::vector<Event>{Event::speech_ended, Event::speech_began}));
    EXPECT_FALSE(endpointer.Whole());
    // The next piece begins where the last one has ended, inside the pause.
    EXPECT_GE(endpointer.Begin(), 1100);
    EXPECT_LE(endpointer.Begin(), 1115);
    EXPECT_EQ(endpointer.Begin(), endpointer.End());
}

TEST_F(EndpointerTest, RestOfEndlessSpeechIsAPieceAndTheNextSpeechIsWhole) {
    HearRoom(2s);
    HearVoice(60s);
    EXPECT_EQ(HearRoom(1s), kEnded);
    EXPECT_FALSE(endpointer.Whole());
    EXPECT_EQ(HearVoice(1s), kBegan);
    EXPECT_EQ(HearRoom(1s), kEnded);
    EXPECT_TRUE(endpointer.Whole());
}

TEST_F(EndpointerTest, MusicThatGoesOnIsSpokenOver) {
    HearRoom(2s);
    for (int second = 0; second < 40; ++second) HearInRoom(make.HeldVowel(1s, 300.0));
    EXPECT_GE(endpointer.Floor(), 40.0);
    HearInRoom(make.HeldVowel(1s, 300.0));
    EXPECT_EQ(HearInRoom(Mixed(make.HeldVowel(1s, 300.0), make.Voice(1s, 4000.0))), kBegan);
    EXPECT_EQ(HearInRoom(make.HeldVowel(1s, 300.0)), kEnded);
}

TEST_F(EndpointerTest, EndOfStreamEndsSpeech) {
    EXPECT_EQ(endpointer.Finish(), Event::none);
    HearRoom(1s);
    HearVoice(300ms);
    EXPECT_EQ(endpointer.Finish(), Event::speech_ended);
    EXPECT_EQ(endpointer.End(), endpointer.Position());
    EXPECT_FALSE(endpointer.InSpeech());
}

}  // namespace
}  // namespace corvane::engine
