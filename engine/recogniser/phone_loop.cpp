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

PhoneLoop RunPhoneLoop(const SenoneScores& scores, const ModelDefinition& model) {
    /// The best way to be in a state, and the frame in which its phone was entered.
    struct Way {
        double score = kImpossible;
        std::size_t entered = 0;
    };
    using States = std::array<Way, ModelDefinition::kStates>;
    std::vector<ModelDefinition::States> senones;
    for (std::size_t phone = 0; phone < model.Phones(); ++phone)
        senones.push_back(model.Alone(phone));

    std::vector<States> best(model.Phones());
    std::vector<Way> ends;  // by frame: the best way to have ended a phone in it
    double entry = 0.0;
    for (std::size_t frame = 0; frame < scores.Frames(); ++frame) {
        const auto costs = scores.Frame(frame);
        Way end;
        for (std::size_t phone = 0; phone < best.size(); ++phone) {
            States& state = best[phone];
            for (std::size_t i = state.size(); i-- > 0;) {
                const Way before = i == 0 ? Way{entry, frame} : state[i - 1];
                if (before.score > state[i].score) state[i] = before;
                state[i].score -= costs[senones[phone][i]];
            }
            if (state.back().score > end.score) end = state.back();
        }
        ends.push_back(end);
        entry = end.score - kEntryCost;
    }

    PhoneLoop loop;
    if (ends.empty()) return loop;
    loop.score = ends.back().score;
    loop.frames.resize(ends.size());
    for (std::size_t behind = ends.size(); behind > 0;) {
        const Way& end = ends[behind - 1];
        if (end.score <= kImpossible / 2) break;
        const std::size_t first = end.entered;
        const double before = first == 0 ? 0.0 : ends[first - 1].score;
        const double each = (end.score - before) / static_cast<double>(behind - first);
        std::fill(loop.frames.begin() + static_cast<std::ptrdiff_t>(first),
                  loop.frames.begin() + static_cast<std::ptrdiff_t>(behind), each);
        behind = first;
    }
    return loop;
}

}  // namespace corvane::engine
