// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "speech/sentences.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;
using namespace std::chrono_literals;

struct Answer {
    const char* rule;
    const char* sentence;
};

TEST(Sentences, EachQuestionIsAnsweredWordForWord) {
    const Answer kAnswers[] = {
        {"the date", "<emph>Today</emph> is, Tuesday, Nov 20 2001"},
        {"the time", "The <emph>time</emph> is, 3:05 PM"},
        {"close corvane", "<emph>goodbye</emph> "},
        {"you there", "I'm right here"},
    };
    for (const auto& [rule, sentence] : kAnswers) {
        Desk desk;
        desk.Start();
        desk.HearAs("words", rule);
        const std::string expected =
            "voice.EventInterests 512\nSpeak \"" + std::string(sentence) + "\" flags=11\n";
        EXPECT_TRUE(desk.Transcript().starts_with(expected)) << rule;
    }
}

TEST(Sentences, TheFreeSpaceSentenceSpellsTheDriveInItsCase) {
    EXPECT_EQ(FreeSpaceSentence("c", 40),
              "Drive <spell>c</spell> has 40 percent of its space remaining.");
    EXPECT_EQ(FreeSpaceSentence("D", 0),
              "Drive <spell>D</spell> has 0 percent of its space remaining.");
}

TEST(Sentences, TheMemorySentenceNamesTheInstalledMegabytes) {
    EXPECT_EQ(MemorySentence(16384), "You have 16384 megabytes of ram installed.");
    EXPECT_EQ(MemorySentence(0), "You have 0 megabytes of ram installed.");
}

TEST(Sentences, DateAndTimeAreThoseOfTheMomentOfTheQuestion) {
    Desk desk;
    desk.desktop.runtime.SetClock(std::chrono::sys_days(std::chrono::year(2024) / 2 / 28) + 23h +
                                  59min + 54s);
    desk.Start();  // takes five seconds
    desk.Hear("what time is it");
    desk.desktop.RunFor(1s);
    desk.Hear("what is the date");
    desk.Hear("what time is it");
    EXPECT_EQ(desk.Transcript(),
              "voice.EventInterests 512\nSpeak \"The <emph>time</emph> is, 11:59 PM\" flags=11\n"
              "voice.EventInterests 512\n"
              "Speak \"<emph>Today</emph> is, Thursday, Feb 29 2024\" flags=11\n"
              "voice.EventInterests 512\nSpeak \"The <emph>time</emph> is, 12:00 AM\" flags=11\n");
}

TEST(Sentences, TheTimeIsThatOfAClockThatWasSetMeanwhile) {
    Desk desk;
    desk.Start();
    for (const auto hour : {8h, 3h}) {
        desk.desktop.runtime.SetClock(std::chrono::sys_days(std::chrono::year(2024) / 2 / 28) +
                                      hour);
        desk.Transcript();
        desk.Hear("what time is it");
        EXPECT_EQ(desk.Transcript(),
                  "voice.EventInterests 512\nSpeak \"The <emph>time</emph> is, " +
                      std::to_string(hour.count()) + ":00 AM\" flags=11\n");
    }
}

TEST(Sentences, DaysAndHalvesOfTheDayAreCalledAsThePersonsLocaleDoes) {
    Desk desk;
    DateNames names;
    names.weekdays.fill("mardi");
    names.short_months.fill("nov.");
    names.am = names.pm = "DU SOIR";
    desk.desktop.runtime.SetDateNames(names);
    desk.Start();
    desk.Hear("what is the date");
    desk.Hear("what time is it");
    EXPECT_EQ(desk.Transcript(),
              "voice.EventInterests 512\n"
              "Speak \"<emph>Today</emph> is, mardi, nov. 20 2001\" flags=11\n"
              "voice.EventInterests 512\n"
              "Speak \"The <emph>time</emph> is, 3:05 DU SOIR\" flags=11\n");
}

TEST(Sentences, WhatTimeIsItWithAKeywordTimeSaysTheTimeAndStartsTheProgram) {
    Desk desk;
    desk.Teach("time", "/clock.exe");
    desk.Start();
    desk.HearAs("what time is it", "the time");
    EXPECT_EQ(desk.Transcript(),
              "voice.EventInterests 512\nSpeak \"The <emph>time</emph> is, 3:05 PM\" flags=11\n"
              "Shell /clock.exe 1\n");
}

TEST(Sentences, AVoiceThatRefusesToSpeakIsPassedOverInSilence) {
    for (const char* rule :
         {"the date", "the time", "you there", "read whiteboard", "read all", "read selected"}) {
        Desk desk;
        desk.Start();
        desk.desktop.record.Fail("Speak", kAutomationError);
        desk.HearAs("words", rule);
        EXPECT_FALSE(desk.desktop.runtime.Ended()) << rule;
        EXPECT_EQ(desk.Transcript().find("ShowErrorReport"), std::string::npos) << rule;
    }
}

TEST(Sentences, AClockThatCannotBeReadMakesNoAnswer) {
    Desk desk;
    desk.Start();
    desk.desktop.record.Fail("Now", kAutomationError);
    desk.Hear("what time is it");
    EXPECT_EQ(desk.Transcript(), "voice.EventInterests 512\n");
}

}  // namespace
}  // namespace corvane
