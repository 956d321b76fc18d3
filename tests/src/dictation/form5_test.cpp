// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "dictation/form5.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "simulated/simulated_context.h"
#include "support/dictation_desk.h"

namespace corvane {
namespace {

using testing::DictationDesk;
using testing::kCommandsAgain;
using testing::PadLine;

class Form5Test : public ::testing::Test {
protected:
    Form5Test() { desk.OpenPad(); }
    DictationDesk desk;
};

TEST_F(Form5Test, HasItsCaptionSizeAndBorder) {
    EXPECT_EQ(desk.Pad().description.caption, "Dictation Pad");
    EXPECT_EQ(desk.Pad().description.client_width, 5775);
    EXPECT_EQ(desk.Pad().description.client_height, 5370);
    EXPECT_EQ(desk.Pad().description.position, StartPosition::SystemDefault);
    EXPECT_EQ(desk.Pad().border, BorderStyle::Sizable);
}

TEST_F(Form5Test, ItsControlsStandAsTheyWereLaidOut) {
    const struct {
        const char* name;
        ControlKind kind;
        TwipsRect place;
        int tab_index;
        const char* text;
    } kRows[] = {
        {"Text1", ControlKind::MultilineTextBox, {33, 3930, 5730, 915}, 0, ""},
        {"Command2", ControlKind::CommandButton, {1450, 4905, 1425, 450}, 1, "&Close"},
        {"Command1", ControlKind::CommandButton, {0, 4905, 1425, 450}, 2, "&Train Profile"},
        {"txtSpeech", ControlKind::RichTextBox, {15, 270, 5730, 3645}, 3, ""},
        {"Label1",
         ControlKind::Label,
         {15, 30, 3240, 210},
         4,
         "Say \"quit dictation\" to exit Dictation Pad."},
        {"dlgPrint", ControlKind::CommonDialog, {}, kNoTabStop, ""},
    };
    EXPECT_EQ(desk.Pad().controls.size(), std::size(kRows));
    for (const auto& row : kRows) {
        const auto control =
            std::ranges::find(desk.Pad().controls, row.name, &ControlDescription::name);
        ASSERT_NE(control, desk.Pad().controls.end()) << row.name;
        EXPECT_EQ(control->kind, row.kind) << row.name;
        EXPECT_EQ(control->place, row.place) << row.name;
        EXPECT_EQ(control->tab_index, row.tab_index) << row.name;
        EXPECT_EQ(control->text, row.text) << row.name;
    }
}

TEST_F(Form5Test, TheInstructionIsBoldRedOnYellow) {
    const auto label = std::ranges::find(kForm5Controls, "Label1", &ControlDescription::name);
    EXPECT_EQ(label->colours, ControlColours::RedOnYellow);
    EXPECT_EQ(label->font_family, "Arial");
    EXPECT_TRUE(label->bold);
}

TEST_F(Form5Test, ResizingTheWindowLeavesAllControlsInPlace) {
    const auto before = desk.Pad().controls;
    desk.desktop.Drive([&] { desk.desktop.windows.Resize("Form5", 9000, 9000); });
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_EQ(desk.Pad().controls[i].place, before[i].place) << before[i].name;
    EXPECT_EQ(desk.Transcript(), "");
}

TEST_F(Form5Test, ClosingByTheFrameIsTheSameHandBackAsTheButton) {
    desk.Hear("one");
    desk.ClickInPad("Command2");
    const std::string by_button = desk.Transcript();
    EXPECT_EQ(by_button, kCommandsAgain + "Hide Form5\n");
    EXPECT_TRUE(desk.HearsCommandsAlone());

    desk.Hear("dictation pad");
    EXPECT_EQ(desk.Document().text, "");
    desk.Transcript();
    desk.ClosePadByFrame();
    EXPECT_EQ(desk.Transcript(), by_button);
    EXPECT_TRUE(desk.HearsCommandsAlone());
    EXPECT_EQ(desk.desktop.speech.Contexts().size(), 1U);
}

TEST(Form5, ClosingItGivesTheRecogniserBackAlsoWhenNobodyDictates) {
    DictationDesk desk;
    desk.Start();
    desk.HearAll({"add program", "dictation pad"});
    desk.AddProgram("paper", "/paper.exe");
    desk.Hear("disable");
    EXPECT_FALSE(desk.Hear("copy"));
    desk.ClosePadByFrame();
    EXPECT_TRUE(desk.Hear("copy"));
}

TEST_F(Form5Test, ClosingTheMainWindowEndsTheProcessWithoutThePadsUnload) {
    desk.desktop.Drive([&] { desk.desktop.windows.CloseByFrame("Form2"); });
    EXPECT_EQ(desk.Transcript(), "End\n");
}

TEST_F(Form5Test, TrainProfileAsksForASentenceAndTrainsWithIt) {
    desk.desktop.runtime.OnInputBox = [] { return "a sentence"; };
    desk.ClickInPad("Command1");
    EXPECT_EQ(desk.Transcript(), "InputBox \"Enter a sentence\" \"Training\"\nDisplayUI " +
                                     std::to_string(desk.Pad().handle) +
                                     " \"Corvane --Training\" UserTraining \"a sentence\"\n");
}

TEST_F(Form5Test, ACancelledQuestionStillTrains) {
    desk.ClickInPad("Command1");
    EXPECT_NE(desk.Transcript().find("UserTraining \"\"\n"), std::string::npos);
}

TEST_F(Form5Test, TrainProfileWithoutTheEnginesDialogIsAnErrorThatEndsTheProcess) {
    desk.desktop.record.Fail("DisplayUI", kAutomationError);
    desk.ClickInPad("Command1");
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    EXPECT_NE(desk.Transcript().find("ShowErrorReport 440"), std::string::npos);
}

TEST_F(Form5Test, NothingInItReachesTheEnginesWords) {
    desk.HearAll({"train that", "scratch that", "delete", "print page", "clear everything"});
    desk.ClickInPad("Command1");
    desk.ClickInPad("Command2");
    const std::string transcript = desk.Transcript();
    EXPECT_NE(transcript.find("UserTraining"), std::string::npos);
    EXPECT_EQ(transcript.find("AddRemoveWord"), std::string::npos);
}

TEST_F(Form5Test, CancellingThePrintDialogStillPrints) {
    desk.desktop.windows.OnPrintDialog = [] { return false; };
    desk.HearAll({"one", "print page"});
    EXPECT_EQ(desk.desktop.printer.Jobs().size(), 1U);
}

TEST_F(Form5Test, ASelectionIsOfferedAndStillTheWholeTextIsPrinted) {
    desk.HearAll({"one", "two"});
    desk.desktop.Drive([&] { desk.desktop.windows.Mark("Form5", "txtSpeech", 0, 3); });
    desk.Hear("print page");
    EXPECT_NE(desk.Transcript().find("AskForPrinter 265\n"), std::string::npos);
    EXPECT_EQ(desk.desktop.printer.Jobs().at(0).at(0).lines, std::vector<std::string>{"one two "});
}

TEST_F(Form5Test, WithoutAPrinterTheWordsAreStillWrittenAndNothingIsShown) {
    desk.desktop.record.Fail("Printer.Print", kPrinterError);
    desk.HearAll({"one", "print page"});
    EXPECT_TRUE(desk.desktop.printer.Jobs().empty());
    EXPECT_EQ(desk.Document().text, "one print page ");
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST_F(Form5Test, AFailingDialogLeavesThePageUnprintedByVoice) {
    desk.desktop.record.Fail("AskForPrinter", kPrinterError);
    desk.HearAll({"one", "print page"});
    EXPECT_TRUE(desk.desktop.printer.Jobs().empty());
    EXPECT_EQ(desk.Document().text, "one print page ");
}

/// The window by itself.
class PadWindow : public ::testing::Test {
protected:
    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    RichTextPrinter printer{desktop.printer, desktop.gdi, desktop.user32};
    bool PadActive = false;
    forms::Lazy<Form5> pad{
        [this] { return std::make_shared<Form5>(desktop.windows, loop, printer, PadActive); }};
};

TEST_F(PadWindow, TheFlagIsSetByTheLoadWithTheWindowHidden) {
    EXPECT_NE(pad->hWnd(), 0U);
    EXPECT_TRUE(PadActive);
    EXPECT_FALSE(desktop.windows.Window("Form5").visible);
}

TEST_F(PadWindow, TheFlagFollowsTheFocusOfTheTextAndOfNothingElse) {
    pad->Show();
    EXPECT_TRUE(PadActive);  // by the load: the log has the focus at first
    PadActive = false;
    desktop.windows.Focus("Form5", "Command2");
    EXPECT_FALSE(PadActive);
    pad->txtSpeech.SetFocus();
    EXPECT_TRUE(PadActive);
    desktop.windows.Focus("Form5", "Text1");
    EXPECT_FALSE(PadActive);
    desktop.windows.Focus("Form5", "txtSpeech");
    EXPECT_TRUE(PadActive);
}

TEST_F(PadWindow, AnUnloadDoesNotWriteTheFlagAndTheNextLoadDoes) {
    pad->Closed = [this] { pad.LetGo(); };
    pad->Show();
    pad->txtSpeech.SetFocus();
    pad->Close();
    EXPECT_TRUE(PadActive);
    PadActive = false;
    EXPECT_EQ(pad->txtSpeech.Text(), "");
    EXPECT_TRUE(PadActive);
}

TEST_F(PadWindow, PrintingKeepsAWindowAliveThatIsLetGoUnderItsDialog) {
    pad->txtSpeech.SetText("dear sister");
    desktop.windows.OnPrintDialog = [this] {
        pad.LetGo();
        return true;
    };
    pad->Command4_Click();
    EXPECT_EQ(desktop.printer.Jobs().at(0).at(0).lines, std::vector<std::string>{"dear sister"});
}

}  // namespace
}  // namespace corvane
