// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/application.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;
using testing::kKeywordsTxt;
using testing::kKeywordsXml;

TEST(Application, ComesUpListeningAndThenShowsItsWindow) {
    simulated::SimulatedDesktop desktop;
    desktop.files.Put(kKeywordsTxt, "");
    desktop.files.Put(kKeywordsXml, testing::BuiltinGrammar());
    Application application(desktop.AsPlatform());
    desktop.Drive([&] { application.Run(); });
    EXPECT_EQ(desktop.record.Transcript(),
              "CreateSpSharedRecoContext\n"
              "CmdLoadFromFile /opt/corvane/keywords.xml 1\n"
              "CmdSetRuleIdState 0 1\n"
              "rc.EventInterests 66608\n"
              "OpenTextFile /opt/corvane/keywords.txt\n"
              "OpenTextFile /opt/corvane/keywords.txt\n"
              "Show Form2\n");
    EXPECT_TRUE(desktop.windows.Window("Form2").visible);
}

TEST(Application, WithoutKeywordsTxtItReportsTheErrorAndEndsBeforeAnythingIsShown) {
    Desk desk;
    desk.desktop.files.Remove(kKeywordsTxt);
    desk.Start();
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    EXPECT_FALSE(desk.desktop.windows.Window("Form2").visible);
    EXPECT_FALSE(desk.desktop.files.Bytes(kKeywordsTxt).has_value());
}

TEST(Application, TheReportOfAMissingFileNamesIt) {
    simulated::SimulatedDesktop desktop;
    Application application(desktop.AsPlatform());
    desktop.Drive([&] { application.Run(); });
    EXPECT_NE(desktop.record.Transcript().find(
                  "ShowErrorReport 53 File not found: /opt/corvane/keywords.txt\nEnd\n"),
              std::string::npos);
}

TEST(Application, WithoutACommandGrammarItIsAwakeAndDeaf) {
    Desk desk;
    desk.desktop.files.Remove(kKeywordsXml);
    desk.Start();
    EXPECT_FALSE(desk.desktop.runtime.Ended());
    EXPECT_FALSE(desk.Hear("copy"));
}

TEST(Application, TheExitEntryEndsTheProcessAtOnce) {
    Desk desk;
    desk.Start();
    desk.desktop.Drive([&] { desk.desktop.windows.ClickMenu("Form2", "mnuExit"); });
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    EXPECT_EQ(desk.Transcript(), "End\n");
}

TEST(Application, ClosingTheMainWindowEndsTheProcessAtOnce) {
    Desk desk;
    desk.Start();
    desk.desktop.Drive([&] { desk.desktop.windows.CloseByFrame("Form2"); });
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    EXPECT_EQ(desk.Transcript(), "End\n");
}

TEST(Application, FromSpeechToARunningProgram) {
    Desk desk;
    desk.Teach("notepad", "/usr/bin/xterm.exe");
    desk.Start();
    EXPECT_TRUE(desk.Hear("run notepad please"));
    EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"/usr/bin/xterm.exe"});
    EXPECT_EQ(desk.Log(), "1, 0, Recognition,  [Text=run notepad please] [Confidence=1]\r\n");
}

}  // namespace
}  // namespace corvane
