// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "grammar/command_grammar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "grammar/builtin_rules.h"
#include "simulated/simulated_desktop.h"
#include "simulated/spoken_grammar.h"
#include "support/desk.h"
#include "support/expect_error.h"

namespace corvane {
namespace {

using testing::BuiltinGrammar;

class CommandGrammarTest : public ::testing::Test {
protected:
    [[nodiscard]] std::string Created() {
        desktop.files.Put("/k.xml", "whatever stood here");
        grammar.CreateKeywordsXML();
        return desktop.files.Bytes("/k.xml").value();
    }
    [[nodiscard]] std::vector<simulated::SpokenRule> Rules() {
        return simulated::ParseGrammar(Created()).value();
    }
    [[nodiscard]] std::string RuleThatAccepts(const std::string& phrase) {
        for (const auto& rule : Rules())
            if (rule.Accepts(phrase)) return rule.name;
        return {};
    }

    simulated::SimulatedDesktop desktop;
    DataPaths paths{.KeywordsXmlPath = "/k.xml"};
    CommandGrammar grammar{desktop.files, paths};
};

TEST_F(CommandGrammarTest, TheBuiltInTextIsRightToTheByte) {
    EXPECT_EQ(Created(), BuiltinGrammar());
}

TEST_F(CommandGrammarTest, WrittenTwiceItIsTheSameFileOf319LinesAnd33Rules) {
    const std::string first = Created();
    EXPECT_EQ(Created(), first);
    EXPECT_EQ(std::ranges::count(first, '\n'), 319);
    EXPECT_EQ(std::ranges::count(first, '\r'), 319);
    EXPECT_EQ(Rules().size(), 33U);
}

TEST_F(CommandGrammarTest, WithoutAPresentFileNothingIsWritten) {
    EXPECT_ERROR(kFileNotFound, (grammar.CreateKeywordsXML(), 0));
    EXPECT_FALSE(desktop.files.Bytes("/k.xml").has_value());
}

TEST_F(CommandGrammarTest, AFullDiskLeavesATruncatedFile) {
    desktop.files.Put("/k.xml", "");
    desktop.record.Fail("WriteLine", kDiskFull, 2);
    EXPECT_ERROR(kDiskFull, (grammar.CreateKeywordsXML(), 0));
    EXPECT_EQ(
        desktop.files.Bytes("/k.xml"),
        "<GRAMMAR LANGID=\"409\">\r\n<RULE NAME=\"dictation notepad\" TOPLEVEL=\"ACTIVE\">\r\n");
}

TEST_F(CommandGrammarTest, EveryRuleIsActiveAndHasNoId) {
    for (const auto& rule : Rules()) {
        EXPECT_TRUE(rule.top_level) << rule.name;
        EXPECT_EQ(rule.id, 0) << rule.name;
    }
}

TEST_F(CommandGrammarTest, NoTwoRulesShareAName) {
    std::set<std::string_view> names;
    for (const BuiltinRule& rule : kBuiltinRules) names.insert(rule.name);
    EXPECT_EQ(names.size(), kBuiltinRules.size());
}

TEST_F(CommandGrammarTest, EachCommandIsSaidAsPeopleSayIt) {
    const std::pair<const char*, const char*> said[] = {
        {"start dictation pad", "dictation notepad"},
        {"dictation", "dictate"},
        {"hide corvane", "hide corvane"},
        {"show corvane", "show corvane"},
        {"copy selected text", "copy"},
        {"paste text", "paste"},
        {"yes", "yes"},
        {"no", "no"},
        {"cancel", "cancel"},
        {"okay", "okay"},
        {"hang up the internet please", "disconnect from net"},
        {"connect to the world wide web", "connect to net"},
        {"how much ram does my computer have", "how much ram"},
        {"powerdown", "shutdown"},
        {"restart", "reboot"},
        {"how much free space do i have remaining on c", "free space"},
        {"normalize window", "normalize"},
        {"maximize", "maximize"},
        {"minimize window", "minimize"},
        {"add program", "add programs"},
        {"please show me the calendar", "calendar"},
        {"what is the date today", "the date"},
        {"what time is it", "the time"},
        {"read the whiteboard", "read whiteboard"},
        {"please erase the whiteboard", "clean whiteboard"},
        {"read the selected text", "read selected"},
        {"read all the text", "read all"},
        {"where are you there", "you there"},
        {"Will you exit k t voice corvane please", "close corvane"},
        {"empty the recycle bin", "recycle bin"},
        {"stop listening", "disable"},
        {"open the c d rom", "eject"},
        {"Computer close this window please", "close window"},
    };
    ASSERT_EQ(std::size(said), kBuiltinRules.size());
    for (const auto& [phrase, rule] : said) EXPECT_EQ(RuleThatAccepts(phrase), rule) << phrase;
}

TEST_F(CommandGrammarTest, ARulesNameIsNotAWayToSayIt) {
    EXPECT_EQ(RuleThatAccepts("add programs"), "");
    EXPECT_EQ(RuleThatAccepts("dictation notepad"), "");
    EXPECT_EQ(RuleThatAccepts("free space"), "");
}

TEST_F(CommandGrammarTest, TheGrammarThatIsDeliveredIsTheBuiltInOneAndTheKeywordNotepad) {
    const std::string delivered = testing::ProjectFile("data/keywords.xml");
    const std::string builtin = BuiltinGrammar();
    const std::size_t head = builtin.size() - std::string("</GRAMMAR>\r\n").size();
    EXPECT_EQ(delivered.substr(0, head), builtin.substr(0, head));
    EXPECT_EQ(std::ranges::count(delivered, '\n'), 337);
    const auto rules = simulated::ParseGrammar(delivered).value();
    EXPECT_EQ(rules.back().name, "notepad");
    EXPECT_TRUE(rules.back().Accepts("Will you run notepad please"));
}

TEST_F(CommandGrammarTest, TheQuietGrammarOffersTheWayBackAndNothingElse) {
    const auto rules = simulated::ParseGrammar(testing::ProjectFile("data/quiet.xml")).value();
    ASSERT_EQ(rules.size(), 1U);
    EXPECT_EQ(rules[0].name, "reenable");
    EXPECT_TRUE(rules[0].top_level);
    EXPECT_EQ(rules[0].id, 0);
    EXPECT_TRUE(rules[0].Accepts("enable"));
}

class UserRules : public CommandGrammarTest {
protected:
    [[nodiscard]] std::string File() const { return desktop.files.Bytes("/k.xml").value(); }
    void Put(const std::string& text) { desktop.files.Put("/k.xml", text); }
};

TEST_F(UserRules, AppendingToTheBuiltInTextGives337LinesWithOneEnd) {
    Put(BuiltinGrammar());
    grammar.AppendKeywordRule("notepad");
    EXPECT_EQ(std::ranges::count(File(), '\n'), 337);
    EXPECT_TRUE(File().ends_with("</RULE>\r\n</GRAMMAR>\r\n"));
    EXPECT_EQ(File().find("</GRAMMAR>"), File().rfind("</GRAMMAR>"));
}

TEST_F(UserRules, AnAppendedRuleIsWrittenToTheByte) {
    Put("<GRAMMAR LANGID=\"409\">\r\n</GRAMMAR>\r\n");
    grammar.AppendKeywordRule("notepad");
    EXPECT_EQ(File(),
              "<GRAMMAR LANGID=\"409\">\r\n"
              "<RULE NAME=\"notepad\" TOPLEVEL=\"ACTIVE\">\r\n"
              "      <O>\r\n"
              "          <L>\r\n"
              "               <P>Please</P>\r\n"
              "               <P>Computer</P>\r\n"
              "               <P>Will you</P>\r\n"
              "          </L>\r\n"
              "      </O>\r\n"
              "      <O>\r\n"
              "          <L>\r\n"
              "               <P>run</P>\r\n"
              "               <P>execute</P>\r\n"
              "               <P>load</P>\r\n"
              "          </L>\r\n"
              "      </O>\r\n"
              "      <P>notepad</P>\r\n"
              "      <O>please</O>\r\n"
              "</RULE>\r\n"
              "</GRAMMAR>\r\n");
}

TEST_F(UserRules, TheDeliveredGrammarIsWhatAppendingWrites) {
    Put(BuiltinGrammar());
    grammar.AppendKeywordRule("notepad");
    EXPECT_EQ(File(), testing::ProjectFile("data/keywords.xml"));
}

TEST_F(UserRules, AppendingAndRemovingGivesThePreviousFileBack) {
    Put(BuiltinGrammar());
    grammar.AppendKeywordRule("notepad");
    grammar.RemoveKeywordRule("notepad");
    EXPECT_EQ(File(), BuiltinGrammar());
}

TEST_F(UserRules, RulesFollowInTheOrderOfAdding) {
    Put("<GRAMMAR LANGID=\"409\">\r\n</GRAMMAR>\r\n");
    grammar.AppendKeywordRule("zebra");
    grammar.AppendKeywordRule("ant");
    const auto rules = simulated::ParseGrammar(File()).value();
    EXPECT_EQ(rules.at(0).name, "zebra");
    EXPECT_EQ(rules.at(1).name, "ant");
}

TEST_F(UserRules, AppendingDropsBlankLinesAndKeepsAnEndWithBlanksAroundIt) {
    Put("<GRAMMAR LANGID=\"409\">\r\n\r\n </GRAMMAR>\r\n");
    grammar.AppendKeywordRule("notepad");
    EXPECT_TRUE(File().starts_with("<GRAMMAR LANGID=\"409\">\r\n </GRAMMAR>\r\n<RULE "));
}

TEST_F(UserRules, AppendingMakesNoTestOfItsOwn) {
    Put(BuiltinGrammar());
    grammar.AppendKeywordRule("notepad");
    grammar.AppendKeywordRule("notepad");
    EXPECT_EQ(std::ranges::count(File(), '\n'), 355);
    EXPECT_FALSE(simulated::ParseGrammar(File()).has_value());
}

TEST_F(UserRules, NothingIsEscaped) {
    Put(BuiltinGrammar());
    grammar.AppendKeywordRule("a \"b\" <c> & d");
    EXPECT_NE(File().find("<RULE NAME=\"a \"b\" <c> & d\" TOPLEVEL=\"ACTIVE\">\r\n"),
              std::string::npos);
    EXPECT_NE(File().find("      <P>a \"b\" <c> & d</P>\r\n"), std::string::npos);
    EXPECT_FALSE(simulated::ParseGrammar(File()).has_value());
}

TEST_F(UserRules, RemovingAnUnknownRuleTakesTheFirstLineAndLeavesAllElse) {
    Put(BuiltinGrammar());
    grammar.RemoveKeywordRule("notepad");
    EXPECT_EQ(File(), BuiltinGrammar().substr(BuiltinGrammar().find('\n') + 1));
}

TEST_F(UserRules, RemovingComparesTheCase) {
    Put(BuiltinGrammar());
    grammar.AppendKeywordRule("notepad");
    const std::string before = File();
    grammar.RemoveKeywordRule("Notepad");
    EXPECT_EQ(File(), before.substr(before.find('\n') + 1));
}

TEST_F(UserRules, OfTwoRulesOfOneNameTheLastIsCutOut) {
    Put(BuiltinGrammar());
    grammar.AppendKeywordRule("copy");
    grammar.AppendKeywordRule("notepad");
    grammar.RemoveKeywordRule("copy");
    EXPECT_EQ(File(), testing::ProjectFile("data/keywords.xml"));
}

TEST_F(UserRules, ARuleWithoutAnEndRepeatsTheLinesInFrontOfIt) {
    // The head is found, the end is not: all below the head, then all above line 0.
    Put("1\r\n2\r\n<RULE NAME=\"x\" TOPLEVEL=\"ACTIVE\">\r\n4\r\n");
    grammar.RemoveKeywordRule("x");
    EXPECT_EQ(File(), "1\r\n2\r\n2\r\n<RULE NAME=\"x\" TOPLEVEL=\"ACTIVE\">\r\n4\r\n");
}

TEST_F(UserRules, AMissingFileIsAnErrorAndIsNotMade) {
    EXPECT_ERROR(kFileNotFound, (grammar.AppendKeywordRule("notepad"), 0));
    EXPECT_ERROR(kFileNotFound, (grammar.RemoveKeywordRule("notepad"), 0));
    EXPECT_FALSE(desktop.files.Bytes("/k.xml").has_value());
}

TEST_F(UserRules, AFailureInTheMiddleLeavesATruncatedFile) {
    Put(BuiltinGrammar());
    desktop.record.Fail("WriteLine", kDiskFull, 1);
    EXPECT_ERROR(kDiskFull, (grammar.AppendKeywordRule("notepad"), 0));
    EXPECT_EQ(File(), "<GRAMMAR LANGID=\"409\">\r\n");
}

}  // namespace
}  // namespace corvane
