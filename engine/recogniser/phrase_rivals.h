// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "engine/grammar/word_graph.h"
#include "engine/recogniser/model_definition.h"
#include "engine/recogniser/phrase_network.h"
#include "engine/recogniser/senone_scores.h"

namespace corvane::engine {

/// How far the best different reading of an utterance lies behind the one that was chosen, in the
/// unit of the senones, summed over frames; below 0 where it is the better one.
struct RivalMargins {
    static constexpr double kNone = 1000.0;  ///< no rival comes near, or there is none at all

    double rule = kNone;    ///< to other words, of another rule
    double choice = kNone;  ///< to another letter where this one was said; letters sound alike
};

/// Looks for the reading that comes second. It searches the graph again by itself, with the
/// senones' scores of the whole utterance, since the decoder tells only which reading is first.
class PhraseRivals {
public:
    /// graph: stays where it is, and as it is.
    PhraseRivals(const WordGraph& graph, const ModelDefinition& model);

    /// words: the chosen reading, indexes into the graph's words, all of one rule.
    [[nodiscard]] RivalMargins Margins(std::span<const int> words,
                                       const SenoneScores& scores) const;

private:
    const WordGraph& graph_;
    const ModelDefinition& model_;
    PhraseNetwork whole_;
};

}  // namespace corvane::engine
