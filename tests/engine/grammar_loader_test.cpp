// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/grammar_loader.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "platform/error.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

std::string InRule(const std::string& body) {
    return R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE">)" + body +
           "</RULE></GRAMMAR>";
}

TEST(GrammarLoader, ReadsPhrasesOptionsAndListsInTheirOwnSpelling) {
    const Grammar grammar = ParseGrammar(InRule(
        "<O>\r\n <L>\r\n  <P>Please</P>\r\n  <P>Will  you</P>\r\n </L>\r\n</O>\r\n<P>close</P>"));
    ASSERT_EQ(grammar.rules.size(), 1U);
    const GrammarRule& rule = grammar.rules[0];
    EXPECT_EQ(rule.name, "r");
    EXPECT_EQ(rule.id, 0);
    EXPECT_TRUE(rule.marked_active);
    ASSERT_EQ(rule.elements.size(), 2U);
    EXPECT_TRUE(rule.elements[0].optional);
    EXPECT_EQ(rule.elements[0].choices, (std::vector<Phrase>{{"Please"}, {"Will", "you"}}));
    EXPECT_FALSE(rule.elements[1].optional);
    EXPECT_EQ(rule.elements[1].choices, (std::vector<Phrase>{{"close"}}));
}

TEST(GrammarLoader, ReadsIdsAndInactiveRules) {
    const Grammar grammar = ParseGrammar(
        R"(<GRAMMAR LANGID="0409"><RULE NAME="r" ID="7" TOPLEVEL="INACTIVE"><P>a</P></RULE></GRAMMAR>)");
    EXPECT_EQ(grammar.rules[0].id, 7);
    EXPECT_FALSE(grammar.rules[0].marked_active);
}

TEST(GrammarLoader, MarkupCharactersMayStandAsReferences) {
    EXPECT_EQ(ParseGrammar(InRule("<P>at&amp;t</P>")).rules[0].elements[0].choices[0],
              Phrase{"at&t"});
}

TEST(GrammarLoader, CommentsAndAnXmlDeclarationMayStandBesideTheRules) {
    const Grammar grammar = ParseGrammar("\xEF\xBB\xBF<?xml version=\"1.0\"?>\n<!-- mine -->" +
                                         InRule("<!-- a --><P>note<!-- b -->pad</P>") + "\n\n");
    EXPECT_EQ(grammar.rules[0].elements[0].choices[0], Phrase{"notepad"});
}

TEST(GrammarLoader, LettersOfAllScriptsAreReadAsTheyStand) {
    EXPECT_EQ(ParseGrammar(InRule("<P>Übersicht 日本</P>")).rules[0].elements[0].choices[0],
              (Phrase{"Übersicht", "日本"}));
}

TEST(GrammarLoader, NamesThatDifferInCaseOrBlanksAreTwoNames) {
    EXPECT_EQ(ParseGrammar(R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P>)"
                           R"(</RULE><RULE NAME="R" TOPLEVEL="ACTIVE"><P>a</P></RULE>)"
                           R"(<RULE NAME="r " TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)")
                  .rules.size(),
              3U);
}

class RefusedGrammar : public ::testing::TestWithParam<const char*> {};

TEST_P(RefusedGrammar, IsNoGrammarAtAll) {
    try {
        (void)ParseGrammar(GetParam());
        ADD_FAILURE() << "was accepted";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), kAutomationError);
    }
}

