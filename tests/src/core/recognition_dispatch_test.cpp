// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/recognition_dispatch.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;
using testing::GrammarOf;
using testing::kKeywordsXml;
using testing::kQuietXml;
using testing::SimpleRule;
using namespace std::chrono_literals;

/// What every accepted command asks of the voice first.
const std::string kAccepted = "voice.EventInterests 512\n";

TEST(RecognitionDispatch, AnAcceptedPhraseWritesItsLineWithTwoBlanksBehindTheWord) {
    Desk desk;
    desk.Start();
    desk.desktop.RunFor(3072ms);
    desk.Hear("what time is it");
    EXPECT_EQ(desk.Log(), "1, 98304, Recognition,  [Text=what time is it] [Confidence=1]\r\n");
}

TEST(RecognitionDispatch, TheLogOnlyGrows) {
    Desk desk;
    desk.Start();
    desk.Hear("yes");
    desk.Hear("no", SECNormalConfidence);
    EXPECT_EQ(desk.Log(),
              "1, 0, Recognition,  [Text=yes] [Confidence=1]\r\n"
              "1, 0, Recognition,  [Text=no] [Confidence=0] (THROWN OUT)\r\n");
}

TEST(RecognitionDispatch, AThrownOutPhraseWritesItsLineAndDoesNothingElse) {
    for (const auto confidence : {SECNormalConfidence, SECLowConfidence}) {
        Desk desk;
        desk.Teach("time", "/clock.exe");
        desk.Start();
        desk.Hear("copy", confidence);
        desk.Hear("what time is it", confidence);
        EXPECT_EQ(desk.Transcript(), "DiscardResultInfo 255\nDiscardResultInfo 255\n");
        const std::string digits = std::to_string(confidence);
        EXPECT_EQ(desk.Log(), "1, 0, Recognition,  [Text=copy] [Confidence=" + digits +
                                  "] (THROWN OUT)\r\n"
                                  "1, 0, Recognition,  [Text=what time is it] [Confidence=" +
                                  digits + "] (THROWN OUT)\r\n");
    }
}

TEST(RecognitionDispatch, KeysGoToWhateverHasTheFocusAndAreWaitedFor) {
    const std::pair<const char*, const char*> typed[] = {
        {"copy", "^c"}, {"paste", "^v"},     {"yes", "y"},
        {"no", "n"},    {"cancel", "{ESC}"}, {"okay", "{ENTER}"},
    };
    for (const auto& [phrase, keys] : typed) {
        Desk desk;
        desk.Start();
        desk.Hear(phrase);
        EXPECT_EQ(desk.Transcript(), kAccepted + "SendKeys " + std::string(keys) + " wait\n");
    }
}

TEST(RecognitionDispatch, CleanWhiteboardEmptiesTheWhiteboard) {
    Desk desk;
    desk.Start();
    desk.desktop.Drive([&] { desk.desktop.windows.Type("Form2", "Text3", "milk, bread"); });
    desk.Hear("erase the whiteboard");
    EXPECT_EQ(desk.desktop.windows.Window("Form2").texts.at("Text3").text, "");
}

TEST(RecognitionDispatch, DisableLeavesOnlyTheQuietGrammarAndEnableBringsTheCommandsBack) {
    Desk desk;
    desk.Start();
    desk.Hear("stop listening");
    EXPECT_FALSE(desk.Hear("copy"));
    EXPECT_TRUE(desk.Hear("enable"));
    desk.Transcript();
    EXPECT_TRUE(desk.Hear("copy"));
    EXPECT_EQ(desk.Transcript(), kAccepted + "SendKeys ^c wait\n");
}

TEST(RecognitionDispatch, EnableAtNormalConfidenceIsThrownOutAndTheSystemStaysQuiet) {
    Desk desk;
    desk.Start();
    desk.Hear("stop listening");
    desk.Hear("enable", SECNormalConfidence);
    EXPECT_FALSE(desk.Hear("copy"));
    EXPECT_EQ(desk.Log(),
              "1, 0, Recognition,  [Text=stop listening] [Confidence=1]\r\n"
              "1, 0, Recognition,  [Text=enable] [Confidence=0] (THROWN OUT)\r\n");
}

