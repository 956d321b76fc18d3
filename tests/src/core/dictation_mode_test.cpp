// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/dictation_mode.h"

#include <gtest/gtest.h>

#include <utility>

#include "runtime/text.h"
#include "simulated/simulated_context.h"
#include "support/dictation_desk.h"

namespace corvane {
namespace {

using testing::DictationDesk;
using testing::kCommandsAgain;
using testing::kKeywordsXml;
using testing::PadLine;

const std::string kAccepted = "voice.EventInterests 512\n";
const std::string kDictationOn =
    "CmdSetRuleIdState 0 0\n"
    "DictationLoad \"\" 0\n"
    "DictationSetState 1\n";
/// Printing a text that fits one page, the dialog included.
const std::string kOnePagePrinted =
    "AskForPrinter 264\n"
    "Printer.Print \" \"\n"
    "Printer.ScaleMode 1\n"
    "FormatRange draw 1080,1200,10440,14160 of 0,0,11520,15360 from 0 to -1\n"
    "Printer.EndDoc\n"
    "FreeLayout\n";

class DictationInThePad : public ::testing::Test {
protected:
    DictationInThePad() { desk.OpenPad(); }
    DictationDesk desk;
};

class DictationIntoTheFocus : public ::testing::Test {
protected:
    DictationIntoTheFocus() { desk.DictateIntoFocus(); }
    DictationDesk desk;
};

TEST(DictationMode, ThePadIsShownBehindTheStartAndItsTextTakesTheFocus) {
    DictationDesk desk;
    desk.Start();
    desk.desktop.speech.Level(60);
    desk.Hear("dictation pad");
    EXPECT_EQ(desk.Transcript(), kAccepted + kDictationOn + "Show Form5\nSetFocus txtSpeech\n");
    EXPECT_EQ(desk.desktop.windows.Window("Form2").ranges.at("ProgressBar1"), 0);
    EXPECT_TRUE(desk.PadVisible());
    EXPECT_FALSE(desk.Pad().modal);
    EXPECT_EQ(desk.Pad().focus, "txtSpeech");
    // The command itself is in the main window's log, not in the pad's.
    EXPECT_EQ(desk.Log(), PadLine("dictation pad"));
    EXPECT_EQ(desk.PadLog().text, "");
}

TEST(DictationMode, TheSameContextStaysInUseWhenDictationStarts) {
    DictationDesk desk;
    desk.Start();
    const auto before = desk.desktop.speech.Contexts();
    desk.Hear("dictation pad");
    EXPECT_EQ(desk.desktop.speech.Contexts(), before);
}

TEST(DictationMode, DictateStartsWithoutThePad) {
    DictationDesk desk;
    desk.Start();
    desk.desktop.speech.Level(60);
    desk.Hear("dictation");
    EXPECT_EQ(desk.Transcript(), kAccepted + kDictationOn);
    EXPECT_EQ(desk.desktop.windows.Window("Form2").ranges.at("ProgressBar1"), 0);
    EXPECT_FALSE(desk.desktop.windows.Exists("Form5"));
}

TEST(DictationMode, AKeywordInTheCommandThatStartsItIsStillLookedFor) {
    DictationDesk desk;
    desk.Teach("dictation", "/recorder.exe");
    desk.desktop.files.Put(kKeywordsXml, testing::BuiltinGrammar());
    desk.Start();
    desk.Hear("dictation pad");
    EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"/recorder.exe"});
}

TEST(DictationMode, AnEngineThatCannotDictateLeavesThePadOpenAndTheCommandsOff) {
    DictationDesk desk;
    desk.Start();
    desk.desktop.record.Fail("DictationLoad", kAutomationError);
    desk.Hear("dictation pad");
    EXPECT_TRUE(desk.PadVisible());
    EXPECT_FALSE(desk.Hear("yes"));
    EXPECT_FALSE(desk.desktop.runtime.Ended());
    desk.ClosePadByFrame();
    EXPECT_TRUE(desk.HearsCommandsAlone());
}

struct Phrase {
    const char* said;
    std::string document;  ///< behind "hello "
    std::string calls;
    std::string log;        ///< behind the line of "hello"
    std::string scratched;  ///< the document when "scratch that" follows
};

