// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

// Written by tools/confidence/fit; docs/confidence.md has what from.

namespace corvane::engine {

struct FeatureWeight {
    const char* feature;
    double weight;
};

inline constexpr double kCommandBias = 7.7607;
inline constexpr std::array<FeatureWeight, 11> kCommandWeights{{
    {"over_loop", 22.8357},
    {"mean_rank", -0.4795},
    {"mean_score", 1.4468},
    {"short_share", -6.0102},
    {"worst_quarter", 3.1455},
    {"mean_fit", -4.1196},
    {"phones", 0.4182},
    {"worst_word_rank", -0.9891},
    {"worst_word", 0.9787},
    {"worst_phone", 0.1197},
    {"spread", -4.5063},
}};

inline constexpr double kReadingBias = -5.0044;
inline constexpr std::array<FeatureWeight, 2> kReadingWeights{{
    {"rule_margin", 1.0676},
    {"choice_margin", 1.4790},
}};

}  // namespace corvane::engine
