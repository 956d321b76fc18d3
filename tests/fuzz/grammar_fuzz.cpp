// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// A grammar file of any content, from the loader to the graph that is searched: it is refused with
// a reason, or it is a grammar that holds what the loader promises.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "engine/grammar/grammar_loader.h"
#include "engine/grammar/lexicon.h"
#include "engine/grammar/word_graph.h"
#include "platform/error.h"
#include "require.h"

namespace {

using namespace corvane;
using namespace corvane::engine;
using fuzz::Require;

/// A dictionary of a few words, so that most are said by their letters.
const std::string& DictionaryPath() {
    static const std::string path = [] {
        std::string name = std::filesystem::temp_directory_path() / "corvane-fuzz-dictionary";
        std::ofstream(name) << "please P L IY Z\nopen OW P AH N\na AH\na(2) EY\n";
        return name;
    }();
    return path;
}

void CheckGrammar(const Grammar& grammar) {
    std::set<std::string> names;
    for (const GrammarRule& rule : grammar.rules) {
        Require(!rule.name.empty() && names.insert(rule.name).second, "names are unique");
        Require(!rule.elements.empty(), "a rule has phrases");
        for (const GrammarElement& element : rule.elements) {
            Require(!element.choices.empty(), "a list has members");
            for (const Phrase& phrase : element.choices) {
                Require(!phrase.empty(), "a phrase has words");
                for (const std::string& word : phrase) Require(!word.empty(), "a word has letters");
            }
        }
    }
    Require(!names.empty(), "a grammar has rules");
}

void CheckGraph(const Grammar& grammar) {
    Lexicon lexicon{Dictionary(DictionaryPath())};
    lexicon.Learn(grammar);
    std::vector<const GrammarRule*> rules;
    for (const GrammarRule& rule : grammar.rules) rules.push_back(&rule);
    const WordGraph graph = CompileGraph(rules, lexicon);
    Require(graph.states <= GrammarLimits::kStates, "the graph is bounded");
    for (const WordGraph::Arc& arc : graph.arcs) {
        Require(arc.from >= 0 && arc.from < graph.states, "an arc comes from a state");
        Require(arc.to > 0 && arc.to < graph.states, "an arc leads to a state");
        if (arc.word == WordGraph::kNoWord) continue;
        std::vector<int> path{arc.word};
        const WordGraph::Word word = graph.words.at(static_cast<std::size_t>(arc.word));
        Require(word.searched && !word.pronunciations.empty(), "a word on an arc can be said");
        graph.Attribute(path);
        const WordGraph::Word& own = graph.words.at(static_cast<std::size_t>(path[0]));
        Require(own.spelling == word.spelling && !own.shared, "a word is attributed to a rule");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Grammar grammar;
    try {
        grammar = ParseGrammar({reinterpret_cast<const char*>(data), size});
    } catch (const RuntimeError& error) {
        Require(error.number() == kAutomationError, "a refusal has its number");
        return 0;
    }
    CheckGrammar(grammar);
    CheckGraph(grammar);
    return 0;
}
