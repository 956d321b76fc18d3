// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/phrase_network.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace corvane::engine {
namespace {

using Arc = WordGraph::Arc;
using Position = ModelDefinition::Position;
using Phones = std::vector<std::size_t>;
using PhoneSet = std::set<std::size_t>;

// So many letters in one place are a list of them; fewer are spelled out, as in "c d rom".
constexpr int kAlphabet = 6;

Phones PhonesOf(const std::string& pronunciation, const ModelDefinition& model) {
    Phones phones;
    std::istringstream names(pronunciation);
    for (std::string name; names >> name;) {
        const auto phone = model.Phone(name);
        if (!phone) return {};
        phones.push_back(*phone);
    }
    return phones;
}

Position PositionOf(std::size_t index, std::size_t count) {
    if (count == 1) return Position::only;
    if (index == 0) return Position::first;
    return index + 1 == count ? Position::last : Position::inside;
}

class Speller {
public:
    Speller(const WordGraph& graph, const ModelDefinition& model,
            const std::function<bool(int)>& uses)
        : graph_(graph), model_(model), states_(static_cast<std::size_t>(graph.states)) {
        for (const Arc& arc : graph.arcs) {
            if (arc.word != WordGraph::kNoWord && !uses(arc.word)) continue;
            StateAt(arc.from).leaving.push_back(&arc);
            ++StateAt(arc.to).entering;
        }
        Visit(WordGraph::kStart);
        std::ranges::reverse(order_);
        FindNeighbours();
    }

    PhraseNetwork Spell() {
        const std::size_t silence = model_.Silence();
        for (const int state : order_) {
            if (StateAt(state).pause) AddPause(state);
            for (const Arc* arc : StateAt(state).leaving) {
                if (arc->word == WordGraph::kNoWord)
                    AddFree(*arc);
                else
                    AddWord(*arc);
            }
        }
        for (const std::size_t next : StateAt(WordGraph::kStart).after)
            Lead(PhraseNetwork::kStart, JoinOf(WordGraph::kStart, silence, next));
        for (const std::size_t last : StateAt(WordGraph::kFinal).before)
            Lead(JoinOf(WordGraph::kFinal, last, silence), PhraseNetwork::kEnd);
        return std::move(network_);
    }

private:
    struct State {
        std::vector<const Arc*> leaving;
        int entering = 0;
        bool visited = false;
        bool pause = false;  ///< may silence lie here?
        PhoneSet before;     ///< what can be heard right before it
        PhoneSet after;      ///< and right behind it
    };

    State& StateAt(int state) { return states_[static_cast<std::size_t>(state)]; }

    /// Depth first: a state comes to the order behind all that it leads to.
    void Visit(int first) {
        std::vector<std::pair<int, std::size_t>> way{{first, 0}};
        StateAt(first).visited = true;
        while (!way.empty()) {
            auto& [state, next] = way.back();
            const auto& leaving = StateAt(state).leaving;
            if (next == leaving.size()) {
                order_.push_back(state);
                way.pop_back();
                continue;
            }
            const int to = leaving[next++]->to;
            if (std::exchange(StateAt(to).visited, true)) continue;
            way.emplace_back(to, 0);
        }
    }

    void FindNeighbours() {
        const std::size_t silence = model_.Silence();
        StateAt(WordGraph::kStart).pause = true;
        StateAt(WordGraph::kStart).before.insert(silence);
        StateAt(WordGraph::kFinal).after.insert(silence);
        for (const int state : order_) {
            for (const Arc* arc : StateAt(state).leaving) {
                State& to = StateAt(arc->to);
                if (arc->word == WordGraph::kNoWord) {
                    to.before.insert(StateAt(state).before.begin(), StateAt(state).before.end());
                    continue;
                }
                to.pause = true;
                to.before.insert(silence);
                for (const Phones& way : Ways(arc->word)) to.before.insert(way.back());
            }
        }
        // By hand: clang 14, which builds the fuzz targets, can't reverse a view of this library.
        // NOLINTNEXTLINE(modernize-loop-convert)
        for (auto place = order_.rbegin(); place != order_.rend(); ++place) {
            const int state = *place;
            PhoneSet& after = StateAt(state).after;
            if (StateAt(state).pause) after.insert(silence);
            for (const Arc* arc : StateAt(state).leaving) {
                if (arc->word == WordGraph::kNoWord)
                    after.insert(StateAt(arc->to).after.begin(), StateAt(arc->to).after.end());
                else
                    for (const Phones& way : Ways(arc->word)) after.insert(way.front());
            }
        }
    }

