// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/phrase_rivals.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

#include "engine/recogniser/phrase_search.h"

namespace corvane::engine {
namespace {

using Cost = PhraseSearch::Cost;
using Step = PhraseSearch::Step;

constexpr int kNoRule = -1;
constexpr Cost kBeam = 1500;  // what lies further behind the best does not catch up

const WordGraph::Word& WordAt(const WordGraph& graph, int word) {
    return graph.words[static_cast<std::size_t>(word)];
}

bool SoundsAs(const WordGraph& graph, int one, int other) {
    return WordAt(graph, one).spelling == WordAt(graph, other).spelling;
}

/// The rule that is said once this word is, if it was `before` until then.
int OwnerOf(const WordGraph& graph, int word, int before) {
    return WordAt(graph, word).shared ? before : WordAt(graph, word).rule;
}

double Margin(Cost chosen, Cost rival) {
    return std::clamp(static_cast<double>(chosen) - rival, -RivalMargins::kNone,
                      RivalMargins::kNone);
}

/// Who says the words, by rule, and which of them are its choices.
std::map<int, std::vector<int>> ChoicesByRule(const PhraseNetwork& network, const WordGraph& graph,
                                              std::span<const int> words) {
    struct Place {
        int join = PhraseNetwork::kStart;
        std::size_t said = 0;
        int rule = kNoRule;
        bool operator<(const Place& other) const {
            return std::tie(join, said, rule) < std::tie(other.join, other.said, other.rule);
        }
    };
    std::map<int, std::vector<int>> choices;
    std::set<Place> seen;
    std::vector<std::pair<Place, std::vector<int>>> open{{Place{}, {}}};
    while (!open.empty()) {
        const auto [place, chosen] = std::move(open.back());
        open.pop_back();
        if (!seen.insert(place).second) continue;
        if (place.join == PhraseNetwork::kEnd && place.said == words.size())
            choices.try_emplace(place.rule, chosen);
        const PhraseNetwork::Join& join = network.joins[static_cast<std::size_t>(place.join)];
        for (const int next : join.free)
            open.push_back({{.join = next, .said = place.said, .rule = place.rule}, chosen});
        for (const int index : join.phones) {
            const PhraseNetwork::Phone& phone = network.phones[static_cast<std::size_t>(index)];
            Place next{.join = phone.to, .said = place.said, .rule = place.rule};
            std::vector<int> chosen_next = chosen;
            if (phone.word != PhraseNetwork::kNoWord) {
                if (next.said == words.size() || !SoundsAs(graph, words[next.said], phone.word))
                    continue;
                if (phone.choice) chosen_next.push_back(phone.word);
                next.rule = OwnerOf(graph, phone.word, next.rule);
                ++next.said;
            }
            open.emplace_back(next, std::move(chosen_next));
        }
    }
    return choices;
}

}  // namespace

PhraseRivals::PhraseRivals(const WordGraph& graph, const ModelDefinition& model)
    : graph_(graph), model_(model), whole_(NetworkOf(graph, model, [](int) { return true; })) {}

RivalMargins PhraseRivals::Margins(std::span<const int> words, const SenoneScores& scores) const {
    if (words.empty()) return {};
    const int rule = WordAt(graph_, words.front()).rule;
    // What says the same is no rival; the program itself decides whose it is.
    const auto same_words = ChoicesByRule(whole_, graph_, words);
    const auto is_rival = [&](int word) {
        return !same_words.contains(OwnerOf(graph_, word, kNoRule));
    };
    const PhraseNetwork own = NetworkOf(graph_, model_, [&](int word) {
        const int owner = OwnerOf(graph_, word, kNoRule);
        return owner == rule || owner == kNoRule;
    });
    const auto own_choices = ChoicesByRule(own, graph_, words);
    if (own_choices.empty()) return {};
    const std::vector<int>& choices = own_choices.begin()->second;
    const auto same = [&](int one, int other) { return SoundsAs(graph_, one, other); };

    PhraseSearch inside(
        own, {.words = choices,
              .step = [](const auto& phone) { return phone.choice ? Step::follow : Step::pass; },
              .same = same});
    PhraseSearch outside(
        whole_,
        {.words = {},
         .step = [&](const auto& phone) { return is_rival(phone.word) ? Step::pass : Step::avoid; },
         .same = same});
    Cost threshold = -kBeam;
    for (std::size_t frame = 0; frame < scores.Frames(); ++frame) {
        const auto costs = scores.Frame(frame);
        threshold = std::max(inside.Take(costs, threshold), outside.Take(costs, threshold)) - kBeam;
    }
    return {.rule = Margin(inside.Followed(), outside.Followed()),
            .choice = Margin(inside.Followed(), inside.Departed())};
}

}  // namespace corvane::engine
