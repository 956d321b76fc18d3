// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/phrase_rivals.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

#include "engine/recogniser/phrase_search.h"

namespace corvane::engine {
namespace {

using Cost = PhraseSearch::Cost;
using Step = PhraseSearch::Step;

constexpr Cost kBeam = 1500;  // what lies further behind the best does not catch up

const WordGraph::Word& WordAt(const WordGraph& graph, int word) {
    return graph.words[static_cast<std::size_t>(word)];
}

double Margin(Cost chosen, Cost rival) {
    return std::clamp(static_cast<double>(chosen) - rival, -RivalMargins::kNone,
                      RivalMargins::kNone);
}

}  // namespace

PhraseRivals::PhraseRivals(const WordGraph& graph, const ModelDefinition& model)
    : graph_(graph), model_(model), whole_(NetworkOf(graph, model, [](int) { return true; })) {}

RivalMargins PhraseRivals::Margins(std::span<const int> words, const SenoneScores& scores) const {
    if (words.empty()) return {};
    const int rule = WordAt(graph_, words.front()).rule;
    const auto is_own = [&](int word) { return WordAt(graph_, word).rule == rule; };
    const auto same = [&](int one, int other) {
        return WordAt(graph_, one).spelling == WordAt(graph_, other).spelling;
    };
    const PhraseNetwork own = NetworkOf(graph_, model_, is_own);
    std::vector<int> choices;
    std::ranges::copy_if(words, std::back_inserter(choices), [&](int word) {
        return std::ranges::any_of(own.phones, [&](const PhraseNetwork::Phone& phone) {
            return phone.choice && phone.word != PhraseNetwork::kNoWord && same(phone.word, word);
        });
    });

    std::array searches{
        PhraseSearch(own, {.words = {words.begin(), words.end()},
                           .step = [](const auto&) { return Step::follow; },
                           .same = same}),
        PhraseSearch(own, {.words = choices,
                           .step = [](const auto& phone) {
                               return phone.choice ? Step::follow : Step::pass;
                           },
                           .same = same}),
        PhraseSearch(whole_, {.words = {},
                              .step = [&](const auto& phone) {
                                  return is_own(phone.word) ? Step::avoid : Step::pass;
                              },
                              .same = same})};
    Cost threshold = -kBeam;
    for (std::size_t frame = 0; frame < scores.Frames(); ++frame) {
        Cost best = PhraseSearch::kImpossible;
        for (PhraseSearch& search : searches)
            best = std::max(best, search.Take(scores.Frame(frame), threshold));
        threshold = best - kBeam;
    }
    const auto& [every_word, some_words, others] = searches;
    return {.rule = Margin(some_words.Followed(), others.Followed()),
            .choice = Margin(some_words.Followed(), some_words.Departed()),
            .words = Margin(every_word.Followed(), every_word.Departed())};
}

}  // namespace corvane::engine
