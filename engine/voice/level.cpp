// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/level.h"

#include <algorithm>
#include <cmath>

namespace corvane::engine {

std::int32_t LevelOf(std::span<const std::int16_t> samples) {
    constexpr double kFull = 8000;  // root mean square
    if (samples.empty()) return 0;
    double energy = 0;
    for (const double sample : samples) energy += sample * sample;
    const double rms = std::sqrt(energy / static_cast<double>(samples.size()));
    // By the square root a bar shows soft sounds too.
    return static_cast<std::int32_t>(std::lround(std::min(100.0, 100.0 * std::sqrt(rms / kFull))));
}

}  // namespace corvane::engine
