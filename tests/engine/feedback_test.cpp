// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <numbers>
#include <random>

#include "engine/audio/pulse_capture.h"
#include "support/room.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

using testing::Listening;
using testing::Room;
using testing::Sound;
using testing::Stillness;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

constexpr const char* kCommands = CORVANE_PROJECT_FOLDER "/data/keywords.xml";
constexpr std::int32_t kFeedback = SREAudioLevel | SREInterference;
using Told = std::vector<std::int32_t>;

Sound Noise(std::chrono::milliseconds duration, double rms) {
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0.0, rms);
    Sound sound = Stillness(duration);
    for (std::int16_t& sample : sound) sample = static_cast<std::int16_t>(noise(random));
    return sound;
}

Sound Hum(std::chrono::milliseconds duration, double amplitude) {
    Sound sound = Stillness(duration);
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] = static_cast<std::int16_t>(
            amplitude * std::sin(2.0 * std::numbers::pi * 50.0 * static_cast<double>(i) / 16000.0));
    return sound;
}

/// The sound in a quiet room, as many times as loud and cut off at full scale.
Sound Amplified(const Sound& sound, double gain) {
    Sound louder = Noise(std::chrono::milliseconds(sound.size() / 16), 5.0);
    for (std::size_t i = 0; i < louder.size(); ++i)
        louder[i] = static_cast<std::int16_t>(
            std::clamp(std::lround(gain * sound[i]) + louder[i], -32768L, 32767L));
    return louder;
}

class Feedback : public ::testing::Test {
protected:
    Told InterferencesOf(const Sound& sound) {
        Room own;
        const Listening listening(*own.engine, kCommands, kFeedback);
        own.HearToTheEnd(sound);
        return listening.interferences;
    }

    Room room;
};

TEST_F(Feedback, LevelRisesAndFallsWithTheSound) {
    const Listening listening(*room.engine, kCommands, kFeedback);
    for (const double rms : {2000.0, 20.0}) {
        room.microphone.Hear(Noise(100ms, rms));
        ASSERT_TRUE(room.messages.WaitForOne());
        room.messages.Run();
    }
    ASSERT_EQ(listening.levels.size(), 2U);
    EXPECT_GE(listening.levels[0], 40);
    EXPECT_LE(listening.levels[0], 70);
    EXPECT_EQ(listening.levels[1], 0);
}

TEST_F(Feedback, BusyLoopFindsTheNewestLevelOnly) {
    const Listening listening(*room.engine, kCommands, kFeedback);
    room.HearToTheEnd(testing::Joined(Noise(500ms, 2000.0), Hum(500ms, 32767.0)));
    ASSERT_EQ(listening.levels.size(), 1U);
    EXPECT_EQ(listening.levels[0], 100);
}

TEST_F(Feedback, LevelThatStaysIsNotToldAgain) {
    const Listening listening(*room.engine, kCommands, SREAudioLevel);
    room.microphone.Hear(Stillness(100ms));
    ASSERT_TRUE(room.messages.WaitForOne());
    room.messages.Run();
    room.HearToTheEnd(Stillness(2s));
    EXPECT_EQ(listening.levels, Told{0});
}

TEST_F(Feedback, OnlyWhoAsksIsTold) {
    const Listening deaf(*room.engine, kCommands, SRERecognition);
    const Listening listening(*room.engine, kCommands, kFeedback);
    room.HearToTheEnd(Stillness(4s));
    EXPECT_TRUE(deaf.levels.empty());
    EXPECT_TRUE(deaf.interferences.empty());
    EXPECT_EQ(listening.levels, Told{0});
    EXPECT_EQ(listening.interferences, Told{SINoSignal});
}

TEST_F(Feedback, ReplacedContextMissesWhatIsQueued) {
    Listening listening(*room.engine, kCommands, kFeedback);
    room.microphone.Hear(Stillness(4s));
    room.microphone.HangUp();
    room.engine->WaitForEndOfStream();
    listening.context.reset();
    room.messages.Run();
    EXPECT_TRUE(listening.levels.empty());
    EXPECT_TRUE(listening.interferences.empty());
}

TEST_F(Feedback, MissingMicrophoneIsNoSignalAndToldOnce) {
    setenv("PULSE_SERVER", "unix:/nowhere/pulse", 1);
    testing::Messages messages;
    SpeechEngine engine(
        {}, [&](std::function<void()> message) { messages.Post(std::move(message)); },
        std::make_unique<PulseCapture>("test"));
    const Listening listening(engine, kCommands, SREInterference);
    ASSERT_TRUE(messages.WaitForOne());
    messages.Run();
    EXPECT_EQ(listening.interferences, Told{SINoSignal});
}

TEST_F(Feedback, SteadyLoudNoiseAndHumAreNoise) {
    EXPECT_EQ(InterferencesOf(Noise(4s, 2000.0)), Told{SINoise});
    EXPECT_EQ(InterferencesOf(Hum(4s, 3000.0)), Told{SINoise});
    EXPECT_EQ(InterferencesOf(Noise(20s, 20.0)), Told{});
}

class SpokenFeedback : public Feedback {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }
};

TEST_F(SpokenFeedback, OrdinaryVoicesAreNoTrouble) {
    for (const char* voice : {"slt", "rms", "awb", "kal16"})
        for (const char* text :
             {"what time is it", "clear the whiteboard please", "shutdown", "yes"})
            EXPECT_EQ(InterferencesOf(Amplified(testing::Say(text, voice), 1.0)), Told{})
                << voice << ": " << text;
}

TEST_F(SpokenFeedback, LoudAndQuietSpeechIsTold) {
    const Sound speech = testing::Say("how much ram does my computer have");
    EXPECT_EQ(InterferencesOf(Amplified(speech, 0.01)), Told{SITooQuiet});
    EXPECT_EQ(InterferencesOf(Amplified(speech, 8.0)), Told{SITooLoud});
    EXPECT_EQ(InterferencesOf(testing::Joined(Amplified(speech, 0.01), Amplified(speech, 1.0))),
              (Told{SITooQuiet, SINone}));
}

TEST_F(SpokenFeedback, HurriedAndDrawnOutSpeechIsTold) {
    // Pace is told of what was heard for sure, which drawn-out speech seldom is.
    EXPECT_EQ(
        InterferencesOf(Amplified(testing::Say("please read the whiteboard", "slt", 0.5), 1.0)),
        Told{SITooFast});
    EXPECT_EQ(InterferencesOf(Amplified(testing::Say("empty the recycle bin", "slt", 2.2), 1.0)),
              Told{SITooSlow});
}

}  // namespace
}  // namespace corvane::engine
