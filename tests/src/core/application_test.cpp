// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/application.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;

TEST(Application, FromSpeechToARunningProgram) {
    Desk desk;
    desk.Teach("notepad", "/usr/bin/xterm.exe");
    desk.Start();
    EXPECT_TRUE(desk.Hear("run notepad please"));
    EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"/usr/bin/xterm.exe"});
    EXPECT_EQ(desk.Log(), "1, 0, Recognition,  [Text=run notepad please] [Confidence=1]\r\n");
}

TEST(Application, TheExitEntryEndsTheProcessAtOnceAndWithoutAWord) {
    Desk desk;
    desk.Start();
    desk.desktop.Drive([&] { desk.desktop.windows.ClickMenu("Form2", "mnuExit"); });
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    EXPECT_EQ(desk.Transcript(), "End\n");
}

TEST(Application, ClosingTheMainWindowEndsTheProcessAtOnceAndWithoutAWord) {
    Desk desk;
    desk.Start();
    desk.desktop.Drive([&] { desk.desktop.windows.CloseByFrame("Form2"); });
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    EXPECT_EQ(desk.Transcript(), "End\n");
}

TEST(Application, AnEndLeavesTheIconInTheTray) {
    Desk desk;
    desk.Start();
    desk.Hear("hide corvane");
    desk.Hear("close corvane");
    EXPECT_EQ(desk.desktop.tray.Icons().size(), 1U);
}

TEST(Application, TheAboutBoxIsModalAndClosesWithItsButton) {
    Desk desk;
    desk.Start();
    desk.desktop.queue.PostAfter(std::chrono::seconds(2), [&] {
        EXPECT_TRUE(desk.desktop.windows.Window("Form4").modal);
        desk.desktop.windows.Click("Form4", "Command1");
    });
    desk.desktop.Drive([&] { desk.desktop.windows.ClickMenu("Form2", "mnuAbout"); });
    EXPECT_FALSE(desk.desktop.windows.Window("Form4").visible);
    EXPECT_EQ(desk.Transcript(), "ShowModal Form4\nHide Form4\n");
}

TEST(Application, TheAboutBoxLooksTheSameEachTime) {
    Desk desk;
    desk.Start();
    for (int showing = 0; showing < 2; ++showing) {
        desk.desktop.queue.PostAfter(std::chrono::seconds(1), [&] {
            const auto& about = desk.desktop.windows.Window("Form4");
            EXPECT_EQ(about.border, BorderStyle::FixedSingle);
            EXPECT_TRUE(about.buttons.at("Command1").visible);
            EXPECT_EQ(about.captions.at("Label1"), "KT Corvane 3.0");
            desk.desktop.windows.Click("Form4", "Command1");
        });
        desk.desktop.Drive([&] { desk.desktop.windows.ClickMenu("Form2", "mnuAbout"); });
    }
}

TEST(Application, CommandsAreHeardWhileTheAboutBoxStands) {
    Desk desk;
    desk.Start();
    desk.desktop.queue.PostAfter(std::chrono::seconds(1), [&] { desk.desktop.speech.Say("copy"); });
    desk.desktop.queue.PostAfter(std::chrono::seconds(2),
                                 [&] { desk.desktop.windows.Click("Form4", "Command1"); });
    desk.desktop.Drive([&] { desk.desktop.windows.ClickMenu("Form2", "mnuAbout"); });
    EXPECT_EQ(desk.Transcript(),
              "ShowModal Form4\nvoice.EventInterests 512\nSendKeys ^c wait\nHide Form4\n");
}

TEST(Application, TheHelpEntryOpensThePageBesideTheProgram) {
    Desk desk;
    desk.Start();
    desk.desktop.Drive([&] { desk.desktop.windows.ClickMenu("Form2", "mnuHDoc"); });
    EXPECT_EQ(desk.Transcript(),
              "CreateInternetExplorer\nie.Visible true\nNavigate2 /opt/corvane/help.html\n");
}

TEST(Application, ABrowserThatCannotBeOpenedIsReportedAndEndsTheProcess) {
    Desk desk;
    desk.Start();
    desk.desktop.record.Fail("Navigate2", kAutomationError);
    desk.desktop.Drive([&] { desk.desktop.windows.ClickMenu("Form2", "mnuHDoc"); });
    EXPECT_TRUE(desk.desktop.runtime.Ended());
}

TEST(Application, TheReadButtonReadsTheWhiteboardAndWantsToKnowOfItsWords) {
    Desk desk;
    desk.Start();
    desk.desktop.Drive([&] {
        desk.desktop.windows.Type("Form2", "Text3", "milk & bread");
        desk.desktop.windows.Click("Form2", "Command2");
    });
    EXPECT_EQ(desk.Transcript(), "voice.EventInterests 548\nSpeak \"milk & bread\" flags=11\n");
}

TEST(Application, AReadingThatIsRefusedIsReportedAndEndsTheProcess) {
    Desk desk;
    desk.Start();
    desk.desktop.record.Fail("Speak", kAutomationError);
    desk.desktop.Drive([&] { desk.desktop.windows.Click("Form2", "Command2"); });
    EXPECT_TRUE(desk.desktop.runtime.Ended());
}

TEST(Application, ClearDuringAReadingEmptiesTheWhiteboardAndTheVoiceReadsOn) {
    Desk desk;
    desk.Start();
    desk.desktop.Drive([&] {
        desk.desktop.windows.Type("Form2", "Text3", "milk");
        desk.desktop.windows.Click("Form2", "Command2");
        desk.desktop.windows.Click("Form2", "Command3");
    });
    EXPECT_EQ(desk.desktop.windows.Window("Form2").texts.at("Text3").text, "");
    EXPECT_EQ(desk.Transcript(), "voice.EventInterests 548\nSpeak \"milk\" flags=11\n");
}

}  // namespace
}  // namespace corvane