TEST(DictationMode, EachPhraseInThePad) {
    const Phrase kPhrases[] = {
        {"print page", "hello print page ", kOnePagePrinted,
         PadLine("print page") + PadLine("print page"), "hello "},
        {"delete", "hello ", "SendKeys {BS} wait\n", PadLine("delete"), ""},
        {"train that", "hello ",
         "InputBox \"Enter a sentence\" \"Training\"\n"
         "DisplayUI PAD \"Corvane --Training\" UserTraining \"\"\n",
         PadLine("train that"), ""},
        {"\r", "hello \r\n", "", PadLine("\r"), "he"},
        {"clear everything", "", "", PadLine("clear everything"), ""},
        {"scratch that", "", "", PadLine("scratch that"), ""},
        {"dear sister", "hello dear sister ", "", PadLine("dear sister"), "hello "},
        // Nothing else is a command here.
        {"close corvane", "hello close corvane ", "", PadLine("close corvane"), "hello "},
        {"hide corvane", "hello hide corvane ", "", PadLine("hide corvane"), "hello "},
        {"\r\n", "hello \r\n ", "", PadLine("\r\n"), "hello "},
        {"print page now", "hello print page now ", "", PadLine("print page now"), "hello "},
    };
    for (const Phrase& phrase : kPhrases) {
        DictationDesk desk;
        desk.OpenPad();
        desk.Hear("hello");
        EXPECT_EQ(desk.Document().text, "hello ");
        EXPECT_EQ(desk.Transcript(), "");
        desk.Hear(phrase.said);
        EXPECT_EQ(desk.Document().text, phrase.document) << phrase.said;
        std::string calls = phrase.calls;
        if (const auto at = calls.find("PAD"); at != std::string::npos)
            calls.replace(at, 3, std::to_string(desk.Pad().handle));
        EXPECT_EQ(desk.Transcript(), calls) << phrase.said;
        EXPECT_EQ(desk.PadLog().text, PadLine("hello") + phrase.log) << phrase.said;
        EXPECT_EQ(desk.PadLog().start, Len(desk.PadLog().text).rep()) << phrase.said;
        desk.Hear("scratch that");
        EXPECT_EQ(desk.Document().text, phrase.scratched) << phrase.said;
    }
}

TEST(DictationMode, EachPhraseIntoTheFocus) {
    const std::string kFiveAndOne = "{BS}{BS}{BS}{BS}{BS}{BS}";
    const struct {
        const char* said;
        std::string calls;  ///< behind "hello "
        std::string log;
        std::string scratched;  ///< the keys of a "scratch that" that follows
    } kPhrases[] = {
        {"print page", "SendKeys ^p wait\n", PadLine("print page"), kFiveAndOne},
        {"delete", "SendKeys {BS} wait\n", PadLine("delete"), kFiveAndOne},
        {"train that",
         "InputBox \"Enter a sentence\" \"Training\"\n"
         "DisplayUI PAD \"Corvane --Training\" UserTraining \"\"\n",
         PadLine("train that"), kFiveAndOne},
        {"\r", "SendKeys {ENTER} wait\n", PadLine("\r"), kFiveAndOne},
        {"clear everything", "SendKeys " + kFiveAndOne + " wait\n", PadLine("clear everything"),
         ""},
        {"scratch that", "SendKeys " + kFiveAndOne + " wait\n", PadLine("scratch that"), ""},
        {"a b", "SendKeys a b  wait\n", PadLine("a b"), "{BS}{BS}{BS}{BS}"},
        {"50%", "SendKeys 50{%}  wait\n", PadLine("50%"), "{BS}{BS}{BS}{BS}"},
        {"no", "SendKeys no  wait\n", PadLine("no"), "{BS}{BS}{BS}"},
    };
    for (const auto& phrase : kPhrases) {
        DictationDesk desk;
        desk.DictateIntoFocus();
        desk.Hear("hello");
        EXPECT_EQ(desk.Transcript(), "SendKeys hello  wait\n");
        desk.Hear(phrase.said);
        std::string calls = phrase.calls;
        if (const auto at = calls.find("PAD"); at != std::string::npos)
            calls.replace(at, 3, std::to_string(desk.Pad().handle));
        EXPECT_EQ(desk.Transcript(), calls) << phrase.said;
        EXPECT_EQ(desk.PadLog().text, PadLine("hello") + phrase.log) << phrase.said;
        EXPECT_EQ(desk.Document().text, "") << phrase.said;
        EXPECT_FALSE(desk.PadVisible()) << phrase.said;
        desk.Hear("scratch that");
        EXPECT_EQ(desk.Transcript(),
                  phrase.scratched.empty() ? "" : "SendKeys " + phrase.scratched + " wait\n")
            << phrase.said;
    }
}

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

