// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// What a change in the Add Programs window does to the files, the lists and the recogniser.
#include <algorithm>
#include <functional>
#include <ostream>

#include "support/add_programs.h"

namespace corvane {
namespace {

using testing::Entry;
using testing::GrammarWith;
using testing::kKeywordsTxt;
using testing::kKeywordsXml;
using testing::TaughtByTheWindow;

const char* const kInitRec =
    "CreateSpSharedRecoContext\n"
    "CmdLoadFromFile /opt/corvane/keywords.xml 1\n"
    "CmdSetRuleIdState 0 1\n"
    "rc.EventInterests 66608\n"
    "voice.EventInterests 512\n";
const std::string kReadTxt = "OpenTextFile /opt/corvane/keywords.txt\n";
const std::string kReload = kReadTxt + kReadTxt;
const std::string kWriteTxt = "CreateTextFile /opt/corvane/keywords.txt\n";
const std::string kDeleteTxt = "DeleteFile /opt/corvane/keywords.txt\n";
const std::string kRewriteXml =
    "OpenTextFile /opt/corvane/keywords.xml\nCreateTextFile /opt/corvane/keywords.xml\n";

/// One of the six ways to change the store.
struct Change {
    const char* what;
    std::vector<Entry> before;
    std::function<void(TaughtByTheWindow&)> act;
    std::string keywords_txt;
    std::vector<std::string> rules;  ///< keywords whose rules stand in keywords.xml afterwards
    std::string calls;
};

void PrintTo(const Change& change, std::ostream* stream) {
    *stream << change.what;
}

class ReachesTheRecogniser : public TaughtByTheWindow,
                             public ::testing::WithParamInterface<Change> {};

const Entry kOne{"one", "/one.exe"};
const Entry kTwo{"two", "/two.exe"};

const Change kChanges[] = {
    {"Add",
     {kOne},
     [](TaughtByTheWindow& test) { test.Add("two", "/two.exe"); },
     "one\r\n/one.exe\r\ntwo\r\n/two.exe\r\n",
     {"one", "two"},
     kRewriteXml + "SetFocus Text1\n" + kWriteTxt + kReload + kInitRec},
    {"DeleteWithRowsLeft",
     {kOne, kTwo},
     [](TaughtByTheWindow& test) {
         test.ClickRow(0);
         test.PressDelete();
     },
     "two\r\n/two.exe\r\n",
     {"two"},
     kReadTxt + kWriteTxt + kReload + kRewriteXml + kReload + kInitRec},
    {"DeleteOfTheLastRow",
     {kOne},
     [](TaughtByTheWindow& test) {
         test.ClickRow(0);
         test.PressDelete();
     },
     "",
     {},
     kDeleteTxt + kWriteTxt + kRewriteXml + kReload + kInitRec},
    {"ClearAll",
     {kOne, kTwo},
     [](TaughtByTheWindow& test) { test.PressClearAll(); },
     "",
     {},
     "MsgBox \"Are you sure you want to clear all the entries?\r\n"
     "They will not be recoverable after you delete them!\" 36 \"WARNING!\"\n" +
         kDeleteTxt + kWriteTxt +
         "DeleteFile /opt/corvane/keywords.xml\nCreateTextFile /opt/corvane/keywords.xml\n" +
         kReload + kInitRec},
    {"DoubleClickWithRowsLeft",
     {kOne, kTwo},
     [](TaughtByTheWindow& test) { test.DoubleClickRow(0); },
     "two\r\n/two.exe\r\n",
     {"one", "two"},
     kReadTxt + kWriteTxt + kReload},
    {"DoubleClickOnTheLastRow",
     {kOne},
     [](TaughtByTheWindow& test) { test.DoubleClickRow(0); },
     "one\r\n/one.exe\r\n",
     {"one"},
     ""},
};

TEST_P(ReachesTheRecogniser, JustWhatThisChangeTouches) {
    const Change& change = GetParam();
    OpenAndAdd(change.before);
    change.act(*this);
    EXPECT_EQ(File(kKeywordsTxt), change.keywords_txt);
    EXPECT_EQ(File(kKeywordsXml), GrammarWith(change.rules));
    EXPECT_EQ(desk.Transcript(), change.calls);
    EXPECT_FALSE(Ended());
}

INSTANTIATE_TEST_SUITE_P(Form1Changes, ReachesTheRecogniser, ::testing::ValuesIn(kChanges),
                         [](const auto& change) { return std::string(change.param.what); });

TEST_F(TaughtByTheWindow, AWordThatWasAddedStartsItsProgramAtOnce) {
    OpenAndAdd({});
    EXPECT_FALSE(desk.Hear("frobnitz"));
    Add("frobnitz", "/f.exe");
    EXPECT_TRUE(desk.Hear("frobnitz"));
    EXPECT_TRUE(desk.Hear("Computer run frobnitz please"));
    EXPECT_EQ(desk.desktop.runtime.Started(), (std::vector<std::string>{"/f.exe", "/f.exe"}));
}

TEST_F(TaughtByTheWindow, AWordThatWasDeletedIsNotHeardAnyMore) {
    OpenAndAdd({kOne, kTwo});
    ClickRow(0);
    PressDelete();
    EXPECT_FALSE(desk.Hear("one"));
    EXPECT_TRUE(desk.Hear("two"));
}

TEST_F(TaughtByTheWindow, AWordWhoseRowWasDoubleClickedIsStillHeardAndStartsNothing) {
    OpenAndAdd({kOne, kTwo});
    DoubleClickRow(0);
    EXPECT_TRUE(desk.Hear("one"));
    EXPECT_TRUE(desk.desktop.runtime.Started().empty());
}

TEST_F(TaughtByTheWindow, AfterAddTheBoxesAreEmptyAndTheNextKeywordCanBeTyped) {
    OpenAndAdd({kOne});
    EXPECT_EQ(Keyword(), "");
    EXPECT_EQ(Path(), "");
    EXPECT_FALSE(Enabled("Command2"));
    EXPECT_FALSE(Default("Command2"));
    EXPECT_FALSE(Enabled("Command3"));
    EXPECT_TRUE(Enabled("Command4"));
    EXPECT_EQ(Shown().focus, "Text1");
}

TEST_F(TaughtByTheWindow, DeleteClosesItsButtonAndWithTheLastRowClearAll) {
    OpenAndAdd({kOne, kTwo});
    ClickRow(1);
    PressDelete();
    EXPECT_FALSE(Enabled("Command3"));
    EXPECT_TRUE(Enabled("Command4"));
    EXPECT_EQ(Keyword(), "");
    EXPECT_EQ(Path(), "");
    ClickRow(0);
    PressDelete();
    EXPECT_FALSE(Enabled("Command3"));
    EXPECT_FALSE(Enabled("Command4"));
    EXPECT_EQ(Rows(), "");
}

TEST_F(TaughtByTheWindow, DeleteTakesTheSelectedRowWhateverStandsInTheBoxes) {
    OpenAndAdd({kOne, kTwo});
    CheckSearch(false);
    ClickRow(0);
    TypeKeyword(" and something else");
    TypePath(" too");
    PressDelete();
    EXPECT_EQ(Rows(), "two=/two.exe;");
}

TEST_F(TaughtByTheWindow, ADoubleClickIsAClickFirstAndClosesDelete) {
    OpenAndAdd({kOne, kTwo});
    DoubleClickRow(1);
    EXPECT_EQ(Rows(), "one=/one.exe;");
    EXPECT_EQ(Keyword(), "");
    EXPECT_EQ(Path(), "");
    EXPECT_FALSE(Enabled("Command3"));
    EXPECT_TRUE(Enabled("Command2"));  // the click has opened it
    EXPECT_TRUE(Enabled("Command4"));
    DoubleClickRow(0);
    EXPECT_FALSE(Enabled("Command4"));
}

TEST_F(TaughtByTheWindow, ADoubleClickIntoAnEmptyListDoesNothing) {
    OpenAndAdd({});
    DoubleClickRow(kNoRow);
    EXPECT_FALSE(Ended());
    EXPECT_EQ(desk.Transcript(), "");
}

TEST_F(TaughtByTheWindow, AnEqualKeywordIsRefusedAndTheBoxesKeepTheirText) {
    OpenAndAdd({kOne});
    TypeKeyword("one");
    TypePath("/other.exe");
    PressAdd();
    EXPECT_EQ(desk.Transcript(),
              "MsgBox \"That command already exists.  Please delete it first.\" 16 "
              "\"Error 1001: Entry already exists\"\n");
    EXPECT_EQ(Keyword(), "one");
    EXPECT_EQ(Path(), "/other.exe");
    EXPECT_EQ(Rows(), "one=/one.exe;");
}

TEST_F(TaughtByTheWindow, AKeywordInAnotherCaseIsNew) {
    OpenAndAdd({kOne});
    Add("One", "/other.exe");
    EXPECT_EQ(Rows(), "one=/one.exe;One=/other.exe;");
}

TEST_F(TaughtByTheWindow, APathTypedInCapitalsIsRefusedAndTheSameFromTheDialogPasses) {
    OpenAndAdd({});
    TypeKeyword("one");
    TypePath("/ONE.EXE");
    PressAdd();
    EXPECT_EQ(desk.Transcript(),
              "MsgBox \"You must enter an executable file path, only .exe's are supported\" 16 "
              "\"Error\"\n");
    EXPECT_EQ(Rows(), "");
    desk.desktop.windows.OnFileDialog = [] { return "/ONE.EXE"; };
    Press("Command1");
    PressAdd();
    EXPECT_EQ(Rows(), "one=/one.exe;");
}

TEST_F(TaughtByTheWindow, ThePathIsLookedAtBeforeTheKeyword) {
    OpenAndAdd({kOne});
    TypeKeyword("one");
    TypePath("/one");
    PressAdd();
    EXPECT_NE(desk.Transcript().find("\"Error\""), std::string::npos);
}

TEST_F(TaughtByTheWindow, ClickingAShorterKeywordBelowALongerOneSelectsTheUpperAndDeleteTakesIt) {
    OpenAndAdd({{"notebook", "/notebook.exe"}, {"note", "/note.exe"}});
    ClickRow(1);
    EXPECT_EQ(Keyword(), "note");
    EXPECT_EQ(Path(), "/note.exe");
    EXPECT_EQ(Selected(), "notebook");
    PressDelete();
    EXPECT_EQ(Rows(), "note=/note.exe;");
    EXPECT_EQ(File(kKeywordsTxt), "note\r\n/note.exe\r\n");
}

TEST_F(TaughtByTheWindow, ClickingARowAndPressingAddGivesTheDuplicateMessage) {
    OpenAndAdd({kOne});
    ClickRow(0);
    PressAdd();
    EXPECT_NE(desk.Transcript().find("Error 1001: Entry already exists"), std::string::npos);
    EXPECT_EQ(Rows(), "one=/one.exe;");
}

TEST_F(TaughtByTheWindow, ClearAllAsksAndNoLeavesEverythingAsItIs) {
    OpenAndAdd({kOne});
    desk.desktop.runtime.AnswerToQuestions = kNo;
    PressClearAll();
    EXPECT_EQ(Rows(), "one=/one.exe;");
    EXPECT_EQ(File(kKeywordsTxt), "one\r\n/one.exe\r\n");
    EXPECT_EQ(File(kKeywordsXml), GrammarWith({"one"}));
    EXPECT_TRUE(Enabled("Command4"));
}

TEST_F(TaughtByTheWindow, ALastRowThatWasDoubleClickedComesBackWithTheNextLoad) {
    OpenAndAdd({kOne});
    DoubleClickRow(0);
    EXPECT_EQ(Rows(), "");
    CloseWindow();
    desk.Hear("add program");
    EXPECT_EQ(Rows(), "one=/one.exe;");
}

TEST_F(TaughtByTheWindow, AChangeBringsAQuietSystemBackToItsCommands) {
    OpenAndAdd({});
    desk.Hear("be quiet");
    EXPECT_FALSE(desk.Hear("copy"));
    Add("one", "/one.exe");
    EXPECT_TRUE(desk.Hear("copy"));
}
}  // namespace
}  // namespace corvane
