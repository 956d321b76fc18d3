// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "grammar/form1.h"

#include <algorithm>
#include <set>

#include "support/add_programs.h"

namespace corvane {
namespace {

using testing::AddProgramsTest;
using testing::kKeywordsTxt;
using testing::kKeywordsXml;

using Form1Test = AddProgramsTest;

const ControlDescription& Row(std::string_view name) {
    return *std::ranges::find(kForm1Controls, name, &ControlDescription::name);
}

TEST_F(Form1Test, HasItsCaptionSizeAndBorder) {
    Open({});
    EXPECT_EQ(Shown().description.caption, "Add Programs");
    EXPECT_EQ(Shown().description.client_width, 7755);
    EXPECT_EQ(Shown().description.client_height, 3825);
    EXPECT_EQ(Shown().border, BorderStyle::FixedSingle);
    EXPECT_EQ(Shown().description.position, StartPosition::SystemDefault);
    EXPECT_TRUE(Shown().visible);
    EXPECT_FALSE(Shown().modal);
}

TEST_F(Form1Test, ControlsStandWhereTheyBelongInTheirTabOrder) {
    struct Place {
        const char* name;
        ControlKind kind;
        const char* text;
        TwipsRect place;
        int tab;
    };
    const Place places[] = {
        {"ListView1", ControlKind::ListView, "Program Name\nProgram Path", {37, 15, 7680, 2880}, 0},
        {"Text1", ControlKind::TextBox, "", {705, 2970, 1110, 285}, 1},
        {"Label1", ControlKind::Label, "Keyword:", {30, 3015, 660, 195}, 2},
        {"text2", ControlKind::TextBox, "", {705, 3360, 3075, 285}, 3},
        {"Label2", ControlKind::Label, "Path:", {315, 3390, 375, 195}, 4},
        {"Command1", ControlKind::CommandButton, "&Browse", {3840, 3360, 900, 285}, 5},
        {"Command2", ControlKind::CommandButton, "&Add", {4785, 3000, 900, 780}, 6},
        {"Command3", ControlKind::CommandButton, "&Delete", {5752, 3000, 900, 780}, 7},
        {"Command4", ControlKind::CommandButton, "&Clear All", {6720, 3000, 900, 780}, 8},
        {"Check2", ControlKind::CheckBox, "Search for existing", {1905, 3000, 1635, 225}, 9},
    };
    for (const Place& row : places) {
        EXPECT_EQ(Row(row.name).kind, row.kind) << row.name;
        EXPECT_EQ(Row(row.name).text, row.text) << row.name;
        EXPECT_EQ(Row(row.name).place, row.place) << row.name;
        EXPECT_EQ(Row(row.name).tab_index, row.tab) << row.name;
    }
    EXPECT_EQ(kForm1Controls.size(), std::size(places) + 1);  // and the dialog
}

TEST_F(Form1Test, EveryControlOfTheLayoutIsPutIntoTheWindow) {
    Open({});
    std::set<std::string_view> shown;
    for (const auto& control : Shown().controls) shown.insert(control.name);
    for (const auto& row : kForm1Controls) EXPECT_TRUE(shown.contains(row.name)) << row.name;
}

TEST_F(Form1Test, ThreeButtonsBearAPicture) {
    for (const char* name : {"Command2", "Command3", "Command4"})
        EXPECT_FALSE(Row(name).picture.empty()) << name;
    EXPECT_TRUE(Row("Command1").picture.empty());
}

TEST_F(Form1Test, WithNothingTaughtOnlyBrowseAndTheSearchCanBeUsed) {
    Open({});
    EXPECT_EQ(Rows(), "");
    EXPECT_TRUE(Enabled("Command1"));
    for (const char* name : {"Command2", "Command3", "Command4"}) {
        EXPECT_FALSE(Enabled(name)) << name;
        EXPECT_FALSE(Default(name)) << name;
    }
    EXPECT_TRUE(Shown().check_boxes.at("Check2").checked);
    EXPECT_EQ(Shown().focus, "ListView1");
}

TEST_F(Form1Test, TheColumnsShareTheListsWidthOneToThree) {
    Open({});
    EXPECT_EQ(List().columns, (std::vector<float>{1920, 5760}));
}

TEST_F(Form1Test, TheFirstShowingFitsTheListIntoTheWindow) {
    Open({});
    EXPECT_EQ(List().place, (ComputedPlace{0, 15, 0.99F * 7755, 2880}));
}

TEST_F(Form1Test, TheRowsAreThoseOfTheFileInItsOrderAndClearAllIsOpen) {
    Open({{"b", "/b.exe"}, {"a", "/a.exe"}});
    EXPECT_EQ(Rows(), "b=/b.exe;a=/a.exe;");
    EXPECT_TRUE(Enabled("Command4"));
    EXPECT_FALSE(Enabled("Command2"));
    EXPECT_FALSE(Enabled("Command3"));
}

TEST_F(Form1Test, TheFileIsReadByPositionWhileTheListsGoByExe) {
    desk.desktop.files.Put(kKeywordsTxt, "setup.exe one\r\n/one.exe\r\ntwo\r\n/TWO.EXE\r\n");
    OpenAsItIs();
    EXPECT_EQ(Rows(), "setup.exe one=/one.exe;two=/TWO.EXE;");
    // The lists are out of step with it: "two" is followed by "/TWO.EXE" as a keyword, and the
    // first path is the first keyword.
    desk.desktop.runtime.Install("setup.exe one");
    desk.HearAs("two", "two");
    EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"setup.exe one"});
}

