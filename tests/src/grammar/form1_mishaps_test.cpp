// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// Add Programs when a file has gone, a step fails, or what was taught is no grammar.
#include <functional>
#include <string>
#include <vector>

#include "support/add_programs.h"

namespace corvane {
namespace {

using testing::BuiltinGrammar;
using testing::Entry;
using testing::GrammarWith;
using testing::kKeywordsTxt;
using testing::kKeywordsXml;
using testing::TaughtByTheWindow;
using testing::WrittenRule;

const Entry kOne{"one", "/one.exe"};
const Entry kTwo{"two", "/two.exe"};

TEST_F(TaughtByTheWindow, AnEmptyKeywordIsTakenAndDeafensTheSystemUntilItsRowIsDeleted) {
    OpenAndAdd({kOne});
    TypePath("/x.exe");
    PressAdd();
    EXPECT_EQ(Rows(), "one=/one.exe;=/x.exe;");
    EXPECT_FALSE(desk.Hear("one"));
    EXPECT_FALSE(desk.Hear("copy"));
    // Text1 was empty before, so no search runs that would select the first row.
    ClickRow(1);
    EXPECT_EQ(Selected(), "");
    PressDelete();
    EXPECT_TRUE(desk.Hear("one"));
    EXPECT_TRUE(desk.Hear("copy"));
    EXPECT_EQ(File(kKeywordsXml), GrammarWith({"one"}));
}

TEST_F(TaughtByTheWindow, MarkupInAKeywordDeafensTheSystemUntilItsRowIsDeleted) {
    for (const char* keyword : {"a<b", "a & b", "a \"b\""}) {
        SCOPED_TRACE(keyword);
        testing::Desk fresh;
        auto& windows = fresh.desktop.windows;
        const auto act = [&](const std::function<void()>& action) { fresh.desktop.Drive(action); };
        fresh.Start();
        fresh.Hear("add program");
        act([&] {
            windows.Type("Form1", "Text1", keyword);
            windows.Type("Form1", "text2", "/x.exe");
            windows.Click("Form1", "Command2");
        });
        EXPECT_FALSE(fresh.Hear("copy"));
        EXPECT_EQ(*fresh.desktop.files.Bytes(kKeywordsXml), GrammarWith({keyword}));
        act([&] {
            windows.ClickRow("Form1", "ListView1", 0);
            windows.Click("Form1", "Command3");
        });
        EXPECT_TRUE(fresh.Hear("copy"));
        EXPECT_FALSE(fresh.desktop.runtime.Ended());
    }
}

TEST_F(TaughtByTheWindow, AKeywordThatIsTheNameOfACommandDeafensTheSystemUntilItIsDeleted) {
    OpenAndAdd({});
    Add("copy", "/copier.exe");
    EXPECT_FALSE(desk.Hear("paste"));
    ClickRow(0);
    PressDelete();
    EXPECT_TRUE(desk.Hear("copy"));
    EXPECT_EQ(File(kKeywordsXml), GrammarWith({}));
}

TEST_F(TaughtByTheWindow, ClearAllLeavesBoxesAndDeleteAsTheyStandAndDeleteThenEndsTheProcess) {
    OpenAndAdd({kOne});
    ClickRow(0);
    PressClearAll();
    EXPECT_EQ(Keyword(), "one");
    EXPECT_EQ(Path(), "/one.exe");
    EXPECT_TRUE(Enabled("Command3"));
    EXPECT_FALSE(Enabled("Command4"));
    desk.Transcript();
    PressDelete();
    EXPECT_TRUE(Ended());
    EXPECT_TRUE(desk.Transcript().starts_with("ShowErrorReport 91 "));
}

TEST_F(TaughtByTheWindow, ClearAllGoesOnBehindEachStepThatFails) {
    OpenAndAdd({kOne});
    desk.desktop.files.Remove(kKeywordsXml);
    desk.desktop.files.Remove(kKeywordsTxt);
    PressClearAll();
    EXPECT_FALSE(Ended());
    EXPECT_EQ(File(kKeywordsTxt), "");
    // Its removal failed, so the writing was abandoned: the grammar stays missing.
    EXPECT_EQ(File(kKeywordsXml), "(missing)");
    EXPECT_FALSE(desk.Hear("copy"));
}

TEST_F(TaughtByTheWindow, AQuestionThatCannotBeAskedClearsNothing) {
    OpenAndAdd({kOne});
    desk.desktop.record.Fail("MsgBox", kAutomationError);
    PressClearAll();
    EXPECT_EQ(Rows(), "one=/one.exe;");
    EXPECT_FALSE(Ended());
}

TEST_F(TaughtByTheWindow, AGrammarThatHasGoneEndsTheProcessOnAddAndOnDelete) {
    OpenAndAdd({});
    desk.desktop.files.Remove(kKeywordsXml);
    Add("one", "/one.exe");
    EXPECT_TRUE(Ended());
}

TEST_F(TaughtByTheWindow, AGrammarThatHasGoneEndsTheProcessOnDelete) {
    OpenAndAdd({kOne, kTwo});
    desk.desktop.files.Remove(kKeywordsXml);
    ClickRow(0);
    PressDelete();
    EXPECT_TRUE(Ended());
    EXPECT_EQ(File(kKeywordsTxt), "two\r\n/two.exe\r\n");
}

TEST_F(TaughtByTheWindow, AStoreThatHasGoneIsPassedOverByADoubleClickAndEndsADelete) {
    OpenAndAdd({kOne, kTwo, {"three", "/three.exe"}});
    desk.desktop.files.Remove(kKeywordsTxt);
    DoubleClickRow(0);
    EXPECT_FALSE(Ended());
    EXPECT_EQ(Rows(), "two=/two.exe;three=/three.exe;");
    ClickRow(0);
    PressDelete();
    EXPECT_TRUE(Ended());
}

TEST_F(TaughtByTheWindow, TwoRowsWithOnePathLoseBothPathLinesUntilTheNextAdd) {
    OpenAndAdd({{"one", "/same.exe"}, {"two", "/same.exe"}});
    ClickRow(0);
    PressDelete();
    EXPECT_EQ(Rows(), "two=/same.exe;");
    EXPECT_EQ(File(kKeywordsTxt), "two\r\n");
    desk.Hear("two");
    EXPECT_TRUE(desk.desktop.runtime.Started().empty());
    Add("three", "/three.exe");
    EXPECT_EQ(File(kKeywordsTxt), "two\r\n/same.exe\r\nthree\r\n/three.exe\r\n");
    desk.Hear("two");
    EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"/same.exe"});
}

