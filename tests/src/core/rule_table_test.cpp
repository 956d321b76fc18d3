// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "core/recognition_dispatch.h"
#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;

struct Row {
    const char* rule;
    const char* call;  ///< behind the voice's interests, which every command sets
};

/// The rules of the command grammar and of the quiet one, in the order in which they are compared,
/// and what each of them does to the desktop.
const Row kRows[] = {
    {"dictation notepad", "Show Form5"},
    {"dictate", "DictationSetState 1"},
    {"hide corvane", "Hide Form2"},
    {"show corvane", "Shell_NotifyIconA NIM_DELETE"},
    {"copy", "SendKeys ^c wait"},
    {"paste", "SendKeys ^v wait"},
    {"yes", "SendKeys y wait"},
    {"no", "SendKeys n wait"},
    {"cancel", "SendKeys {ESC} wait"},
    {"okay", "SendKeys {ENTER} wait"},
    {"disconnect from net", "InternetAutodialHangup 0"},
    {"connect to net", "InternetAutodial 2 0"},
    {"how much ram", "Speak \"You have 8192 megabytes of ram installed.\" flags=11"},
    {"shutdown", "ExitWindowsEx 9 4294967295"},
    {"reboot", "ExitWindowsEx 2 4294967295"},
    {"free space",
     "Speak \"Drive <spell>c</spell> has 37 percent of its space remaining.\" flags=11"},
    {"normalize", "ShowWindow 5001 1"},
    {"maximize", "ShowWindow 5001 3"},
    {"minimize", "ShowWindow 5001 6"},
    {"add programs", "Show Form1"},
    {"calendar", "CreateSpSharedRecoContext"},
    {"the date", "Speak \"<emph>Today</emph> is, Tuesday, Nov 20 2001\" flags=11"},
    {"the time", "Speak \"The <emph>time</emph> is, 3:05 PM\" flags=11"},
    {"clean whiteboard", ""},
    {"read whiteboard", "voice.EventInterests 548"},
    {"read selected", "SendKeys ^c wait"},
    {"read all", "SendKeys ^a wait"},
    {"close window", "PostMessageA 5001 16 0 0"},
    {"close corvane", "Speak \"<emph>goodbye</emph> \" flags=11"},
    {"you there", "Speak \"I'm right here\" flags=11"},
    {"eject", "mciSendStringA \"Set CDAudio Door Open Wait\" \"0\" 0 0"},
    {"recycle bin", "SHEmptyRecycleBinA 4003 \"\" 1"},
    {"disable", "CmdLoadFromFile /opt/corvane/quiet.xml 1"},
    {"reenable", "CmdLoadFromFile /opt/corvane/keywords.xml 1"},
};

TEST(RuleTable, EachRuleLeadsToItsOwnAction) {
    for (const auto& [rule, call] : kRows) {
        Desk desk;
        desk.Start();
        desk.desktop.screen.Open("Letter - Editor");
        desk.HearAs("on drive c", rule);
        EXPECT_NE(desk.Transcript().find("\n" + std::string(call)), std::string::npos) << rule;
    }
}

TEST(RuleTable, AnyOtherCaseOfARuleIsNoRule) {
    for (const auto& [rule, call] : kRows) {
        Desk desk;
        desk.Start();
        std::string other(rule);
        other[0] = static_cast<char>(other[0] - 'a' + 'A');
        desk.HearAs("words", other);
        EXPECT_EQ(desk.Transcript(), "voice.EventInterests 512\n") << other;
    }
}

TEST(RuleTable, NoActionIsTakenBelowHighConfidence) {
    for (const auto& [rule, call] : kRows) {
        Desk desk;
        desk.Start();
        desk.HearAs("on drive c", rule, SECNormalConfidence);
        EXPECT_EQ(desk.Transcript(), "DiscardResultInfo 255\n") << rule;
    }
}

TEST(RuleTable, KeywordsAreLookedForBehindEveryRowThatDoesNotEndTheProcess) {
    for (const auto& [rule, call] : kRows) {
        if (std::string(rule) == "close corvane") continue;
        Desk desk;
        desk.Teach("keyword", "/program.exe");
        desk.Start();
        desk.HearAs("with keyword c", rule);
        EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"/program.exe"}) << rule;
    }
}

}  // namespace
}  // namespace corvane
