// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// What a change in the Add Programs window does to the files, the lists and the recogniser.
#include <algorithm>
#include <functional>
#include <ostream>

#include "support/add_programs.h"

namespace corvane {
namespace {

using testing::AddProgramsTest;
using testing::BuiltinGrammar;
using testing::Entry;
using testing::kKeywordsTxt;
using testing::kKeywordsXml;

using Form1Changes = AddProgramsTest;

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

/// The rule that the window writes for a keyword.
std::string WrittenRule(const std::string& keyword) {
    return "<RULE NAME=\"" + keyword +
           "\" TOPLEVEL=\"ACTIVE\">\r\n"
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
           "      <P>" +
           keyword +
           "</P>\r\n"
           "      <O>please</O>\r\n"
           "</RULE>\r\n";
}

/// The command grammar with the rules of these keywords behind the built-in ones.
std::string GrammarWith(const std::vector<std::string>& keywords) {
    std::string grammar = BuiltinGrammar();
    std::string rules;
    for (const std::string& keyword : keywords) rules += WrittenRule(keyword);
    return grammar.insert(grammar.rfind("</GRAMMAR>"), rules);
}

class TaughtByTheWindow : public AddProgramsTest {
public:
    /// Opens the window on an empty store and teaches these through it.
    void OpenAndAdd(const std::vector<Entry>& entries) {
        Open({});
        for (const auto& [keyword, path] : entries) Add(keyword, path);
        desk.Transcript();
    }
    void Add(const std::string& keyword, const std::string& path) {
        TypeKeyword(keyword);
        TypePath(path);
        PressAdd();
        desk.desktop.runtime.Install(path);
    }
};

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

TEST_F(TaughtByTheWindow, ClearAllAsksAndNoLeavesEverythingAsItIs) {
    OpenAndAdd({kOne});
    desk.desktop.runtime.AnswerToQuestions = kNo;
    PressClearAll();
    EXPECT_EQ(Rows(), "one=/one.exe;");
    EXPECT_EQ(File(kKeywordsTxt), "one\r\n/one.exe\r\n");
    EXPECT_EQ(File(kKeywordsXml), GrammarWith({"one"}));
    EXPECT_TRUE(Enabled("Command4"));
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

TEST_F(TaughtByTheWindow, ALastRowThatWasDoubleClickedComesBackWithTheNextLoad) {
    OpenAndAdd({kOne});
    DoubleClickRow(0);
    EXPECT_EQ(Rows(), "");
    CloseWindow();
    desk.Hear("add program");
    EXPECT_EQ(Rows(), "one=/one.exe;");
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

TEST_F(TaughtByTheWindow, AChangeBringsAQuietSystemBackToItsCommands) {
    OpenAndAdd({});
    desk.Hear("be quiet");
    EXPECT_FALSE(desk.Hear("copy"));
    Add("one", "/one.exe");
    EXPECT_TRUE(desk.Hear("copy"));
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
