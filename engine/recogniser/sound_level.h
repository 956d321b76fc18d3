// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>

namespace corvane::engine {

/// Power of the sound that was added, without its mean: a sound card's constant offset is no sound.
class SoundPower {
public:
    void Add(std::span<const std::int16_t> samples);

    /// Mean square in squared sample steps; 0 exactly for digital silence, and for no sound at all.
    [[nodiscard]] double MeanSquare() const;

private:
    std::int64_t count_ = 0;
    std::int64_t sum_ = 0;
    std::int64_t squares_ = 0;
};

/// dB re one squared sample step, at least 0. A sine at full scale has 87.3.
[[nodiscard]] double Decibels(double mean_square);
[[nodiscard]] double Decibels(std::span<const std::int16_t> samples);

/// A level in dB as the speech API counts it, 0 to 100: linear in dB, 0 for a still room and below,
/// 100 for a sine at full scale and above. Speech at a usual distance lies between 40 and 70.
[[nodiscard]] std::int32_t AudioLevel(double decibels);

}  // namespace corvane::engine
