// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/sound_level.h"

#include <algorithm>
#include <cmath>

namespace corvane::engine {
namespace {

// Below the first, 57 dB under the second, lies a quiet room's noise (about 26); so an idle meter
// rests.
constexpr double kStillRoom = 30.0;
constexpr double kFullScaleSine = 87.3;

}  // namespace

void SoundPower::Add(std::span<const std::int16_t> samples) {
    count_ += std::ssize(samples);
    for (const std::int64_t sample : samples) {
        sum_ += sample;
        squares_ += sample * sample;
    }
}

double SoundPower::MeanSquare() const {
    if (count_ == 0) return 0.0;
    // In whole numbers up to here, so that a constant gives 0 and not nearly 0.
    const auto n = static_cast<double>(count_);
    return static_cast<double>(count_ * squares_ - sum_ * sum_) / (n * n);
}

double Decibels(double mean_square) {
    return 10.0 * std::log10(std::max(mean_square, 1.0));
}

double Decibels(std::span<const std::int16_t> samples) {
    SoundPower power;
    power.Add(samples);
    return Decibels(power.MeanSquare());
}

std::int32_t AudioLevel(double decibels) {
    const double share = (decibels - kStillRoom) / (kFullScaleSine - kStillRoom);
    return static_cast<std::int32_t>(std::lround(100.0 * std::clamp(share, 0.0, 1.0)));
}

}  // namespace corvane::engine
