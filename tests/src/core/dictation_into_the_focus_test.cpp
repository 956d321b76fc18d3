// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// What is dictated into whatever window has the focus: keys, and what they take back.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/dictation_desk.h"

namespace corvane {
namespace {

using testing::DictationDesk;
using testing::kCommandsAgain;

class DictationIntoTheFocus : public ::testing::Test {
protected:
    DictationIntoTheFocus() { desk.DictateIntoFocus(); }
    DictationDesk desk;
};

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