TEST(RecognitionDispatch, AMissingQuietGrammarLeavesTheSystemDeafAfterDisable) {
    Desk desk;
    desk.desktop.files.Remove(kQuietXml);
    desk.Start();
    desk.Hear("disable");
    EXPECT_FALSE(desk.Hear("enable"));
    EXPECT_FALSE(desk.Hear("copy"));
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST(RecognitionDispatch, ARuleInNoRowStillReachesTheKeywordSearch) {
    Desk desk;
    desk.Teach("notepad", "/usr/bin/xterm.exe");
    desk.Start();
    desk.Hear("run notepad please");
    EXPECT_EQ(desk.Transcript(), kAccepted + "Shell /usr/bin/xterm.exe 1\n");
}

TEST(RecognitionDispatch, ACommandThatHoldsAKeywordDoesBothTheRowFirst) {
    Desk desk;
    desk.Teach("whiteboard", "/board.exe");
    desk.Teach("copy", "/copier.exe");
    desk.desktop.files.Put(kKeywordsXml, testing::BuiltinGrammar());
    desk.Start();
    desk.Hear("copy selected text");
    desk.Hear("clear whiteboard please");
    EXPECT_EQ(desk.Transcript(), kAccepted + "SendKeys ^c wait\nShell /copier.exe 1\n" + kAccepted +
                                     "Shell /board.exe 1\n");
}

TEST(RecognitionDispatch, WhatTimeIsItWithAKeywordTimeStartsItsProgram) {
    Desk desk;
    desk.Teach("time", "/clock.exe");
    desk.Start();
    desk.HearAs("what time is it", "the time");
    EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"/clock.exe"});
}

TEST(RecognitionDispatch, TheSearchGoesByTheTextAndNotByTheRule) {
    Desk desk;
    desk.Teach("notepad", "/usr/bin/xterm.exe");
    desk.Start();
    desk.HearAs("something else", "notepad");
    EXPECT_EQ(desk.Transcript(), kAccepted);
}

TEST(RecognitionDispatch, KeywordsAreSearchedInQuietModeToo) {
    Desk desk;
    desk.Teach("listening", "/ear.exe");
    desk.Start();
    desk.Hear("disable");
    desk.Transcript();
    desk.Hear("start listening");
    EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"/ear.exe"});
}

TEST(RecognitionDispatch, DisableFinishesItsStepsOnTheOldResult) {
    Desk desk;
    desk.Teach("listening", "/ear.exe");
    desk.Start();
    desk.Hear("stop listening");
    EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"/ear.exe"});
}

TEST(RecognitionDispatch, RuleNamesAreComparedInTheirExactCase) {
    Desk desk;
    desk.Start();
    desk.HearAs("copy", "Copy");
    EXPECT_EQ(desk.Transcript(), kAccepted);
    EXPECT_EQ(desk.Log(), "1, 0, Recognition,  [Text=copy] [Confidence=1]\r\n");
}

TEST(RecognitionDispatch, AConfidenceThatCannotBeFetchedIsThrownOut) {
    Desk desk;
    desk.Start();
    desk.desktop.record.Fail("Rule.Confidence", kAutomationError);
    desk.Hear("copy");
    // Its line can't be written either, since the line names the confidence.
    EXPECT_EQ(desk.Log(), "");
    EXPECT_EQ(desk.Transcript(), "DiscardResultInfo 255\n");
}

TEST(RecognitionDispatch, ATextThatCannotBeFetchedWritesNoLineAndTheRowStillActs) {
    Desk desk;
    desk.Start();
    desk.desktop.record.Fail("GetText", kAutomationError);
    desk.Hear("copy");
    EXPECT_EQ(desk.Log(), "");
    EXPECT_EQ(desk.Transcript(), kAccepted + "SendKeys ^c wait\n");
}

TEST(RecognitionDispatch, ARuleNameThatCannotBeFetchedLeavesTheKeywordSearch) {
    Desk desk;
    desk.Teach("notepad", "/usr/bin/xterm.exe");
    desk.Start();
    desk.desktop.record.Fail("Rule.Name", kAutomationError);
    desk.Hear("notepad");
    EXPECT_EQ(desk.Transcript(), kAccepted + "Shell /usr/bin/xterm.exe 1\n");
}

