// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/word_graph.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "engine/grammar/grammar_loader.h"
#include "support/room.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

using testing::GrammarOf;
using testing::RuleOf;

class WordGraphTest : public ::testing::Test {
protected:
    WordGraph Compile(const Grammar& grammar) {
        lexicon.Learn(grammar);
        std::vector<const GrammarRule*> rules;
        for (const GrammarRule& rule : grammar.rules) rules.push_back(&rule);
        return CompileGraph(rules, lexicon);
    }

    /// All sentences of the graph, each with the rules of its words.
    static std::set<std::string> Sentences(const WordGraph& graph) {
        std::set<std::string> sentences;
        const std::function<void(int, const std::string&)> walk = [&](int state,
                                                                      const std::string& said) {
            if (state == WordGraph::kFinal) sentences.insert(said);
            for (const WordGraph::Arc& arc : graph.arcs) {
                if (arc.from != state) continue;
                std::string next = said;
                if (arc.word != WordGraph::kNoWord) {
                    const auto& word = graph.words[static_cast<std::size_t>(arc.word)];
                    next +=
                        (said.empty() ? "" : " ") + word.spelling + "@" + std::to_string(word.rule);
                }
                walk(arc.to, next);
            }
        };
        walk(WordGraph::kStart, "");
        return sentences;
    }

    testing::TemporaryFile words{
        "a AH\na(2) EY\nclose K L OW Z\nplease P L IY Z\nwindow W IH N D OW\n"};
    Lexicon lexicon{Dictionary(words.Path())};
};

TEST_F(WordGraphTest, HoldsEverySentenceOfEveryRuleAndNoOther) {
    const Grammar grammar = ParseGrammar(
        GrammarOf(R"(<RULE NAME="x" TOPLEVEL="ACTIVE"><O>please</O><P><L><P>close</P><P>a )"
                  "window</P></L></P>"
                  "</RULE>" +
                  RuleOf("y", "close")));
    EXPECT_EQ(Sentences(Compile(grammar)),
              (std::set<std::string>{"close@0", "a@0 window@0", "please@0 close@0",
                                     "please@0 a@0 window@0", "close@1"}));
}

TEST_F(WordGraphTest, SpellingsThatSoundAlikeStayApart) {
    const Grammar grammar = ParseGrammar(GrammarOf(
        R"(<RULE NAME="x" TOPLEVEL="ACTIVE"><O>Please</O><P>close</P><O>please</O></RULE>)"));
    const WordGraph graph = Compile(grammar);
    ASSERT_EQ(graph.words.size(), 3U);
    EXPECT_EQ(graph.words[0].spelling, "Please");
    EXPECT_EQ(graph.words[0].pronunciations, graph.words[2].pronunciations);
}

TEST_F(WordGraphTest, WordWithoutSoundTakesOnlyItsOwnRuleAway) {
    const Grammar grammar =
        ParseGrammar(GrammarOf(RuleOf("bad", "close ---") + RuleOf("good", "close")));
    const WordGraph graph = Compile(grammar);
    EXPECT_EQ(Sentences(graph), std::set<std::string>{"close@1"});
}

TEST_F(WordGraphTest, NoRulesMakeAGraphInWhichNothingIsSaid) {
    const WordGraph graph = CompileGraph({}, lexicon);
    EXPECT_TRUE(Sentences(graph).empty());
}

TEST_F(WordGraphTest, DictionaryIsAskedInAnyCaseAndGivesEveryWayToSayAWord) {
    lexicon.Learn(ParseGrammar(GrammarOf(RuleOf("x", "A CLOSE"))));
    EXPECT_EQ(lexicon.Pronunciations("A"), (std::vector<std::string>{"AH", "EY"}));
    EXPECT_EQ(lexicon.Pronunciations("CLOSE"), std::vector<std::string>{"K L OW Z"});
}

TEST_F(WordGraphTest, WordInNoDictionaryIsSaidByItsLetters) {
    lexicon.Learn(ParseGrammar(GrammarOf(RuleOf("x", "corvane"))));
    EXPECT_EQ(lexicon.Pronunciations("corvane"), std::vector<std::string>{"K AO R V EY N"});
}

}  // namespace
}  // namespace corvane::engine
