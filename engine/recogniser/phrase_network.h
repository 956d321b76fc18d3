// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

#include "engine/grammar/word_graph.h"
#include "engine/recogniser/model_definition.h"

namespace corvane::engine {

/// A word graph, or the part of it that some words make up, spelled out in phones, each as it
/// sounds between its neighbours, with silence allowed between words. Phones lead from join to
/// join.
struct PhraseNetwork {
    static constexpr int kStart = 0;
    static constexpr int kEnd = 1;
    static constexpr int kNoWord = -1;

    struct Phone {
        ModelDefinition::States senones{};
        int to = 0;
        int word = kNoWord;   ///< index into the graph's words, of a word's first phone
        bool choice = false;  ///< of a word's first phone: the word is one letter of a list
        bool silence = false;
    };
    struct Join {
        std::vector<int> phones;  ///< that begin here
        std::vector<int> free;  ///< joins that can be passed to without a sound; never in a circle
    };

    std::vector<Phone> phones;
    std::vector<Join> joins{2};
};

/// uses: whether a word, by its index, is part of it.
[[nodiscard]] PhraseNetwork NetworkOf(const WordGraph& graph, const ModelDefinition& model,
                                      const std::function<bool(int)>& uses);

}  // namespace corvane::engine
