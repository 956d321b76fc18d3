// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/audio/resample.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace corvane::engine {
namespace {

constexpr int kWanted = 16000;

std::vector<double> Tone(double hertz, int rate) {
    std::vector<double> tone;
    for (int i = 0; i < rate; ++i)
        tone.push_back(10000.0 * std::sin(2.0 * std::numbers::pi * hertz * i / rate));
    return tone;
}

/// Root mean square of the middle, where no edge is near.
double Strength(const std::vector<double>& sound) {
    double sum = 0.0;
    const std::size_t quarter = sound.size() / 4;
    for (std::size_t i = quarter; i < 3 * quarter; ++i) sum += sound[i] * sound[i];
    return std::sqrt(sum / static_cast<double>(2 * quarter));
}

double DecibelsOf(double ratio) {
    return 20.0 * std::log10(ratio);
}

TEST(Resample, SameRateIsTheSameSound) {
    const std::vector<double> sound{1.0, -2.0, 3.0};
    EXPECT_EQ(Resample(sound, kWanted, kWanted), sound);
}

TEST(Resample, OneSecondStaysOneSecondAtAnyRate) {
    for (const int rate : {8000, 11025, 16000, 22050, 44100, 48000, 96000, 44101})
        EXPECT_EQ(Resample(Tone(300.0, rate), rate, kWanted).size(), 16000U) << rate;
}

TEST(Resample, ToneThatBothRatesCarryKeepsItsPitchAndStrength) {
    for (const int rate : {8000, 11025, 22050, 44100, 48000}) {
        const std::vector<double> result = Resample(Tone(1000.0, rate), rate, kWanted);
        const std::vector<double> wanted = Tone(1000.0, kWanted);
        double worst = 0.0;
        for (std::size_t i = 1000; i < 15000; ++i)
            worst = std::max(worst, std::abs(result[i] - wanted[i]));
        EXPECT_LT(worst, 10.0) << rate;
    }
}

TEST(Resample, FlatUpToNineTenthsOfTheBand) {
    for (const int rate : {11025, 44100, 48000}) {
        const double highest = 0.9 * std::min(rate, kWanted) / 2;
        const double gain =
            Strength(Resample(Tone(highest, rate), rate, kWanted)) / Strength(Tone(highest, rate));
        EXPECT_NEAR(DecibelsOf(gain), 0.0, 0.2) << rate;
    }
}

TEST(Resample, WhatTheLowerRateCannotCarryIsGone) {
    for (const int rate : {22050, 44100, 48000})
        for (const double hertz : {8100.0, 9000.0, 10500.0})
            EXPECT_LT(DecibelsOf(Strength(Resample(Tone(hertz, rate), rate, kWanted)) / 7071.0),
                      -70.0)
                << rate << " " << hertz;
}

TEST(Resample, ShortSoundsAreNoTrouble) {
    EXPECT_TRUE(Resample({}, 8000, kWanted).empty());
    EXPECT_EQ(Resample(std::vector<double>{5.0}, 8000, kWanted).size(), 2U);
}

}  // namespace
}  // namespace corvane::engine
