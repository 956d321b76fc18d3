// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/frame_sound.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "engine/recogniser/sound_level.h"

namespace corvane::engine {
namespace {

// Second-order Butterworth high-pass, 150 Hz at 16 kHz: hum of 50 Hz comes out 19 dB lower.
constexpr double kIn = 0.9592031;  // the coefficients of the input are this times 1, -2, 1
constexpr double kOut1 = -1.9167411;
constexpr double kOut2 = 0.9200714;

// Periods of voices in steps of a quarter millisecond: 400 Hz to 62 Hz.
constexpr std::size_t kShortestPeriod = 10;
constexpr std::size_t kLongestPeriod = 64;
/// Correlation of a voiced stretch with itself a period later, at least.
constexpr double kPeriodic = 0.6;

/// Correlation, -1 to 1, of a stretch with itself `lag` later.
double SelfCorrelation(std::span<const double> sound, std::size_t lag) {
    const std::span<const double> now = sound.first(sound.size() - lag);
    const std::span<const double> later = sound.subspan(lag);
    const auto product = [](std::span<const double> a, std::span<const double> b) {
        return std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
    };
    const double power = std::sqrt(product(now, now) * product(later, later));
    return power > 0.0 ? product(now, later) / power : 0.0;
}

}  // namespace

double FrameMeasure::HighPass(double sample) {
    // As if it had always been so: the first sample of an offset is no click.
    if (!settled_) last_in_ = before_in_ = sample;
    settled_ = true;
    const double out =
        kIn * (sample - 2.0 * last_in_ + before_in_) - kOut1 * last_out_ - kOut2 * before_out_;
    before_in_ = last_in_;
    last_in_ = sample;
    before_out_ = last_out_;
    last_out_ = out;
    return out;
}

bool FrameMeasure::Voiced() const {
    // A peak, not a large value: slow sound resembles itself a short moment later, too.
    double before = 1.0;
    double here = SelfCorrelation(window_, kShortestPeriod - 1);
    for (std::size_t lag = kShortestPeriod; lag <= kLongestPeriod; ++lag) {
        const double next = SelfCorrelation(window_, lag);
        if (here >= kPeriodic && here > before && here >= next) return true;
        before = here;
        here = next;
    }
    return false;
}

FrameSound FrameMeasure::Measure(std::span<const std::int16_t> frame) {
    std::shift_left(window_.begin(), window_.end(), kFrameSteps);
    const std::span<double> steps = std::span(window_).last(kFrameSteps);
    std::ranges::fill(steps, 0.0);
    double squares = 0.0;
    for (std::size_t i = 0; i < frame.size(); ++i) {
        const double sample = HighPass(frame[i]);
        squares += sample * sample;
        steps[i / kDecimation] += sample;
    }
    return {.level = Decibels(squares / static_cast<double>(frame.size())), .voiced = Voiced()};
}

}  // namespace corvane::engine
