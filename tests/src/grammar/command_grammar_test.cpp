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

}  // namespace
}  // namespace corvane
