// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "engine/recogniser/phrase_network.h"

namespace corvane::engine {

/// The best ways through a network, frame by frame. It may be given words to follow; then it tells
/// the best way that says them apart from the best one that departs from them.
class PhraseSearch {
public:
    using Cost = std::int32_t;
    static constexpr Cost kImpossible = -1'000'000'000;

    /// What to make of a phone that begins a word.
    enum class Step {
        pass,    ///< any word is as good
        follow,  ///< it must be the next of the words, else this is a departure
        avoid    ///< no way leads here
    };
    struct Task {
        std::vector<int> words;  ///< to be followed
        std::function<Step(const PhraseNetwork::Phone&)> step;
        std::function<bool(int, int)> same;  ///< are these words said the same?
    };

    PhraseSearch(const PhraseNetwork& network, Task task);

    /// Takes the next frame and forgets what lies below the threshold. The best score in it.
    Cost Take(std::span<const std::int16_t> costs, Cost threshold);

    [[nodiscard]] Cost Followed() const;
    [[nodiscard]] Cost Departed() const;

private:
    using States = std::array<Cost, ModelDefinition::kStates>;
    static constexpr States kNowhere{kImpossible, kImpossible, kImpossible};

    /// Where the ways stand that have followed so many words, or, in the last layer, departed.
    struct Layer {
        std::vector<Cost> joins;
        std::vector<int> live_joins;
        std::vector<States> states;  ///< by phone
        std::vector<Cost> entries;   ///< by phone
        std::vector<bool> listed;    ///< by phone
        std::vector<int> live_phones;
    };

    void Reach(Layer& layer, int join, Cost cost);
    void Enter(std::size_t layer, int join, Cost threshold);
    Cost Advance(Layer& layer, std::span<const std::int16_t> costs, Cost threshold) const;

    const PhraseNetwork& network_;
    Task task_;
    std::vector<Layer> layers_;
};

}  // namespace corvane::engine