TEST_F(TaughtByTheWindow, ADoubleClickAndTheSameKeywordAgainGiveTwoRulesOfThatName) {
    OpenAndAdd({kOne, kTwo});
    DoubleClickRow(0);
    Add("one", "/one.exe");
    EXPECT_EQ(File(kKeywordsXml), GrammarWith({"one", "two", "one"}));
    EXPECT_FALSE(desk.Hear("copy"));
    ClickRow(1);
    PressDelete();
    EXPECT_TRUE(desk.Hear("copy"));
}

TEST_F(TaughtByTheWindow, ARowThatHasNoRuleTakesTheGrammarsFirstLineWithIt) {
    desk.desktop.files.Put(kKeywordsTxt, "one\r\n/one.exe\r\n");
    OpenAsItIs();
    ClickRow(0);
    PressDelete();
    EXPECT_TRUE(File(kKeywordsXml).starts_with("<RULE NAME=\"dictation notepad\""));
    EXPECT_FALSE(desk.Hear("copy"));
    EXPECT_FALSE(Ended());
}

TEST_F(TaughtByTheWindow, OfAThousandKeywordsTheLastOneStarts) {
    std::string store;
    std::string grammar = BuiltinGrammar();
    std::string rules;
    for (int i = 1; i <= 1000; ++i) {
        const std::string keyword = "word " + std::to_string(i);
        store += keyword + "\r\n/" + std::to_string(i) + ".exe\r\n";
        rules += WrittenRule(keyword);
    }
    desk.desktop.files.Put(kKeywordsTxt, store);
    desk.desktop.files.Put(kKeywordsXml, grammar.insert(grammar.rfind("</GRAMMAR>"), rules));
    desk.desktop.runtime.Install("/1000.exe");
    OpenAsItIs();
    EXPECT_EQ(List().rows.size(), 1000U);
    EXPECT_TRUE(desk.Hear("run word 1000"));
    EXPECT_EQ(desk.desktop.runtime.Started().back(), "/1000.exe");
}
}  // namespace
}  // namespace corvane
