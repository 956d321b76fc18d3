// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/levelled.h"

#include <algorithm>
#include <cmath>

#include "engine/recogniser/endpointer.h"

namespace corvane::engine {
namespace {

// Root mean squares, of 32768. The noise lies 48 dB below the speech, as in a quiet room.
constexpr double kSpeech = 2500.0;
constexpr double kNoise = 10.0;

// What is this much too quiet is no speech.
constexpr double kLargestGain = 50.0;

/// The level that a tenth of the frames exceed.
double LoudLevel(std::span<const std::int16_t> samples) {
    std::vector<double> levels;
    for (; samples.size() >= Endpointer::kFrameSamples;
         samples = samples.subspan(Endpointer::kFrameSamples)) {
        double sum = 0.0;
        for (const std::int16_t sample : samples.first(Endpointer::kFrameSamples))
            sum += double{1} * sample * sample;
        levels.push_back(std::sqrt(sum / Endpointer::kFrameSamples));
    }
    if (levels.empty()) return 0.0;
    const auto tenth = levels.begin() + std::ssize(levels) * 9 / 10;
    std::ranges::nth_element(levels, tenth);
    return *tenth;
}

/// White noise that is the same every time, so that the same sound is heard the same.
class Noise {
public:
    double Next() {
        // The sum of four even distributions is near enough to a normal one, of variance 1/3.
        constexpr double kToUnit = 1.7320508;
        double sum = 0.0;
        for (int i = 0; i < 4; ++i) {
            state_ = state_ * 1664525U + 1013904223U;
            sum += (state_ >> 8U) / 16777216.0 - 0.5;
        }
        return sum * kToUnit;
    }

private:
    std::uint32_t state_ = 1;
};

}  // namespace

std::vector<std::int16_t> Levelled(std::span<const std::int16_t> utterance) {
    const double gain = std::min(kLargestGain, kSpeech / std::max(1.0, LoudLevel(utterance)));
    Noise noise;
    std::vector<std::int16_t> levelled;
    levelled.reserve(utterance.size());
    for (const std::int16_t sample : utterance)
        levelled.push_back(static_cast<std::int16_t>(
            std::clamp(std::round(sample * gain + noise.Next() * kNoise), -32768.0, 32767.0)));
    return levelled;
}

}  // namespace corvane::engine