TEST_F(Form1Test, AnOddLastLineIsARowWithoutAPath) {
    desk.desktop.files.Put(kKeywordsTxt, "one\r\n/one.exe\r\ntwo\r\n");
    OpenAsItIs();
    EXPECT_EQ(Rows(), "one=/one.exe;two=;");
}

TEST_F(Form1Test, BlankLinesTakePartInTheReadingByPosition) {
    desk.desktop.files.Put(kKeywordsTxt, "\r\none\r\n/one.exe\r\n\r\n");
    OpenAsItIs();
    EXPECT_EQ(Rows(), "=one;/one.exe=;");
}

TEST_F(Form1Test, AFileThatHasGoneGivesAnEmptyWindow) {
    desk.Start();
    desk.desktop.files.Remove(kKeywordsTxt);
    desk.Hear("new program");
    EXPECT_TRUE(Shown().visible);
    EXPECT_EQ(Rows(), "");
    EXPECT_FALSE(Ended());
}

TEST_F(Form1Test, AFileThatCannotBeReadToItsEndGivesTheRowsThatCould) {
    Open({});
    CloseWindow();
    desk.Teach("one", "/one.exe");
    desk.Teach("two", "/two.exe");
    desk.desktop.record.Fail("ReadLine", kDeviceIOError, 3);
    desk.Hear("add program");
    EXPECT_EQ(Rows(), "one=/one.exe;two=;");
    EXPECT_FALSE(Ended());
}

TEST_F(Form1Test, TheCommandShowsTheWindowThenListensAnewThenReadsNamesAndPaths) {
    desk.Teach("one", "/one.exe");
    desk.Start();
    desk.Hear("add program");
    EXPECT_EQ(desk.Transcript(),
              "voice.EventInterests 512\n"
              "OpenTextFile /opt/corvane/keywords.txt\n"  // the window's own look
              "Show Form1\n"
              "CreateSpSharedRecoContext\n"
              "CmdLoadFromFile /opt/corvane/keywords.xml 1\n"
              "CmdSetRuleIdState 0 1\n"
              "rc.EventInterests 66608\n"
              "voice.EventInterests 512\n"
              "OpenTextFile /opt/corvane/keywords.txt\n"
              "OpenTextFile /opt/corvane/keywords.txt\n");
}

TEST_F(Form1Test, NewProgramOpensItAsWell) {
    desk.Start();
    EXPECT_TRUE(desk.Hear("new program"));
    EXPECT_TRUE(Shown().visible);
}

TEST_F(Form1Test, TheKeywordSearchOfTheSameCommandSeesTheFileAsItIs) {
    desk.Start();
    desk.desktop.files.Put(kKeywordsTxt, "program\r\n/p.exe\r\n");
    desk.desktop.runtime.Install("/p.exe");
    desk.Hear("add program");
    EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"/p.exe"});
}

TEST_F(Form1Test, CommandsAreHeardWhileTheWindowStands) {
    Open({{"one", "/one.exe"}});
    EXPECT_TRUE(desk.Hear("run one please"));
    EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"/one.exe"});
}

TEST_F(Form1Test, ASecondCommandShowsTheSameWindowAgainWithoutALoad) {
    Open({{"one", "/one.exe"}});
    TypeKeyword("half a w");
    desk.Hear("add program");
    EXPECT_EQ(Keyword(), "half a w");
}

