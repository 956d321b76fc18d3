// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/sound_level.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace corvane::engine {
namespace {

/// A tenth of a second of a tone.
std::vector<std::int16_t> Tone(double amplitude) {
    std::vector<std::int16_t> sound(1600);
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] = static_cast<std::int16_t>(
            amplitude * std::sin(2.0 * std::numbers::pi * static_cast<double>(i) / 16.0));
    return sound;
}

std::int32_t Shown(const std::vector<std::int16_t>& sound) {
    return AudioLevel(Decibels(sound));
}

TEST(SoundLevel, RunsFromSilenceToFullScale) {
    EXPECT_EQ(Shown(Tone(0.0)), 0);
    EXPECT_EQ(Shown(Tone(30.0)), 0);
    EXPECT_EQ(Shown(Tone(32767.0)), 100);
}

TEST(SoundLevel, SpeechLiesInTheMiddle) {
    for (const double amplitude : {1000.0, 2000.0, 4000.0}) {
        EXPECT_GE(Shown(Tone(amplitude)), 40) << amplitude;
        EXPECT_LE(Shown(Tone(amplitude)), 70) << amplitude;
    }
}

TEST(SoundLevel, NothingLeavesTheScale) {
    std::vector<std::int16_t> square(1600, 32767);
    for (std::size_t i = 0; i < square.size(); i += 2) square[i] = -32768;
    EXPECT_EQ(Shown(square), 100);
    EXPECT_EQ(Shown({}), 0);
    EXPECT_EQ(AudioLevel(-1e9), 0);
    EXPECT_EQ(AudioLevel(1e9), 100);
}

TEST(SoundLevel, TwiceTheAmplitudeIsTheSameStepEverywhere) {
    EXPECT_NEAR(Shown(Tone(2000.0)) - Shown(Tone(1000.0)),
                Shown(Tone(8000.0)) - Shown(Tone(4000.0)), 1);
}

TEST(SoundPower, OfAConstantIsExactlyNothing) {
    SoundPower power;
    EXPECT_EQ(power.MeanSquare(), 0.0);
    power.Add(std::vector<std::int16_t>(1600, 12345));
    EXPECT_EQ(power.MeanSquare(), 0.0);
    power.Add(std::vector<std::int16_t>(1, 12346));
    EXPECT_GT(power.MeanSquare(), 0.0);
}

}  // namespace
}  // namespace corvane::engine
