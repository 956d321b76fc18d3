// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/phrase_search.h"

#include <algorithm>
#include <utility>

namespace corvane::engine {
namespace {

using Cost = PhraseSearch::Cost;

constexpr Cost kSkipCost = 10;     // of a phone's middle state, as in the alignment
constexpr Cost kSilenceCost = 50;  // of entering silence, as in the decoder

}  // namespace

PhraseSearch::PhraseSearch(const PhraseNetwork& network, Task task)
    : network_(network), task_(std::move(task)) {
    layers_.resize(task_.words.size() + 2,
                   Layer{.joins = std::vector<Cost>(network.joins.size(), kImpossible),
                         .live_joins = {},
                         .states = std::vector<States>(network.phones.size(), kNowhere),
                         .entries = std::vector<Cost>(network.phones.size(), kImpossible),
                         .listed = std::vector<bool>(network.phones.size(), false),
                         .live_phones = {}});
    Reach(layers_.front(), PhraseNetwork::kStart, 0);
}

Cost PhraseSearch::Take(std::span<const std::int16_t> costs, Cost threshold) {
    for (std::size_t i = 0; i < layers_.size(); ++i)
        for (const int join : layers_[i].live_joins) Enter(i, join, threshold);
    Cost best = kImpossible;
    for (Layer& layer : layers_) best = std::max(best, Advance(layer, costs, threshold));
    for (Layer& layer : layers_) {
        for (const int join : std::exchange(layer.live_joins, {}))
            layer.joins[static_cast<std::size_t>(join)] = kImpossible;
        for (const int phone : layer.live_phones)
            Reach(layer, network_.phones[static_cast<std::size_t>(phone)].to,
                  layer.states[static_cast<std::size_t>(phone)].back());
    }
    return best;
}

Cost PhraseSearch::Followed() const {
    return layers_[task_.words.size()].joins[PhraseNetwork::kEnd];
}

Cost PhraseSearch::Departed() const {
    // Who stops short of the last word has departed too.
    Cost best = layers_.back().joins[PhraseNetwork::kEnd];
    for (std::size_t i = 0; i < task_.words.size(); ++i)
        best = std::max(best, layers_[i].joins[PhraseNetwork::kEnd]);
    return best;
}

void PhraseSearch::Reach(Layer& layer, int join, Cost cost) {
    Cost& reached = layer.joins[static_cast<std::size_t>(join)];
    if (cost <= reached) return;
    if (reached == kImpossible) layer.live_joins.push_back(join);
    reached = cost;
    for (const int next : network_.joins[static_cast<std::size_t>(join)].free)
        Reach(layer, next, cost);
}

void PhraseSearch::Enter(std::size_t layer, int join, Cost threshold) {
    const Cost cost = layers_[layer].joins[static_cast<std::size_t>(join)];
    if (cost < threshold) return;
    for (const int index : network_.joins[static_cast<std::size_t>(join)].phones) {
        const auto phone = static_cast<std::size_t>(index);
        const PhraseNetwork::Phone& begun = network_.phones[phone];
        const Step step = begun.word == PhraseNetwork::kNoWord ? Step::pass : task_.step(begun);
        if (step == Step::avoid) continue;
        std::size_t into = layer;
        if (step == Step::follow && layer + 1 < layers_.size()) {
            const bool follows =
                layer < task_.words.size() && task_.same(task_.words[layer], begun.word);
            into = follows ? layer + 1 : layers_.size() - 1;
        }
        Layer& target = layers_[into];
        target.entries[phone] =
            std::max(target.entries[phone], cost - (begun.silence ? kSilenceCost : 0));
        if (!target.listed[phone]) target.live_phones.push_back(index);
        target.listed[phone] = true;
    }
}

Cost PhraseSearch::Advance(Layer& layer, std::span<const std::int16_t> costs,
                           Cost threshold) const {
    Cost best = kImpossible;
    std::erase_if(layer.live_phones, [&](int index) {
        const auto phone = static_cast<std::size_t>(index);
        States& states = layer.states[phone];
        const Cost entry = std::exchange(layer.entries[phone], kImpossible);
        const States from{std::max(states[0], entry), std::max(states[1], states[0]),
                          std::max({states[2], states[1], states[0] - kSkipCost})};
        for (std::size_t i = 0; i < states.size(); ++i) {
            states[i] = from[i] < threshold ? kImpossible
                                            : from[i] - costs[network_.phones[phone].senones[i]];
            best = std::max(best, states[i]);
        }
        layer.listed[phone] = states != kNowhere;
        return states == kNowhere;
    });
    return best;
}

}  // namespace corvane::engine