TEST_F(Form1Test, AWindowThatWasClosedIsBuiltAfresh) {
    Open({{"one", "/one.exe"}});
    TypeKeyword("half a w");
    CloseWindow();
    EXPECT_FALSE(Shown().visible);
    desk.Teach("two", "/two.exe");
    desk.Hear("add program");
    EXPECT_TRUE(Shown().visible);
    EXPECT_EQ(Keyword(), "");
    EXPECT_EQ(Rows(), "one=/one.exe;two=/two.exe;");
}

TEST_F(Form1Test, APathEnablesAddAndMakesItTheDefaultAndAnEmptiedOneChangesNothing) {
    Open({});
    TypeKeyword("one");
    EXPECT_FALSE(Enabled("Command2"));
    TypePath("/");
    EXPECT_TRUE(Enabled("Command2"));
    EXPECT_TRUE(Default("Command2"));
    desk.desktop.Drive([&] { desk.desktop.windows.Erase("Form1", "text2"); });
    EXPECT_TRUE(Enabled("Command2"));
    EXPECT_TRUE(Default("Command2"));
}

TEST_F(Form1Test, EnterPressesAddWhileItIsTheDefault) {
    Open({});
    const auto press_enter = [&] {
        desk.desktop.Drive([&] { desk.desktop.windows.PressEnter("Form1"); });
    };
    TypeKeyword("one");
    press_enter();
    EXPECT_EQ(Rows(), "");
    TypePath("/one.exe");
    press_enter();
    EXPECT_EQ(Rows(), "one=/one.exe;");
    EXPECT_FALSE(Default("Command2"));
    press_enter();
    EXPECT_EQ(Rows(), "one=/one.exe;");
}

TEST_F(Form1Test, AClickFillsTheBoxesAndOpensDeleteAndAdd) {
    Open({{"one", "/one.exe"}, {"two", "/two.exe"}});
    ClickRow(1);
    EXPECT_EQ(Keyword(), "two");
    EXPECT_EQ(Path(), "/two.exe");
    EXPECT_TRUE(Enabled("Command3"));
    EXPECT_TRUE(Enabled("Command2"));
    EXPECT_TRUE(Default("Command2"));
    EXPECT_FALSE(List().hide_selection);
}

TEST_F(Form1Test, AClickIntoAnEmptyListDoesNothing) {
    Open({});
    ClickRow(kNoRow);
    EXPECT_FALSE(Enabled("Command3"));
    EXPECT_FALSE(Ended());
}

TEST_F(Form1Test, AClickBesideTheRowsTakesTheSelectedOne) {
    Open({{"one", "/one.exe"}});
    ClickRow(kNoRow);
    EXPECT_EQ(Keyword(), "one");
    EXPECT_FALSE(Ended());
}

TEST_F(Form1Test, AClickOnARowWithoutAPathLeavesAddAsItIs) {
    desk.desktop.files.Put(kKeywordsTxt, "one\r\n");
    OpenAsItIs();
    ClickRow(0);
    EXPECT_EQ(Keyword(), "one");
    EXPECT_FALSE(Enabled("Command2"));
    EXPECT_TRUE(Enabled("Command3"));
}

TEST_F(Form1Test, ArrowKeysMoveTheSelectionAndAreNoClick) {
    Open({{"one", "/one.exe"}, {"two", "/two.exe"}});
    desk.desktop.Drive([&] { desk.desktop.windows.MoveToRow("Form1", "ListView1", 1); });
    EXPECT_EQ(Keyword(), "");
    EXPECT_FALSE(Enabled("Command3"));
}

TEST_F(Form1Test, LosingTheFocusWhileDeleteIsPressedEnablesItAndOtherwiseDoesNothing) {
    simulated::SimulatedDesktop& desktop = desk.desktop;
    MessageLoop loop(desktop.queue, desktop.runtime);
    DataPaths paths;
    KeywordStore keywords(desktop.files, paths);
    CommandGrammar grammar(desktop.files, paths);
    const auto form = std::make_shared<Form1>(
        desktop.windows, loop,
        Form1::Parts{desktop.runtime, desktop.files, paths, keywords, grammar, {}});
    form->ListView1.LostFocus();
    EXPECT_FALSE(form->Command3.Enabled());

    form->Command3.SetEnabled(true);
    form->Command3.Click = [&] {
        form->Command3.SetEnabled(false);
        form->ListView1.LostFocus();
    };
    desktop.windows.Click("Form1", "Command3");
    EXPECT_TRUE(form->Command3.Enabled());
    form->Command3.SetEnabled(false);
    form->ListView1.LostFocus();
    EXPECT_FALSE(form->Command3.Enabled());
}