TEST(RecognitionDispatch, AFailingRowIsPassedOverInSilenceAndTheKeywordsFollow) {
    Desk desk;
    desk.Teach("copy", "/copier.exe");
    desk.desktop.files.Put(kKeywordsXml, testing::BuiltinGrammar());
    desk.Start();
    desk.desktop.record.Fail("SendKeys", kInvalidProcedureCall);
    desk.Hear("copy");
    EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"/copier.exe"});
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST(RecognitionDispatch, AFailingDiscardIsPassedOver) {
    Desk desk;
    desk.Start();
    desk.desktop.record.Fail("DiscardResultInfo", kAutomationError);
    desk.Hear("copy", SECLowConfidence);
    EXPECT_TRUE(desk.Hear("copy"));
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST(RecognitionDispatch, HideAndShowCorvaneMoveTheWindowToTheTrayAndBack) {
    Desk desk;
    desk.Start();
    desk.Hear("hide corvane");
    EXPECT_FALSE(desk.MainWindowVisible());
    EXPECT_EQ(desk.desktop.tray.Icons().size(), 1U);
    desk.Hear("show corvane");
    EXPECT_TRUE(desk.MainWindowVisible());
    EXPECT_TRUE(desk.desktop.tray.Icons().empty());
}

TEST(RecognitionDispatch, ACommandWorksWithTheWindowHidden) {
    Desk desk;
    desk.Start();
    desk.Hear("hide corvane");
    desk.Transcript();
    desk.Hear("copy");
    EXPECT_EQ(desk.Transcript(), kAccepted + "SendKeys ^c wait\n");
}

TEST(RecognitionDispatch, CloseCorvaneSaysGoodbyeAndEndsWithItsLastSound) {
    Desk desk;
    desk.Teach("corvane", "/bird.exe");
    desk.desktop.files.Put(kKeywordsXml, testing::BuiltinGrammar());
    desk.Start();
    desk.Hear("exit corvane");
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    // The end comes before the keywords are looked for.
    EXPECT_EQ(desk.Transcript(), kAccepted +
                                     "Speak \"<emph>goodbye</emph> \" flags=11\n"
                                     "WaitUntilDone 1000\n"
                                     "End\n");
    EXPECT_EQ(desk.desktop.queue.Now(), 5800ms);
}

TEST(RecognitionDispatch, CloseCorvaneDuringALongReadingCutsItOffAndIsGoneWithinASecond) {
    Desk desk;
    desk.Start();
    desk.desktop.Drive([&] {
        desk.desktop.windows.Type("Form2", "Text3", std::string(600, 'a'));
        desk.desktop.windows.Click("Form2", "Command2");
    });
    desk.Hear("quit corvane");
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    EXPECT_EQ(desk.desktop.queue.Now(), 5800ms);
}

TEST(RecognitionDispatch, CloseCorvaneEndsTheProcessEvenWhenNothingCanBeSaid) {
    Desk desk;
    desk.Start();
    desk.desktop.record.Fail("Speak", kAutomationError);
    desk.desktop.record.Fail("WaitUntilDone", kAutomationError);
    desk.Hear("close corvane");
    EXPECT_TRUE(desk.desktop.runtime.Ended());
}

TEST(RecognitionDispatch, CloseCorvaneBelowHighConfidenceEndsNothing) {
    Desk desk;
    desk.Start();
    desk.Hear("close corvane", SECNormalConfidence);
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

/// The dispatch by itself, with a voice beside it.
class DispatchWithVoice : public ::testing::Test {
protected:
    void Recognise(const std::string& rule, SpeechEngineConfidence confidence) {
        desktop.speech.Claim("words", rule, confidence);
        desktop.RunFor({});
    }
    /// The other program copies that text when it is told to.
    void OtherProgramCopies(const std::string& text) {
        desktop.runtime.OnSendKeys = [this, text](const std::string& keys) {
            if (keys == "^c") desktop.clipboard.Copy(text);
        };
    }
    DispatchWithVoice() {
        desktop.files.Put("/commands.xml", GrammarOf(SimpleRule("copy", "copy")));
        recogniser.Events.Recognition = [this](std::int32_t number, const Variant& position,
                                               std::int32_t type,
                                               const std::shared_ptr<ISpeechRecoResult>& result) {
            dispatch.RC_Recognition(number, position, type, *result);
        };
        recogniser.init_rec("/commands.xml");
    }

    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    DataPaths paths;
    Nullable<ISpeechVoice> voice{desktop.speech.CreateSpVoice()};
    KeywordStore keywords{desktop.files, paths};
    Recogniser recogniser{desktop.speech, voice};
    forms::Lazy<Form2> form2{[this] {
        return std::make_shared<Form2>(desktop.windows, loop, desktop.runtime, desktop.gdi,
                                       desktop.user32);
    }};
    TextLog log{form2};
    Speaker speaker{voice, form2, desktop.runtime, desktop.clipboard};
    TrayIcon tray{desktop.tray, form2};
    KeywordLauncher launcher{keywords, desktop.runtime};
    CommandGrammar grammar{desktop.files, paths};
    forms::Lazy<Form1> form1{[this] {
        return std::make_shared<Form1>(
            desktop.windows, loop,
            Form1::Parts{desktop.runtime, desktop.files, paths, keywords, grammar,
                         [this](const std::string& file) { recogniser.init_rec(file); }});
    }};
    forms::Lazy<Form3> form3{
        [this] { return std::make_shared<Form3>(desktop.windows, loop, desktop.speech); }};
    DesktopCommands commands{
        desktop.AsPlatform(),
        loop,
        form1,
        form2,
        {.SayFreeSpace = [this](const std::string& drive,
                                Long percent) { speaker.SayFreeSpace(drive, percent); },
         .SayMemory = [this](Long megabytes) { speaker.SayMemory(megabytes); }}};
    RichTextPrinter printer{desktop.printer, desktop.gdi, desktop.user32};
    bool PadActive = false;
    forms::Lazy<Form5> form5{
        [this] { return std::make_shared<Form5>(desktop.windows, loop, printer, PadActive); }};
    PadLog pad_log{form5};
    Training training{recogniser, desktop.runtime, form5};
    DictationMode dictation{desktop.runtime, paths, recogniser, form2, form5, pad_log, training};
    RecognitionDispatch dispatch{desktop.runtime, paths, recogniser, voice,    speaker,
                                 launcher,        form2, tray,       log,      keywords,
                                 form1,           form3, commands,   dictation};
};

TEST_F(DispatchWithVoice, AnAcceptedCommandEndsTheMarkingOfWords) {
    voice->SetEventInterests(548);
    Recognise("copy", SECHighConfidence);
    EXPECT_EQ(voice->EventInterests(), 512);
}

TEST_F(DispatchWithVoice, AThrownOutPhraseLeavesTheVoicesInterestsAlone) {
    voice->SetEventInterests(548);
    Recognise("copy", SECNormalConfidence);
    EXPECT_EQ(voice->EventInterests(), 548);
}

TEST_F(DispatchWithVoice, WithoutAVoiceEveryAnswerIsPassedOverInSilence) {
    voice = {};
    OtherProgramCopies("from elsewhere");
    const std::pair<const char*, const char*> kCalls[] = {
        {"the date", ""},
        {"the time", ""},
        {"free space", "Drives\n"},
        {"how much ram", ""},
        {"read whiteboard", ""},
        {"read selected", "SendKeys ^c wait\nClipboard.GetText\n"},
        {"read all", "SendKeys ^a wait\nSendKeys ^c wait\nClipboard.GetText\n"},
        {"copy", "SendKeys ^c wait\n"},
    };
    for (const auto& [rule, calls] : kCalls) {
        desktop.record.Clear();
        Recognise(rule, SECHighConfidence);
        EXPECT_EQ(desktop.record.Transcript(), calls) << rule;
    }
    EXPECT_EQ(form2->Text3.Text(), "from elsewhere");
    EXPECT_FALSE(desktop.runtime.Ended());
}

TEST_F(DispatchWithVoice, AVoiceThatRefusesItsInterestsDoesNotStopTheCommand) {
    desktop.record.Fail("voice.EventInterests", kAutomationError);
    desktop.record.Clear();
    Recognise("copy", SECHighConfidence);
    EXPECT_EQ(desktop.record.Transcript(), "voice.EventInterests 512\nSendKeys ^c wait\n");
}

}  // namespace
}  // namespace corvane
