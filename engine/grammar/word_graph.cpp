// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/word_graph.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace corvane::engine {
namespace {

/// A rule's phrases, all of them, hold against the test.
template <typename Test>
bool AllPhrases(const GrammarRule& rule, const Test& test) {
    return std::ranges::all_of(rule.elements, [&](const GrammarElement& element) {
        return std::ranges::all_of(element.choices, test);
    });
}

bool IsShortEnough(const GrammarRule& rule) {
    return AllPhrases(rule, [](const Phrase& phrase) { return phrase.size() <= kLongestPhrase; });
}

bool HasSound(const GrammarRule& rule, const Lexicon& lexicon) {
    return AllPhrases(rule, [&](const Phrase& phrase) {
        return std::ranges::none_of(
            phrase, [&](const std::string& word) { return lexicon.Pronunciations(word).empty(); });
    });
}

/// Alike for elements that are alike. The signs that part them can't stand in a grammar.
std::string Signature(const GrammarElement& element) {
    std::string signature = element.optional ? "O" : "P";
    for (const Phrase& phrase : element.choices) {
        signature += '\1';
        for (const std::string& word : phrase) signature += '\2' + word;
    }
    return signature;
}

/// A rule by the numbers of its elements; alike elements have one number.
using Sequence = std::vector<int>;

/// Where a rule parts from those that begin as it does, and where it may meet others again.
struct Own {
    std::size_t begin = 0;
    std::size_t end = 0;
};

class GraphCompiler {
public:
    /// Without a lexicon the words stay without a sound, and none is missed.
    GraphCompiler(std::span<const GrammarRule* const> rules, const Lexicon* lexicon)
        : rules_(rules), lexicon_(lexicon) {
        for (const GrammarRule* rule : rules)
            sequences_.push_back(CanBeSaid(*rule) ? SequenceOf(*rule) : Sequence{});
        for (const Sequence& sequence : sequences_) CountBeginnings(sequence);
    }

    WordGraph Compile() {
        for (std::size_t rule = 0; rule < rules_.size(); ++rule) {
            graph_.first_words.push_back(static_cast<int>(graph_.words.size()));
            AddWordsOf(rule);
        }
        graph_.first_words.push_back(static_cast<int>(graph_.words.size()));
        for (std::size_t rule = 0; rule < rules_.size(); ++rule)
            if (!sequences_[rule].empty()) AddRule(rule);
        return std::move(graph_);
    }

private:
    [[nodiscard]] bool CanBeSaid(const GrammarRule& rule) const {
        return IsShortEnough(rule) && (lexicon_ == nullptr || HasSound(rule, *lexicon_));
    }

    [[nodiscard]] std::vector<std::string> WaysToSay(const std::string& word) const {
        return lexicon_ == nullptr ? std::vector<std::string>() : lexicon_->Pronunciations(word);
    }

    Sequence SequenceOf(const GrammarRule& rule) {
        Sequence sequence;
        for (const GrammarElement& element : rule.elements)
            sequence.push_back(
                numbers_.try_emplace(Signature(element), static_cast<int>(numbers_.size()))
                    .first->second);
        return sequence;
    }

    void CountBeginnings(const Sequence& sequence) {
        int node = 0;
        for (const int element : sequence) {
            const auto next =
                tree_.try_emplace({node, element}, static_cast<int>(beginnings_.size())).first;
            node = next->second;
            if (static_cast<std::size_t>(node) == beginnings_.size()) beginnings_.push_back(0);
            ++beginnings_[static_cast<std::size_t>(node)];
        }
    }

    /// From the first element in which the rule is alone to the first behind it that must be said.
    /// Without one, as of two rules that sound alike, all of the rule is its own.
    [[nodiscard]] Own OwnPart(std::size_t rule) const {
        const Sequence& sequence = sequences_[rule];
        const std::vector<GrammarElement>& elements = rules_[rule]->elements;
        std::size_t begin = 0;
        for (int node = 0; begin < sequence.size(); ++begin) {
            node = tree_.at({node, sequence[begin]});
            if (beginnings_[static_cast<std::size_t>(node)] == 1) break;
        }
        for (std::size_t i = begin; i < sequence.size(); ++i)
            if (!elements[i].optional) return {.begin = begin, .end = i + 1};
        return {.begin = 0, .end = sequence.size()};
    }

    void AddWordsOf(std::size_t rule) {
        if (sequences_[rule].empty()) return;
        own_words_.clear();
        for (const GrammarElement& element : rules_[rule]->elements)
            for (const Phrase& phrase : element.choices)
                for (const std::string& word : phrase)
                    if (own_words_.try_emplace(word, 0).second)
                        graph_.words.push_back({.spelling = word,
                                                .rule = static_cast<int>(rule),
                                                .shared = false,
                                                .searched = false,
                                                .pronunciations = WaysToSay(word)});
    }

    void AddRule(std::size_t rule) {
        const auto [begin, end] = OwnPart(rule);
        const std::vector<GrammarElement>& elements = rules_[rule]->elements;

        int state = WordGraph::kStart;
        for (std::size_t i = 0; i < begin; ++i) state = SharedBeginning(state, rule, i);

        own_words_.clear();
        for (int word = graph_.first_words[rule]; word < graph_.first_words[rule + 1]; ++word)
            own_words_[graph_.words[static_cast<std::size_t>(word)].spelling] = word;
        for (std::size_t i = begin; i < end; ++i) {
            const int next = i + 1 < end ? NewState() : SharedEnd(rule, end);
            AddElement(state, next, elements[i], [this](const std::string& spelling) {
                const int word = own_words_.at(spelling);
                graph_.words[static_cast<std::size_t>(word)].searched = true;
                return word;
            });
            state = next;
        }
    }