TEST_F(Form1Test, TypingAKeywordSelectsTheFirstRowThatBeginsWithIt) {
    Open({{"notebook", "/nb.exe"}, {"note", "/n.exe"}, {"mail", "/m.exe"}});
    TypeKeyword("m");
    EXPECT_EQ(Selected(), "mail");
    EXPECT_EQ(List().brought_into_view, 2);
    EXPECT_FALSE(List().hide_selection);
    desk.desktop.Drive([&] { desk.desktop.windows.Erase("Form1", "Text1"); });
    EXPECT_TRUE(List().hide_selection);
    EXPECT_EQ(Selected(), "notebook");  // an empty text is the beginning of every row
    TypeKeyword("note");
    EXPECT_EQ(Selected(), "notebook");
}

TEST_F(Form1Test, TheSearchGoesByKeywordsWithTheirCaseAndNotByPaths) {
    Open({{"mail", "/m.exe"}, {"Mule", "/mule.exe"}});
    TypeKeyword("Mu");
    EXPECT_EQ(Selected(), "Mule");
    desk.desktop.Drive([&] { desk.desktop.windows.Erase("Form1", "Text1"); });
    TypeKeyword("/mu");
    EXPECT_EQ(Selected(), "mail");
}

TEST_F(Form1Test, WithTheSearchOffTypingLeavesTheSelectionAlone) {
    Open({{"one", "/one.exe"}, {"two", "/two.exe"}});
    TypeKeyword("o");
    CheckSearch(false);
    EXPECT_TRUE(List().hide_selection);
    TypeKeyword("x");
    desk.desktop.Drive([&] { desk.desktop.windows.Erase("Form1", "Text1"); });
    TypeKeyword("two");
    EXPECT_EQ(Selected(), "one");
    EXPECT_TRUE(List().hide_selection);
    CheckSearch(true);
    EXPECT_EQ(Selected(), "two");
    EXPECT_FALSE(List().hide_selection);
}

TEST_F(Form1Test, AFailingSearchIsPassedOverWhileTyping) {
    Open({{"one", "/one.exe"}});
    desk.desktop.record.Fail("BringIntoView", kAutomationError);
    desk.desktop.record.Fail("SetHideSelection", kAutomationError);
    TypeKeyword("o");
    EXPECT_FALSE(Ended());
    EXPECT_EQ(Selected(), "one");
}

TEST_F(Form1Test, AFailingSearchOfTheCheckBoxEndsTheProcess) {
    Open({{"one", "/one.exe"}});
    CheckSearch(false);
    desk.desktop.record.Fail("BringIntoView", kAutomationError);
    CheckSearch(true);
    EXPECT_TRUE(Ended());
}

TEST_F(Form1Test, BrowseAsksForAnExecutableAndTakesItInLowerCase) {
    Open({});
    desk.desktop.windows.OnFileDialog = [] { return "/Programs/Editor.EXE"; };
    Press("Command1");
    EXPECT_EQ(desk.Transcript(),
              "AskForFile \"Open exe file path\" "
              "All Files (*.*)|*.*|Executable Files (*.exe)|*.exe 2 34818\n");
    EXPECT_EQ(Path(), "/programs/editor.exe");
    EXPECT_TRUE(Enabled("Command2"));
}

TEST_F(Form1Test, CancellingTheFileDialogLeavesThePathAsItWas) {
    Open({});
    TypePath("/one.exe");
    Press("Command1");
    EXPECT_EQ(Path(), "/one.exe");
}

TEST_F(Form1Test, AFileDialogThatGivesItsPatternOrNothingBackCountsAsCancelled) {
    Open({});
    TypePath("/one.exe");
    for (const char* answer : {"*.exe", ""}) {
        desk.desktop.windows.OnFileDialog = [answer] { return answer; };
        Press("Command1");
        EXPECT_EQ(Path(), "/one.exe");
    }
}

TEST_F(Form1Test, AFileDialogThatFailsEndsTheProcess) {
    Open({});
    desk.desktop.record.Fail("AskForFile", kAutomationError);
    Press("Command1");
    EXPECT_TRUE(Ended());
}

}  // namespace
}  // namespace corvane
