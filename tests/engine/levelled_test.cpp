// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/levelled.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <vector>

namespace corvane::engine {
namespace {

using Sound = std::vector<std::int16_t>;

/// A square wave, whose root mean square is its height.
Sound Tone(std::int16_t height, std::size_t samples = 16000) {
    Sound tone(samples, height);
    for (std::size_t i = 0; i < samples; i += 2) tone[i] = static_cast<std::int16_t>(-height);
    return tone;
}

double RootMeanSquare(const Sound& sound) {
    double sum = 0.0;
    for (const std::int16_t sample : sound) sum += double{1} * sample * sample;
    return std::sqrt(sum / static_cast<double>(sound.size()));
}

TEST(Levelled, QuietAndLoudSpeechComeToTheSameLevel) {
    EXPECT_NEAR(RootMeanSquare(Levelled(Tone(100))), 2500.0, 25.0);
    EXPECT_NEAR(RootMeanSquare(Levelled(Tone(20000))), 2500.0, 25.0);
}

TEST(Levelled, StillnessIsMadeAQuietRoom) {
    const Sound room = Levelled(Sound(16000, 0));
    EXPECT_NEAR(RootMeanSquare(room), 10.0, 1.0);
}

TEST(Levelled, WhatIsMuchTooQuietStaysQuiet) {
    EXPECT_LT(RootMeanSquare(Levelled(Tone(3))), 200.0);
}

TEST(Levelled, NothingIsNothing) {
    EXPECT_TRUE(Levelled({}).empty());
}

TEST(Levelled, LessThanAFrameIsTakenAsItIs) {
    EXPECT_EQ(Levelled(Tone(100, 50)).size(), 50U);
}

TEST(Levelled, AShortPeakOverQuietSpeechIsClippedAndNotWrapped) {
    Sound sound = Tone(100);
    sound[500] = 32767;
    sound[501] = -32768;
    const Sound levelled = Levelled(sound);
    EXPECT_EQ(levelled[500], 32767);
    EXPECT_EQ(levelled[501], -32768);
}

TEST(Levelled, TheSameSoundIsAlwaysLevelledTheSame) {
    EXPECT_EQ(Levelled(Tone(300)), Levelled(Tone(300)));
}

}  // namespace
}  // namespace corvane::engine