    /// The state behind this element of a beginning that several rules have.
    int SharedBeginning(int from, std::size_t rule, std::size_t element) {
        const auto [entry, is_new] =
            shared_beginnings_.try_emplace({from, sequences_[rule][element]}, 0);
        if (is_new) {
            entry->second = NewState();
            AddShared(from, entry->second, rule, element);
        }
        return entry->second;
    }

    /// The state before this rest of a rule, from which other rules too may come to their end.
    int SharedEnd(std::size_t rule, std::size_t begin) {
        int state = WordGraph::kFinal;
        for (std::size_t i = sequences_[rule].size(); i > begin; --i) {
            const auto [entry, is_new] =
                shared_ends_.try_emplace({state, sequences_[rule][i - 1]}, 0);
            if (is_new) {
                entry->second = NewState();
                AddShared(entry->second, state, rule, i - 1);
            }
            state = entry->second;
        }
        return state;
    }

    void AddShared(int from, int to, std::size_t rule, std::size_t element) {
        std::map<std::string, int> words;
        AddElement(from, to, rules_[rule]->elements[element], [&](const std::string& spelling) {
            const auto [entry, is_new] =
                words.try_emplace(spelling, static_cast<int>(graph_.words.size()));
            if (is_new)
                graph_.words.push_back({.spelling = spelling,
                                        .rule = static_cast<int>(rule),
                                        .shared = true,
                                        .searched = true,
                                        .pronunciations = WaysToSay(spelling)});
            return entry->second;
        });
    }

    template <typename WordOf>
    void AddElement(int from, int to, const GrammarElement& element, const WordOf& word_of) {
        for (const Phrase& phrase : element.choices) {
            int state = from;
            for (const std::string& word : phrase) {
                const int next = &word == &phrase.back() ? to : NewState();
                Connect(state, next, word_of(word));
                state = next;
            }
        }
        if (element.optional) Connect(from, to, WordGraph::kNoWord);
    }

    int NewState() { return graph_.states++; }

    void Connect(int from, int to, int word) {
        graph_.arcs.push_back({.from = from, .to = to, .word = word});
    }

    using Edge = std::pair<int, int>;  ///< a place and the number of an element

    std::span<const GrammarRule* const> rules_;
    const Lexicon* lexicon_;
    std::map<std::string, int> numbers_;
    std::vector<Sequence> sequences_;  ///< by rule; empty: can't be said
    std::map<Edge, int> tree_;         ///< of all rules' beginnings
    std::vector<int> beginnings_{0};   ///< by node of the tree: how many rules begin so
    std::map<Edge, int> shared_beginnings_;
    std::map<Edge, int> shared_ends_;
    std::map<std::string, int> own_words_;  ///< of the rule at hand
    WordGraph graph_;
};

}  // namespace

bool WordGraph::CanGoOn(std::span<const int> said) const {
    std::multimap<int, const Arc*> leaving;
    for (const Arc& arc : arcs) leaving.emplace(arc.from, &arc);
    // Where one can be behind so many words; by their spelling, since they may be another rule's.
    std::set<std::pair<int, std::size_t>> seen;
    std::vector<std::pair<int, std::size_t>> open{{kStart, 0}};
    while (!open.empty()) {
        const auto [state, count] = open.back();
        open.pop_back();
        if (!seen.emplace(state, count).second) continue;
        const auto [first, last] = leaving.equal_range(state);
        for (auto entry = first; entry != last; ++entry) {
            const Arc& arc = *entry->second;
            if (arc.word == kNoWord) {
                open.emplace_back(arc.to, count);
            } else if (count == said.size()) {
                return true;
            } else if (words[static_cast<std::size_t>(arc.word)].spelling ==
                       words[static_cast<std::size_t>(said[count])].spelling) {
                open.emplace_back(arc.to, count + 1);
            }
        }
    }
    return false;
}

void WordGraph::Attribute(std::span<int> path) const {
    const auto word_at = [this](int word) -> const Word& {
        return words[static_cast<std::size_t>(word)];
    };
    if (path.empty()) return;
    const auto own = std::ranges::find_if(path, [&](int word) { return !word_at(word).shared; });
    const auto rule =
        static_cast<std::size_t>(word_at(own == path.end() ? path.front() : *own).rule);
    for (int& word : path) {
        const auto begin = words.begin() + first_words[rule];
        const auto end = words.begin() + first_words[rule + 1];
        const auto same = std::find_if(begin, end, [&](const Word& other) {
            return other.spelling == word_at(word).spelling;
        });
        if (same != end) word = static_cast<int>(same - words.begin());
    }
}

WordGraph CompileGraph(std::span<const GrammarRule* const> rules, const Lexicon& lexicon) {
    return GraphCompiler(rules, &lexicon).Compile();
}

GraphSize SizeOfGraph(const Grammar& grammar) {
    std::vector<const GrammarRule*> rules;
    for (const GrammarRule& rule : grammar.rules) rules.push_back(&rule);
    const WordGraph graph = GraphCompiler(rules, nullptr).Compile();
    return {.states = graph.states, .arcs = static_cast<int>(graph.arcs.size())};
}

}  // namespace corvane::engine
