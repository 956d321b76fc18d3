// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <vector>

#include "engine/grammar/grammar.h"
#include "engine/grammar/lexicon.h"

namespace corvane::engine {

/// All that can be said at one time, as a finite-state graph. Each word is tagged with its rule,
/// and no arc leads from one rule into another, so any word of a path tells the path's rule.
struct WordGraph {
    static constexpr int kNoWord = -1;

    struct Word {
        std::string spelling;  ///< as the grammar spells it
        int rule = 0;          ///< index of its rule among those compiled
        std::vector<std::string> pronunciations;
    };
    struct Arc {
        int from = 0;
        int to = 0;
        int word = kNoWord;  ///< index into words; kNoWord: passed without a sound
    };

    static constexpr int kStart = 0;
    static constexpr int kFinal = 1;
    int states = 2;
    std::vector<Word> words;  ///< each pair of spelling and rule once
    std::vector<Arc> arcs;
};

/// Compiles rules whose words the lexicon has learnt. A rule with a word that has no sound is left
/// out, so that it takes no other with it; the indexes of the others stay.
[[nodiscard]] WordGraph CompileGraph(std::span<const GrammarRule* const> rules,
                                     const Lexicon& lexicon);

}  // namespace corvane::engine
