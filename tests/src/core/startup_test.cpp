// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/startup.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;
using testing::kKeywordsTxt;
using testing::kKeywordsXml;
using namespace std::chrono_literals;

TEST(Startup, ShowsTheSplashWithoutBorderAndButtonFirst) {
    Desk desk;
    desk.Launch();
    const auto& splash = desk.desktop.windows.Window("Form4");
    EXPECT_TRUE(splash.visible);
    EXPECT_EQ(splash.border, BorderStyle::None);
    EXPECT_FALSE(splash.buttons.at("Command1").visible);
    EXPECT_EQ(splash.captions.at("Label1"), "KT Corvane 3.0");
}

TEST(Startup, NothingIsRecognisedAndNoMainWindowIsThereInTheFirstFiveSeconds) {
    Desk desk;
    desk.Launch();
    desk.desktop.RunFor(4999ms);
    EXPECT_FALSE(desk.desktop.windows.Exists("Form2"));
    EXPECT_FALSE(desk.Hear("copy"));
    desk.desktop.RunFor(1ms);
    EXPECT_TRUE(desk.MainWindowVisible());
    EXPECT_TRUE(desk.Hear("copy"));
}

TEST(Startup, TheWholeInitialisationRunsInsideTheFifthTickInItsOrder) {
    Desk desk;
    desk.Launch();
    desk.desktop.RunFor(5s);
    EXPECT_EQ(desk.desktop.record.Transcript(),
              "Show Form4\n"
              "t=5000 Hide Form4\n"
              "t=5000 CreateSpSharedRecoContext\n"
              "t=5000 CmdLoadFromFile /opt/corvane/keywords.xml 1\n"
              "t=5000 CmdSetRuleIdState 0 1\n"
              "t=5000 rc.EventInterests 66608\n"
              "t=5000 RegOpenKeyExA SOFTWARE\\Brindel\\ktcv\\ 1\n"
              "t=5000 CreateSpVoice\n"
              "t=5000 OpenTextFile /opt/corvane/keywords.txt\n"
              "t=5000 OpenTextFile /opt/corvane/keywords.txt\n"
              "t=5000 Show Form2\n");
}

TEST(Startup, TheSplashIsReadyToBeTheAboutBoxAfterwards) {
    Desk desk;
    desk.Start();
    const auto& splash = desk.desktop.windows.Window("Form4");
    EXPECT_FALSE(splash.visible);
    EXPECT_EQ(splash.border, BorderStyle::FixedSingle);
    EXPECT_TRUE(splash.buttons.at("Command1").visible);
}

TEST(Startup, TheHandOverHappensOnce) {
    Desk desk;
    desk.Start();
    desk.desktop.RunFor(60s);
    EXPECT_EQ(desk.Transcript(), "");
}

TEST(Startup, TheTrayPictureIsTheClosedOne) {
    Desk desk;
    desk.Start();
    EXPECT_EQ(desk.desktop.windows.Window("Form2").pictures.at("Picture1"), "cd_closed");
}

TEST(Startup, WithoutAVoiceTheLoadReportsTheErrorAndTheProcessEnds) {
    Desk desk;
    desk.desktop.record.Fail("CreateSpVoice", kAutomationError);
    desk.Start();
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    EXPECT_FALSE(desk.MainWindowVisible());
}

TEST(Startup, WithoutAnEngineAtAllTheRecogniserIsPassedOverAndTheVoiceIsReported) {
    Desk desk;
    desk.desktop.record.Fail("CreateSpSharedRecoContext", kAutomationError);
    desk.desktop.record.Fail("CreateSpVoice", kAutomationError);
    desk.Launch();
    desk.desktop.RunFor(5s);
    EXPECT_NE(desk.desktop.record.Transcript().find("ShowErrorReport 440"), std::string::npos);
    EXPECT_TRUE(desk.desktop.runtime.Ended());
}

TEST(Startup, WithoutARecogniserAloneTheWindowComesUpDeaf) {
    Desk desk;
    desk.desktop.record.Fail("CreateSpSharedRecoContext", kAutomationError);
    desk.Start();
    EXPECT_TRUE(desk.MainWindowVisible());
    EXPECT_FALSE(desk.Hear("copy"));
}

TEST(Startup, WithoutKeywordsTxtItNamesTheFileAndEnds) {
    Desk desk;
    desk.desktop.files.Remove(kKeywordsTxt);
    desk.Launch();
    desk.desktop.RunFor(5s);
    EXPECT_NE(desk.desktop.record.Transcript().find(
                  "ShowErrorReport 53 File not found: /opt/corvane/keywords.txt\n"),
              std::string::npos);
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    EXPECT_FALSE(desk.MainWindowVisible());
    EXPECT_FALSE(desk.desktop.files.Bytes(kKeywordsTxt).has_value());
}

TEST(Startup, WithoutACommandGrammarItIsAwakeAndDeaf) {
    Desk desk;
    desk.desktop.files.Remove(kKeywordsXml);
    desk.Start();
    EXPECT_TRUE(desk.MainWindowVisible());
    EXPECT_FALSE(desk.Hear("copy"));
}

TEST(Startup, NoSettingIsWritten) {
    Desk desk;
    desk.Start();
    EXPECT_FALSE(desk.desktop.registry.Get("SOFTWARE\\Brindel\\ktcv", "checktraining").has_value());
}

}  // namespace
}  // namespace corvane
