// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

// Written by tools/confidence/fit; docs/confidence.md has what from.

namespace corvane::engine {

struct FeatureWeight {
    const char* feature;
    double weight;
};

inline constexpr double kCommandBias = 9.1458;
inline constexpr std::array<FeatureWeight, 11> kCommandWeights{{
    {"over_loop", 20.6167},
    {"mean_rank", -0.3506},
    {"mean_score", 6.4673},
    {"short_share", -7.4792},
    {"worst_quarter", 1.4885},
    {"mean_fit", -2.8230},
    {"phones", 0.3875},
    {"worst_word_rank", -1.4504},
    {"worst_word", 0.4653},
    {"worst_phone", 0.0417},
    {"spread", -4.5253},
}};

inline constexpr double kReadingBias = -5.6629;
inline constexpr std::array<FeatureWeight, 2> kReadingWeights{{
    {"rule_margin", 1.1848},
    {"choice_margin", 1.6904},
}};

}  // namespace corvane::engine