    /// The pronunciations of a word.
    const std::vector<Phones>& Ways(int word) {
        const auto [entry, is_new] = ways_.try_emplace(word);
        if (is_new)
            for (const std::string& way :
                 graph_.words[static_cast<std::size_t>(word)].pronunciations)
                if (Phones phones = PhonesOf(way, model_); !phones.empty())
                    entry->second.push_back(std::move(phones));
        return entry->second;
    }

    int NewJoin() {
        network_.joins.emplace_back();
        return static_cast<int>(network_.joins.size()) - 1;
    }

    /// Where a state is reached from one phone and left for another.
    int JoinOf(int state, std::size_t last, std::size_t next) {
        const auto [entry, is_new] =
            joins_.try_emplace({state, static_cast<int>(last), static_cast<int>(next)}, 0);
        if (is_new) entry->second = NewJoin();
        return entry->second;
    }

    void Lead(int from, int to) {
        network_.joins[static_cast<std::size_t>(from)].free.push_back(to);
    }

    void Add(int from, const PhraseNetwork::Phone& phone) {
        network_.joins[static_cast<std::size_t>(from)].phones.push_back(
            static_cast<int>(network_.phones.size()));
        network_.phones.push_back(phone);
    }

    void AddPause(int state) {
        const std::size_t silence = model_.Silence();
        const int in = NewJoin();
        const int out = NewJoin();
        for (const std::size_t last : StateAt(state).before)
            if (last != silence) Lead(JoinOf(state, last, silence), in);
        if (state == WordGraph::kStart) Lead(PhraseNetwork::kStart, in);
        Add(in, {.senones = model_.Alone(silence),
                 .to = out,
                 .word = PhraseNetwork::kNoWord,
                 .choice = false,
                 .silence = true});
        for (const std::size_t next : StateAt(state).after) Lead(out, JoinOf(state, silence, next));
    }

    void AddFree(const Arc& arc) {
        for (const std::size_t last : StateAt(arc.from).before)
            for (const std::size_t next : StateAt(arc.to).after)
                Lead(JoinOf(arc.from, last, next), JoinOf(arc.to, last, next));
    }

    void AddWord(const Arc& arc) {
        const bool choice = IsChoice(arc);
        for (const Phones& way : Ways(arc.word)) {
            int between = 0;
            for (std::size_t i = 0; i < way.size(); ++i) {
                const bool first = i == 0;
                const bool last = i + 1 == way.size();
                const int reached = last ? 0 : NewJoin();
                const PhoneSet befores = first ? StateAt(arc.from).before : PhoneSet{way[i - 1]};
                const PhoneSet afters = last ? StateAt(arc.to).after : PhoneSet{way[i + 1]};
                for (const std::size_t before : befores)
                    for (const std::size_t after : afters)
                        Add(first ? JoinOf(arc.from, before, way[i]) : between,
                            {.senones =
                                 model_.Between(before, way[i], after, PositionOf(i, way.size())),
                             .to = last ? JoinOf(arc.to, way[i], after) : reached,
                             .word = first ? arc.word : PhraseNetwork::kNoWord,
                             .choice = choice,
                             .silence = false});
                between = reached;
            }
        }
    }

    /// Is it one letter of a list of them? They lead from the same state to the same.
    bool IsChoice(const Arc& arc) {
        const auto is_letter = [&](const Arc& some) {
            return some.word != WordGraph::kNoWord &&
                   graph_.words[static_cast<std::size_t>(some.word)].spelling.size() == 1;
        };
        if (!is_letter(arc)) return false;
        const auto letters = std::ranges::count_if(
            StateAt(arc.from).leaving,
            [&](const Arc* other) { return is_letter(*other) && other->to == arc.to; });
        return letters >= kAlphabet;
    }

    const WordGraph& graph_;
    const ModelDefinition& model_;
    std::vector<State> states_;
    std::vector<int> order_;  ///< no arc leads back in it
    std::map<int, std::vector<Phones>> ways_;
    std::map<std::array<int, 3>, int> joins_;
    PhraseNetwork network_;
};

}  // namespace

PhraseNetwork NetworkOf(const WordGraph& graph, const ModelDefinition& model,
                        const std::function<bool(int)>& uses) {
    return Speller(graph, model, uses).Spell();
}

}  // namespace corvane::engine
