// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// What is dictated into the pad: what becomes of its text, its log and its questions.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/dictation_desk.h"

namespace corvane {
namespace {

using testing::DictationDesk;
using testing::kCommandsAgain;
using testing::PadLine;

class DictationInThePad : public ::testing::Test {
protected:
    DictationInThePad() { desk.OpenPad(); }
    DictationDesk desk;
};

TEST_F(DictationInThePad, TwiceScratchThatTakesOutOnePhrase) {
    desk.HearAll({"one", "two", "scratch that", "scratch that"});
    EXPECT_EQ(desk.Document().text, "one ");
}

TEST_F(DictationInThePad, ScratchThatBehindALineBreakCutsTheEndBlindly) {
    desk.HearAll({"one two", "\r", "scratch that"});
    // Eight characters off the end, the break's two among them.
    EXPECT_EQ(desk.Document().text, "on");
    EXPECT_EQ(desk.Document().start, 2);
}

TEST_F(DictationInThePad, ALineBreakGoesToTheEndAndTakesTheCaretThere) {
    desk.HearAll({"one", "two"});
    desk.desktop.Drive([&] { desk.desktop.windows.Mark("Form5", "txtSpeech", 0, 3); });
    desk.HearAll({"\r", "three"});
    EXPECT_EQ(desk.Document().text, "one two \r\nthree ");
}

TEST_F(DictationInThePad, ScratchThatPutsTheCaretToTheNewEnd) {
    desk.HearAll({"one", "two", "scratch that"});
    EXPECT_EQ(desk.Document().start, 4);
    desk.Hear("three");
    EXPECT_EQ(desk.Document().text, "one three ");
}

TEST_F(DictationInThePad, CapitalsMakeNoDifferenceToThePhrases) {
    desk.HearAll({"One", "Delete"});
    EXPECT_EQ(desk.Document().text, "One ");
    EXPECT_EQ(desk.Transcript(), "SendKeys {BS} wait\n");
    desk.Hear("Scratch That");
    EXPECT_EQ(desk.Document().text, "");
    desk.HearAll({"two", "CLEAR EVERYTHING"});
    EXPECT_EQ(desk.Document().text, "");
    desk.Hear("Quit Dictation");
    EXPECT_TRUE(desk.HearsCommandsAlone());
}

TEST_F(DictationInThePad, PrintPagePrintsFirstAndThenIsText) {
    desk.HearAll({"dear sister", "print page"});
    ASSERT_EQ(desk.desktop.printer.Jobs().size(), 1U);
    EXPECT_EQ(desk.desktop.printer.Jobs()[0][0].lines, std::vector<std::string>{"dear sister "});
    EXPECT_EQ(desk.Document().text, "dear sister print page ");
    desk.Hear("scratch that");
    EXPECT_EQ(desk.Document().text, "dear sister ");
}

TEST_F(DictationInThePad, ClearEverythingLeavesNothingToScratch) {
    desk.HearAll({"one", "clear everything"});
    desk.desktop.Drive([&] { desk.desktop.windows.Type("Form5", "txtSpeech", "by hand"); });
    desk.Hear("scratch that");
    EXPECT_EQ(desk.Document().text, "by hand");
}

TEST_F(DictationInThePad, QuitDictationHasNoLineAndBuildsTheContextTwice) {
    desk.Hear("one");
    desk.Hear("quit dictation");
    EXPECT_EQ(desk.Transcript(), kCommandsAgain + "Hide Form5\nDictationUnload\n" + kCommandsAgain);
    EXPECT_EQ(desk.desktop.speech.Contexts().size(), 1U);
    EXPECT_FALSE(desk.PadVisible());
    EXPECT_EQ(desk.PadLog().text, PadLine("one"));  // as it was when the window went
    EXPECT_TRUE(desk.HearsCommandsAlone());
}

TEST_F(DictationInThePad, TheTextIsGoneWithThePad) {
    desk.HearAll({"one", "quit dictation", "dictation pad"});
    EXPECT_TRUE(desk.PadVisible());
    EXPECT_EQ(desk.Document().text, "");
    EXPECT_EQ(desk.PadLog().text, "");
}

TEST_F(DictationInThePad, APhraseOfLowConfidenceIsWrittenLikeAnyOther) {
    desk.Hear("one", SECLowConfidence);
    desk.Hear("two", SECNormalConfidence);
    EXPECT_EQ(desk.Document().text, "one two ");
    EXPECT_EQ(desk.PadLog().text, PadLine("one", "-1") + PadLine("two", "0"));
    EXPECT_EQ(desk.Transcript(), "");  // nothing discarded
}

TEST_F(DictationInThePad, NoKeywordAndNoRuleApplies) {
    desk.Hear("quit dictation");
    desk.Teach("notepad", "/usr/bin/xterm.exe");
    desk.Hear("dictation pad");
    desk.Transcript();
    desk.HearAs("run notepad please", "notepad");
    desk.HearAs("copy", "copy");
    EXPECT_EQ(desk.Document().text, "run notepad please copy ");
    EXPECT_EQ(desk.Transcript(), "");
}

TEST_F(DictationInThePad, TheMainWindowsLogTakesNoLineWhileDictating) {
    const std::string log = desk.Log();
    desk.HearAll({"one", "\r", "delete"});
    EXPECT_EQ(desk.Log(), log);
}

TEST_F(DictationInThePad, TextGoesInAtTheCaretAndReplacesWhatIsMarked) {
    desk.HearAll({"one", "three"});
    desk.desktop.Drive([&] { desk.desktop.windows.Mark("Form5", "txtSpeech", 4, 0); });
    desk.Hear("two");
    EXPECT_EQ(desk.Document().text, "one two three ");
    EXPECT_EQ(desk.Document().start, 8);
    desk.desktop.Drive([&] { desk.desktop.windows.Mark("Form5", "txtSpeech", 4, 4); });
    desk.Hear("and");
    EXPECT_EQ(desk.Document().text, "one and three ");
}

TEST_F(DictationInThePad, ScratchThatCutsTheEndWhereverTheCaretStands) {
    desk.HearAll({"one", "three"});
    desk.desktop.Drive([&] { desk.desktop.windows.Mark("Form5", "txtSpeech", 4, 0); });
    desk.HearAll({"two", "scratch that"});
    EXPECT_EQ(desk.Document().text, "one two th");
}

TEST_F(DictationInThePad, AStrongerCutThanThereIsTextLeavesTheDocumentAndNothingToScratch) {
    desk.Hear("a long phrase");
    desk.desktop.Drive([&] { desk.desktop.windows.Retype("Form5", "txtSpeech", "cut"); });
    desk.Hear("scratch that");
    EXPECT_EQ(desk.Document().text, "cut");
    desk.desktop.Drive(
        [&] { desk.desktop.windows.Retype("Form5", "txtSpeech", "a very long text again"); });
    desk.Hear("scratch that");
    EXPECT_EQ(desk.Document().text, "a very long text again");
}

TEST_F(DictationInThePad, LettersOfManyBytesCountAsOne) {
    desk.HearAll({"ein", "größeres Übel", "scratch that"});
    EXPECT_EQ(desk.Document().text, "ein ");
}

TEST_F(DictationInThePad, WhatWasSaidLastOutlivesThePad) {
    desk.HearAll({"one", "quit dictation", "dictation pad"});
    desk.desktop.Drive([&] { desk.desktop.windows.Type("Form5", "txtSpeech", "by hand"); });
    desk.Hear("scratch that");
    EXPECT_EQ(desk.Document().text, "by ");
}

TEST_F(DictationInThePad, AStepThatFailsIsPassedOver) {
    desk.desktop.record.Fail("SetText", kAutomationError);
    desk.Hear("one");  // its line can't be written
    EXPECT_EQ(desk.Document().text, "one ");
    desk.desktop.record.Heal("SetText");
    desk.desktop.record.Fail("SendKeys", kInvalidProcedureCall);
    desk.HearAll({"delete", "two"});
    EXPECT_EQ(desk.Document().text, "one two ");
    desk.desktop.record.Fail("InputBox", kInvalidProcedureCall);
    desk.Transcript();
    desk.Hear("train that");
    EXPECT_EQ(desk.Transcript(), "InputBox \"Enter a sentence\" \"Training\"\nDisplayUI " +
                                     std::to_string(desk.Pad().handle) +
                                     " \"Corvane --Training\" UserTraining \"\"\n");
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST_F(DictationInThePad, AnEngineWithoutTheTrainingIsPassedOverByVoice) {
    desk.desktop.record.Fail("DisplayUI", kAutomationError);
    desk.HearAll({"train that", "one"});
    EXPECT_EQ(desk.Document().text, "one ");
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST_F(DictationInThePad, AFailingDictationUnloadDoesNotKeepTheModeOn) {
    desk.desktop.record.Fail("DictationUnload", kAutomationError);
    desk.Hear("quit dictation");
    EXPECT_TRUE(desk.HearsCommandsAlone());
}

TEST_F(DictationInThePad, ATextThatCannotBeFetchedIsAnEmptyPhrase) {
    desk.Hear("one");
    desk.desktop.record.Fail("GetText", kAutomationError);
    desk.Hear("two");
    desk.desktop.record.Heal("GetText");
    EXPECT_EQ(desk.Document().text, "one  ");
    EXPECT_EQ(desk.PadLog().text, PadLine("one"));
    desk.Hear("scratch that");
    EXPECT_EQ(desk.Document().text, "one  ");
}

TEST_F(DictationInThePad, WordsSaidWhileTheSentenceIsAskedForAreWrittenAtOnce) {
    std::string meanwhile;
    desk.desktop.runtime.OnInputBox = [&]() -> std::string {
        desk.desktop.speech.Say("said meanwhile");
        desk.desktop.queue.DoEvents();
        meanwhile = desk.Document().text;
        return "the sentence";
    };
    desk.Hear("train that");
    EXPECT_EQ(meanwhile, "said meanwhile ");
    EXPECT_EQ(desk.PadLog().text, PadLine("train that") + PadLine("said meanwhile"));
    EXPECT_NE(desk.Transcript().find("UserTraining \"the sentence\""), std::string::npos);
}

TEST_F(DictationInThePad, QuitDictationInsideTheTrainingsQuestionLoadsAnotherPadForTheDialog) {
    desk.desktop.runtime.OnInputBox = [&]() -> std::string {
        desk.desktop.speech.Say("quit dictation");
        desk.desktop.queue.DoEvents();
        return {};
    };
    const HWND before = desk.Pad().handle;
    desk.Hear("train that");
    EXPECT_NE(desk.Pad().handle, before);
    EXPECT_FALSE(desk.PadVisible());
    EXPECT_TRUE(desk.HearsCommandsAlone());
}

TEST_F(DictationInThePad, QuitDictationUnderThePrintDialogPrintsThatPadsTextAllTheSame) {
    desk.Hear("dear sister");
    desk.desktop.windows.OnPrintDialog = [&] {
        desk.desktop.speech.Say("quit dictation");
        desk.desktop.queue.DoEvents();
        return true;
    };
    desk.Hear("print page");
    ASSERT_EQ(desk.desktop.printer.Jobs().size(), 1U);
    EXPECT_EQ(desk.desktop.printer.Jobs()[0][0].lines, std::vector<std::string>{"dear sister "});
    // The words then load a pad that stays hidden.
    EXPECT_EQ(desk.Document().text, "print page ");
    EXPECT_FALSE(desk.PadVisible());
    EXPECT_TRUE(desk.HearsCommandsAlone());
}

TEST_F(DictationInThePad, ASecondPrintPageUnderThePrintDialogPrintsToo) {
    desk.desktop.windows.OnPrintDialog = [&] {
        desk.desktop.windows.OnPrintDialog = [] { return true; };
        desk.desktop.speech.Say("print page");
        desk.desktop.queue.DoEvents();
        return true;
    };
    desk.HearAll({"one", "print page"});
    ASSERT_EQ(desk.desktop.printer.Jobs().size(), 2U);
    EXPECT_EQ(desk.desktop.printer.Jobs()[0][0].lines, std::vector<std::string>{"one "});
    EXPECT_EQ(desk.desktop.printer.Jobs()[1][0].lines, std::vector<std::string>{"one print page "});
    EXPECT_EQ(desk.Document().text, "one print page print page ");
}

TEST_F(DictationInThePad, HypothesesGoToThePadsLogAndLeaveItsCaret) {
    desk.Hear("one");
    const std::int32_t caret = desk.PadLog().start;
    desk.desktop.speech.Guess("two", "", SECLowConfidence);
    desk.desktop.RunFor({});
    EXPECT_EQ(desk.PadLog().text,
              PadLine("one") + "1, 0, Hypothesis,  [Text=two] [Confidence=-1]\r\n");
    EXPECT_EQ(desk.PadLog().start, caret);
    EXPECT_EQ(desk.Document().text, "one ");
    EXPECT_EQ(desk.Transcript(), "");  // nothing discarded
}

TEST_F(DictationInThePad, InterferenceGoesToTheMainWindowsLog) {
    const std::string log = desk.Log();
    desk.desktop.speech.Trouble(SINoise);
    desk.desktop.RunFor({});
    EXPECT_EQ(desk.Log(), log + "Noise interference detected\r\n");
    EXPECT_EQ(desk.PadLog().text, "");
}
}  // namespace
}  // namespace corvane
