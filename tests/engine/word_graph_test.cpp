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

    /// All sentences of the graph, each with the rules that its words are attributed to.
    static std::set<std::string> Sentences(const WordGraph& graph) {
        std::set<std::string> sentences;
        const std::function<void(int, const std::vector<int>&)> walk =
            [&](int state, const std::vector<int>& said) {
                if (state == WordGraph::kFinal) sentences.insert(Attributed(graph, said));
                for (const WordGraph::Arc& arc : graph.arcs) {
                    if (arc.from != state) continue;
                    std::vector<int> next = said;
                    if (arc.word != WordGraph::kNoWord) next.push_back(arc.word);
                    walk(arc.to, next);
                }
            };
        walk(WordGraph::kStart, {});
        return sentences;
    }

    static std::string Attributed(const WordGraph& graph, std::vector<int> path) {
        graph.Attribute(path);
        std::string sentence;
        for (const int index : path) {
            const auto& word = graph.words[static_cast<std::size_t>(index)];
            sentence +=
                (sentence.empty() ? "" : " ") + word.spelling + "@" + std::to_string(word.rule);
        }
        return sentence;
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

TEST_F(WordGraphTest, RulesThatBeginAndEndAlikeShareWhatIsAlike) {
    const auto keyword = [](const std::string& name) {
        return "<RULE NAME=\"" + name + R"(" TOPLEVEL="ACTIVE"><O>please</O><P>)" + name +
               "</P><O>please</O></RULE>";
    };
    const Grammar grammar =
        ParseGrammar(GrammarOf(keyword("close") + keyword("window") + keyword("please")));
    const WordGraph graph = Compile(grammar);
    EXPECT_EQ(Sentences(graph),
              (std::set<std::string>{"close@0", "close@0 please@0", "please@0 close@0",
                                     "please@0 close@0 please@0", "window@1", "window@1 please@1",
                                     "please@1 window@1", "please@1 window@1 please@1", "please@2",
                                     "please@2 please@2", "please@2 please@2 please@2"}));
    // Each keyword once, the shared words and the ways past them once for all.
    EXPECT_EQ(graph.arcs.size(), 3U + 2U + 2U);
}

TEST_F(WordGraphTest, SharedWordAloneIsOfTheFirstRuleThatBeginsSo) {
    const auto rule = [](const std::string& name, const std::string& word) {
        return "<RULE NAME=\"" + name + R"(" TOPLEVEL="ACTIVE"><P>please</P><P>)" + word +
               "</P></RULE>";
    };
    const WordGraph graph = Compile(
        ParseGrammar(GrammarOf(RuleOf("x", "a") + rule("y", "close") + rule("z", "window"))));
    std::size_t shared = 0;
    for (std::size_t i = 0; i < graph.words.size(); ++i) {
        if (!graph.words[i].shared) continue;
        ++shared;
        EXPECT_EQ(Attributed(graph, {static_cast<int>(i)}), "please@1");
    }
    EXPECT_EQ(shared, 1U);
}

TEST_F(WordGraphTest, RulesThatSoundAlikeAreEachSearched) {
    EXPECT_EQ(Sentences(Compile(ParseGrammar(
                  GrammarOf(RuleOf("x", "close window") + RuleOf("y", "close window"))))),
              (std::set<std::string>{"close@0 window@0", "close@1 window@1"}));
}

TEST_F(WordGraphTest, RuleThatIsTheBeginningOfAnotherKeepsItsSentence) {
    const Grammar grammar = ParseGrammar(
        GrammarOf(R"(<RULE NAME="x" TOPLEVEL="ACTIVE"><P>close</P></RULE>)"
                  R"(<RULE NAME="y" TOPLEVEL="ACTIVE"><P>close</P><O>window</O></RULE>)"
                  R"(<RULE NAME="z" TOPLEVEL="ACTIVE"><P>close</P><O>window</O><P>a</P></RULE>)"));
    EXPECT_EQ(Sentences(Compile(grammar)),
              (std::set<std::string>{"close@0", "close@1", "close@1 window@1", "close@2 a@2",
                                     "close@2 window@2 a@2"}));
}

TEST_F(WordGraphTest, CanGoOnWhileAnyRuleThatTheWordsMayBelongToHasMore) {
    const WordGraph graph = Compile(
        ParseGrammar(GrammarOf(RuleOf("x", "close") +
                               R"(<RULE NAME="y" TOPLEVEL="ACTIVE"><P>close</P><P>window</P>)"
                               R"(<O>please</O></RULE>)" +
                               RuleOf("z", "a window"))));
    const auto said_by = [&](std::size_t rule, const std::vector<std::string>& said) {
        std::vector<int> path;
        for (const std::string& word : said)
            for (int i = graph.first_words[rule]; i < graph.first_words[rule + 1]; ++i)
                if (graph.words[static_cast<std::size_t>(i)].spelling == word) path.push_back(i);
        return path;
    };
    EXPECT_TRUE(graph.CanGoOn({})) << "nothing was said yet";
    EXPECT_TRUE(graph.CanGoOn(said_by(0, {"close"}))) << "it may become the other rule";
    EXPECT_TRUE(graph.CanGoOn(said_by(1, {"close", "window"}))) << "an optional word may follow";
    EXPECT_FALSE(graph.CanGoOn(said_by(1, {"close", "window", "please"})));
    EXPECT_FALSE(graph.CanGoOn(said_by(2, {"a", "window"})));
}

TEST_F(WordGraphTest, PhraseTooLongToBeSaidTakesOnlyItsOwnRuleAway) {
    std::string phrase;
    for (std::size_t i = 0; i <= kLongestPhrase; ++i) phrase += "a ";
    EXPECT_EQ(Sentences(Compile(
                  ParseGrammar(GrammarOf(RuleOf("bad", phrase) + RuleOf("good", "close"))))),
              std::set<std::string>{"close@1"});
}

TEST_F(WordGraphTest, SizeIsThatOfTheGraphWhenAllWordsHaveASound) {
    const Grammar grammar =
        ParseGrammar(GrammarOf(RuleOf("x", "a close") + RuleOf("y", "window --- please")));
    EXPECT_EQ(SizeOfGraph(grammar).arcs, 5);
    EXPECT_EQ(SizeOfGraph(grammar).states, 2 + 1 + 2);
}

TEST_F(WordGraphTest, SpellingsThatSoundAlikeStayApart) {
    const Grammar grammar = ParseGrammar(GrammarOf(
        R"(<RULE NAME="x" TOPLEVEL="ACTIVE"><O>Please</O><P>close</P><O>please</O></RULE>)"));
    const WordGraph graph = Compile(grammar);
    EXPECT_EQ(graph.words.front().spelling, "Please");
    EXPECT_EQ(graph.words.back().spelling, "please");
    EXPECT_EQ(graph.words.front().pronunciations, graph.words.back().pronunciations);
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