INSTANTIATE_TEST_SUITE_P(
    GrammarLoader, RefusedGrammar,
    ::testing::Values(
        "", "words", "<GRAMMAR", R"(<GRAMMAR LANGID="409"></GRAMMAR>)",
        R"(<GRAMMAR><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="407"><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409" X="1"><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<grammar LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE></grammar>)",
        // Rules: nameless, not top level, empty, of a name or an Id twice, cut out of the file.
        R"(<GRAMMAR LANGID="409"><RULE NAME="" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="YES"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE>)"
        R"(<RULE NAME="r" TOPLEVEL="ACTIVE"><P>b</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" ID="1" TOPLEVEL="ACTIVE"><P>a</P></RULE>)"
        R"(<RULE NAME="s" ID="1" TOPLEVEL="ACTIVE"><P>b</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" ID="x" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" ID="0" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE>)",
        // What may stand in a rule.
        R"(<GRAMMAR LANGID="409">a<RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE">b<P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P></P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P> </P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P X="1">a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P><P>a</P></P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><L><P>a</P></L></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><RULEREF/></RULE></GRAMMAR>)",
        // Lists.
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P><L></L></P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a<L><P>b</P></L></P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P><L><P>b</P></L>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P><L><P>a</P></L><L><P>b</P></L></P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P><L><O>a</O></L></P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P><L>a</L></P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P><L><P><L><P>a</P></L></P></L></P></RULE></GRAMMAR>)",
        // What a keyword with a markup character does to the file.
        R"(<GRAMMAR LANGID="409"><RULE NAME="a"b" TOPLEVEL="ACTIVE"><P>a"b</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="a<b" TOPLEVEL="ACTIVE"><P>a<b</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="a&b" TOPLEVEL="ACTIVE"><P>a&b</P></RULE></GRAMMAR>)",
        // What a removal of a keyword that has no rule leaves, and other ruins.
        R"(<RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>x)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR><GRAMMAR/>)",
        R"(<GRAMMAR LANGID=""><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409 "><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="  " TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" NAME="s" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        R"(<GRAMMAR LANGID="409"><RULE NAME="r" ID="99999999999" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        "<GRAMMAR LANGID=\"409\"><RULE NAME=\"r\" TOPLEVEL=\"ACTIVE\"><P>\xFF</P></RULE></GRAMMAR>",
        R"(<GRAMMAR LANGID="409"><?run me?><RULE NAME="r" TOPLEVEL="ACTIVE"><P>a</P></RULE></GRAMMAR>)",
        // Entities could make a small file a large grammar.
        R"(<!DOCTYPE GRAMMAR [<!ENTITY e "a">]><GRAMMAR LANGID="409"><RULE NAME="r" TOPLEVEL="ACTIVE"><P>&e;</P></RULE></GRAMMAR>)",
        "<!DOCTYPE GRAMMAR SYSTEM \"other\"><GRAMMAR LANGID=\"409\"><RULE NAME=\"r\" "
        "TOPLEVEL=\"ACTIVE\"><P>a</P></RULE></GRAMMAR>"));

TEST(GrammarLoader, MissingFileIsToldApart) {
    try {
        (void)LoadGrammar("/nowhere/keywords.xml");
        ADD_FAILURE() << "was found";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), kFileNotFound);
    }
}

TEST(GrammarLoader, FileThatMayNotBeReadIsToldApart) {
    if (geteuid() == 0) GTEST_SKIP() << "root may read every file";
    const testing::TemporaryFile file("<GRAMMAR");
    std::filesystem::permissions(file.Path(), std::filesystem::perms::none);
    try {
        (void)LoadGrammar(file.Path());
        ADD_FAILURE() << "was read";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), kDeviceIOError);
    }
}

TEST(GrammarLoader, ReportTellsTheLine) {
    const testing::TemporaryFile file("<GRAMMAR LANGID=\"409\">\r\n<X/>\r\n</GRAMMAR>\r\n");
    try {
        (void)LoadGrammar(file.Path());
        ADD_FAILURE() << "was accepted";
    } catch (const RuntimeError& error) {
        EXPECT_NE(std::string(error.what()).find("line 2"), std::string::npos) << error.what();
    }
}

TEST(GrammarLoader, CommandGrammarOfTheSystemIsRead) {
    const Grammar grammar = LoadGrammar(CORVANE_PROJECT_FOLDER "/data/keywords.xml");
    EXPECT_GE(grammar.rules.size(), 33U);
    EXPECT_EQ(grammar.rules.front().name, "dictation notepad");
}

}  // namespace
}  // namespace corvane::engine
