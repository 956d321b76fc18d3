// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/word_graph.h"

#include <algorithm>
#include <map>

namespace corvane::engine {
namespace {

bool CanBeSaid(const GrammarRule& rule, const Lexicon& lexicon) {
    return std::ranges::all_of(rule.elements, [&](const GrammarElement& element) {
        return std::ranges::all_of(element.choices, [&](const Phrase& phrase) {
            return std::ranges::none_of(phrase, [&](const std::string& word) {
                return lexicon.Pronunciations(word).empty();
            });
        });
    });
}

class RuleCompiler {
public:
    RuleCompiler(WordGraph& graph, const Lexicon& lexicon, int rule)
        : graph_(graph), lexicon_(lexicon), rule_(rule) {}

    void Compile(const GrammarRule& rule) {
        int state = NewState();
        Connect(WordGraph::kStart, state, WordGraph::kNoWord);
        for (const GrammarElement& element : rule.elements) {
            const int next = NewState();
            for (const Phrase& phrase : element.choices) AddPhrase(state, next, phrase);
            if (element.optional) Connect(state, next, WordGraph::kNoWord);
            state = next;
        }
        Connect(state, WordGraph::kFinal, WordGraph::kNoWord);
    }

private:
    void AddPhrase(int from, int to, const Phrase& phrase) {
        int state = from;
        for (const std::string& word : phrase) {
            const int next = &word == &phrase.back() ? to : NewState();
            Connect(state, next, WordIndex(word));
            state = next;
        }
    }

    int NewState() { return graph_.states++; }

    void Connect(int from, int to, int word) {
        graph_.arcs.push_back({.from = from, .to = to, .word = word});
    }

    int WordIndex(const std::string& spelling) {
        const auto [entry, is_new] =
            indexes_.try_emplace(spelling, static_cast<int>(graph_.words.size()));
        if (is_new)
            graph_.words.push_back({.spelling = spelling,
                                    .rule = rule_,
                                    .pronunciations = lexicon_.Pronunciations(spelling)});
        return entry->second;
    }

    WordGraph& graph_;
    const Lexicon& lexicon_;
    int rule_;
    std::map<std::string, int> indexes_;
};

}  // namespace

WordGraph CompileGraph(std::span<const GrammarRule* const> rules, const Lexicon& lexicon) {
    WordGraph graph;
    for (std::size_t i = 0; i < rules.size(); ++i)
        if (CanBeSaid(*rules[i], lexicon))
            RuleCompiler(graph, lexicon, static_cast<int>(i)).Compile(*rules[i]);
    return graph;
}

}  // namespace corvane::engine
