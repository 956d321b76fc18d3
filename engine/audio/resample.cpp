// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/audio/resample.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace corvane::engine {
namespace {

/// Zero crossings of the filter on either side of its middle.
constexpr int kCrossings = 64;
/// Filter values kept for each crossing; between two of them it is a straight line.
constexpr int kSteps = 512;
/// Where the filter cuts, of the lower rate's half.
constexpr double kCut = 0.95;

double BlackmanHarris(double x) {  // -1 to 1
    const double phase = std::numbers::pi * (x + 1.0);
    return 0.35875 - 0.48829 * std::cos(phase) + 0.14128 * std::cos(2.0 * phase) -
           0.01168 * std::cos(3.0 * phase);
}

/// One half of a low-pass filter, a sinc under a window, over its crossings.
std::vector<double> MakeFilter() {
    std::vector<double> filter;
    for (int i = 0; i <= kCrossings * kSteps + 1; ++i) {
        const double x = static_cast<double>(i) / kSteps;
        const double sinc = i == 0 ? 1.0 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
        filter.push_back(x >= kCrossings ? 0.0 : sinc * BlackmanHarris(x / kCrossings));
    }
    return filter;
}

double At(const std::vector<double>& filter, double crossings) {
    const double place = std::abs(crossings) * kSteps;
    const auto step = static_cast<std::size_t>(place);
    if (step + 1 >= filter.size()) return 0.0;
    const double rest = place - static_cast<double>(step);
    return filter[step] + rest * (filter[step + 1] - filter[step]);
}

}  // namespace

std::vector<double> Resample(std::span<const double> sound, int rate, int wanted) {
    if (rate == wanted) return {sound.begin(), sound.end()};
    const std::vector<double> filter = MakeFilter();
    // Crossings of the filter for each sample of the sound.
    const double density = kCut * std::min(1.0, static_cast<double>(wanted) / rate);
    const double reach = kCrossings / density;
    const auto samples = static_cast<std::int64_t>(sound.size());
    const std::int64_t wanted_samples = samples * wanted / rate;

    std::vector<double> result;
    result.reserve(static_cast<std::size_t>(wanted_samples));
    for (std::int64_t i = 0; i < wanted_samples; ++i) {
        const double middle = static_cast<double>(i) * rate / wanted;
        const auto first =
            std::max<std::int64_t>(0, static_cast<std::int64_t>(std::ceil(middle - reach)));
        const auto last =
            std::min<std::int64_t>(samples - 1, static_cast<std::int64_t>(middle + reach));
        double sum = 0.0;
        for (std::int64_t k = first; k <= last; ++k)
            sum += sound[static_cast<std::size_t>(k)] *
                   At(filter, (static_cast<double>(k) - middle) * density);
        result.push_back(sum * density);
    }
    return result;
}

}  // namespace corvane::engine