TEST(DictationMode, ANewRecogniserEndsDictationAndLeavesThePadOpen) {
    DictationDesk desk;
    desk.Start();
    desk.HearAll({"add program", "dictation pad", "one"});
    desk.AddProgram("paper", "/paper.exe");
    EXPECT_TRUE(desk.PadVisible());
    EXPECT_TRUE(desk.HearsCommandsAlone());
    EXPECT_EQ(desk.Document().text, "one ");
    EXPECT_EQ(desk.PadLog().text, PadLine("one"));
    // The open pad takes dictation up again with its text as it stands.
    desk.HearAll({"dictation pad", "two"});
    EXPECT_EQ(desk.Document().text, "one two ");
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

TEST_F(DictationIntoTheFocus, QuitDictationBringsTheCommandsBackWithNoPadToClose) {
    desk.Hear("quit dictation");
    EXPECT_EQ(desk.Transcript(), "DictationUnload\n" + kCommandsAgain);
    EXPECT_FALSE(desk.desktop.windows.Exists("Form5"));
    EXPECT_TRUE(desk.HearsCommandsAlone());
}

TEST_F(DictationIntoTheFocus, QuitDictationUnloadsThePadThatTheLogHasLoaded) {
    desk.HearAll({"one", "quit dictation"});
    EXPECT_EQ(desk.Transcript(), "SendKeys one  wait\n" + kCommandsAgain +
                                     "Hide Form5\nDictationUnload\n" + kCommandsAgain);
    EXPECT_TRUE(desk.HearsCommandsAlone());
}

TEST_F(DictationIntoTheFocus, HypothesesLoadThePadHiddenForItsLog) {
    desk.desktop.speech.Guess("one", "", SECHighConfidence);
    desk.desktop.RunFor({});
    EXPECT_EQ(desk.PadLog().text, "1, 0, Hypothesis,  [Text=one] [Confidence=1]\r\n");
    EXPECT_FALSE(desk.PadVisible());
}

TEST_F(DictationIntoTheFocus, ClearEverythingTakesBackWhatStillStandsOfTheDictation) {
    desk.HearAll({"one", "\r", "two", "scratch that", "delete"});
    desk.Transcript();
    desk.Hear("clear everything");
    // "one " without its last character, which was the line break.
    EXPECT_EQ(desk.Transcript(), "SendKeys {BS}{BS}{BS}{BS} wait\n");
    desk.Hear("clear everything");
    EXPECT_EQ(desk.Transcript(), "");
}

TEST_F(DictationIntoTheFocus, ClearEverythingNeverReachesBeyondThisDictation) {
    desk.HearAll({"one", "quit dictation", "dictation"});
    desk.Transcript();
    desk.HearAll({"delete", "clear everything"});
    EXPECT_EQ(desk.Transcript(), "SendKeys {BS} wait\n");
}

TEST_F(DictationIntoTheFocus, WhatIsSaidWhileThePhraseBeforeIsScratchedCanBeScratchedToo) {
    desk.Hear("one");
    bool said = false;
    desk.desktop.runtime.OnSendKeys = [&](const std::string&) {
        if (std::exchange(said, true)) return;
        desk.desktop.speech.Say("two");
        desk.desktop.queue.DoEvents();
    };
    desk.Hear("scratch that");
    desk.Transcript();
    desk.Hear("scratch that");
    EXPECT_EQ(desk.Transcript(), "SendKeys {BS}{BS}{BS}{BS} wait\n");
}

TEST_F(DictationIntoTheFocus, KeysThatCannotBeTypedArePassedOver) {
    desk.desktop.record.Fail("SendKeys", kPermissionDenied);
    desk.HearAll({"one", "\r", "scratch that", "delete", "print page"});
    desk.desktop.record.Heal("SendKeys");
    desk.Transcript();
    desk.Hear("clear everything");
    EXPECT_EQ(desk.Transcript(), "");  // nothing was typed
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST_F(DictationIntoTheFocus, ThePadTakesTheTextOnceItIsAskedFor) {
    desk.HearAll({"one", "quit dictation", "dictation pad", "two"});
    EXPECT_EQ(desk.Document().text, "two ");
}

}  // namespace
}  // namespace corvane
