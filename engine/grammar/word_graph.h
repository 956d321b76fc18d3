// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <vector>

#include "engine/grammar/grammar.h"
#include "engine/grammar/lexicon.h"

namespace corvane::engine {

/// All that can be said at one time, as a finite-state graph.
///
/// What rules begin or end with alike is in it once: a thousand keywords behind the same "Computer,
/// run" cost a thousand words, not ten thousand. Between the shared beginning and the shared end
/// each rule has at least one word of its own on every way through it, and that word tells whose
/// sentence it is.
struct WordGraph {
    static constexpr int kNoWord = -1;

    struct Word {
        std::string spelling;  ///< as the grammar spells it
        int rule = 0;          ///< index of its rule among those compiled; of shared: the first
        bool shared = false;   ///< arcs of it belong to several rules
        bool searched =
            false;  ///< arcs lead over it; otherwise its rule has it in shared ones only
        std::vector<std::string> pronunciations;
    };
    struct Arc {
        int from = 0;
        int to = 0;
        int word = kNoWord;  ///< index into words; kNoWord: passed without a sound
    };

    /// Attributes the words of one way through the graph, or of its beginning, to the one rule that
    /// it belongs to: shared ones are exchanged for that rule's own.
    void Attribute(std::span<int> path) const;

    /// Whether more can be said behind these words, which are a way through the graph or the
    /// beginning of one, by any rule that they may belong to.
    [[nodiscard]] bool CanGoOn(std::span<const int> words) const;

    static constexpr int kStart = 0;
    static constexpr int kFinal = 1;
    int states = 2;
    /// Each pair of spelling and rule once, rule by rule; then those that are shared.
    std::vector<Word> words;
    std::vector<Arc> arcs;
    std::vector<int> first_words;  ///< by rule: where its words begin; one more for the last's end
};

/// Compiles rules whose words the lexicon has learnt. A rule with a word that has no sound, or with
/// a phrase of more than kLongestPhrase words, can't be said: it is left out, so that it takes no
/// other with it, and the indexes of the others stay.
[[nodiscard]] WordGraph CompileGraph(std::span<const GrammarRule* const> rules,
                                     const Lexicon& lexicon);

struct GraphSize {
    int states = 0;
    int arcs = 0;
};

/// Of the graph that a grammar will have when all its words have a sound.
[[nodiscard]] GraphSize SizeOfGraph(const Grammar& grammar);

}  // namespace corvane::engine
