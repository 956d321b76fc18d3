// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/phone_loop.h"

#include <algorithm>
#include <array>
#include <vector>

namespace corvane::engine {
namespace {

// Entering one more phone. Without it the loop strings together scraps of three frames.
constexpr double kEntryCost = 120.0;

constexpr double kImpossible = -1e12;

}  // namespace

double PhoneLoopScore(const SenoneScores& scores, const ModelDefinition& model) {
    using States = std::array<double, ModelDefinition::kStates>;
    std::vector<ModelDefinition::States> senones;
    for (std::size_t phone = 0; phone < model.Phones(); ++phone)
        senones.push_back(model.Alone(phone));

    // Viterbi: the best way to be in each state of each phone.
    std::vector<States> best(model.Phones(), States{kImpossible, kImpossible, kImpossible});
    double entry = 0.0;
    double last = kImpossible;
    for (std::size_t frame = 0; frame < scores.Frames(); ++frame) {
        const auto costs = scores.Frame(frame);
        last = kImpossible;
        for (std::size_t phone = 0; phone < best.size(); ++phone) {
            States& state = best[phone];
            for (std::size_t i = state.size(); i-- > 0;) {
                const double from_before = i == 0 ? entry : state[i - 1];
                state[i] = std::max(state[i], from_before) - costs[senones[phone][i]];
            }
            last = std::max(last, state.back());
        }
        entry = last - kEntryCost;
    }
    return last;
}

}  // namespace corvane::engine
