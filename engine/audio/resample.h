// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

namespace corvane::engine {

/// The same sound at another rate, both in samples a second and above 0. What the lower of the two
/// rates can't carry is filtered out: flat up to 0.9 of what it can, and 70 dB down from 1.01 of
/// it. For files; it looks at the whole sound.
[[nodiscard]] std::vector<double> Resample(std::span<const double> sound, int rate, int wanted);

}  // namespace corvane::engine
