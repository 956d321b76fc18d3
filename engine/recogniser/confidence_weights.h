// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

namespace corvane::engine {

struct FeatureWeight {
    const char* feature;
    double weight;
};

inline constexpr double kCommandBias = 0.30;
inline constexpr std::array<FeatureWeight, 8> kCommandWeights{{
    {"over_loop", 34.94},
    {"mean_rank", -0.26},
    {"mean_score", -3.81},
    {"short_share", -7.41},
    {"worst_quarter", 5.80},
    {"mean_fit", -14.12},
    {"phones", 0.19},
    {"worst_word_rank", -2.28},
}};

inline constexpr double kReadingBias = 1.0;
inline constexpr std::array<FeatureWeight, 3> kReadingWeights{{
    {"rule_margin", 0.5},
    {"choice_margin", 0.5},
    {"word_margin", 0.5},
}};

}  // namespace corvane::engine
