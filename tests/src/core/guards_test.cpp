// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <functional>

#include "simulated/simulated_context.h"
#include "support/desk.h"

/// What an error does in each part of the system: it is passed over, or it ends the process.
namespace corvane {
namespace {

using testing::Desk;

enum class Effect { PassedOver, EndsTheProcess };

struct Guard {
    const char* where;
    const char* failing;  ///< the operation that is told to fail
    std::function<void(Desk&)> act;
    Effect effect;
};

void ClickMenu(Desk& desk, const char* menu) {
    desk.desktop.Drive([&] { desk.desktop.windows.ClickMenu("Form2", menu); });
}

void ClickButton(Desk& desk, const char* button) {
    desk.desktop.Drive([&] { desk.desktop.windows.Click("Form2", button); });
}

const Guard kGuards[] = {
    {"init_rec", "CmdLoadFromFile", [](Desk& desk) { desk.Hear("disable"); }, Effect::PassedOver},
    {"RC_Recognition", "SendKeys", [](Desk& desk) { desk.Hear("copy"); }, Effect::PassedOver},
    {"RC_Recognition, the log", "SetText", [](Desk& desk) { desk.Hear("copy"); },
     Effect::PassedOver},
    {"RC_Recognition, hiding", "Shell_NotifyIconA", [](Desk& desk) { desk.Hear("hide corvane"); },
     Effect::PassedOver},
    {"the return from the tray", "Shell_NotifyIconA", [](Desk& desk) { desk.Hear("show corvane"); },
     Effect::PassedOver},
    {"RC_Hypothesis", "SetText",
     [](Desk& desk) {
         desk.desktop.speech.Guess("copy", "copy", SECHighConfidence);
         desk.desktop.RunFor({});
     },
     Effect::EndsTheProcess},
    {"RC_Interference", "SetText",
     [](Desk& desk) {
         desk.desktop.speech.Trouble(SINoise);
         desk.desktop.RunFor({});
     },
     Effect::EndsTheProcess},
    {"RC_AudioLevel", "SetText",
     [](Desk& desk) {
         desk.desktop.speech.Level(50);
         desk.desktop.RunFor({});
     },
     Effect::EndsTheProcess},
    {"rc_Adaptation", "rc.EventInterests",
     [](Desk& desk) {
         desk.desktop.speech.Contexts().at(0)->SetEventInterests(66608 + SREAdaptation);
         desk.desktop.record.Fail("rc.EventInterests", kAutomationError);
         desk.desktop.speech.Adapted();
         desk.desktop.RunFor({});
     },
     Effect::EndsTheProcess},
    {"the Read button", "Speak", [](Desk& desk) { ClickButton(desk, "Command2"); },
     Effect::EndsTheProcess},
    {"the Clear button", "SetText", [](Desk& desk) { ClickButton(desk, "Command3"); },
     Effect::EndsTheProcess},
    {"RC_Recognition, a reading", "Speak", [](Desk& desk) { desk.Hear("read whiteboard"); },
     Effect::PassedOver},
    {"the command list", "Speak",
     [](Desk& desk) {
         desk.desktop.Drive([&] { desk.desktop.windows.DoubleClick("Form2", "List1", "Time"); });
     },
     Effect::EndsTheProcess},
    {"voice_AudioLevel", "SetText",
     [](Desk& desk) {
         desk.desktop.record.Heal("SetText");
         desk.Hear("what time is it");
         desk.desktop.record.Fail("SetText", kAutomationError);
         desk.desktop.RunFor(std::chrono::seconds(1));
     },
     Effect::EndsTheProcess},
    {"voice_Word", "SetSelection",
     [](Desk& desk) {
         desk.desktop.Drive([&] { desk.desktop.windows.Type("Form2", "Text3", "one"); });
         ClickButton(desk, "Command2");
         desk.desktop.RunFor({});
     },
     Effect::EndsTheProcess},
    {"voice_EndStream", "SetSelection",
     [](Desk& desk) {
         ClickButton(desk, "Command2");
         desk.desktop.RunFor({});
     },
     Effect::EndsTheProcess},
    {"the help entry", "CreateInternetExplorer", [](Desk& desk) { ClickMenu(desk, "mnuHDoc"); },
     Effect::EndsTheProcess},
};

TEST(Guards, AnErrorIsPassedOverOrEndsTheProcessPlaceByPlace) {
    for (const Guard& guard : kGuards) {
        Desk desk;
        desk.Start();
        if (std::string(guard.failing) != "rc.EventInterests")
            desk.desktop.record.Fail(guard.failing, kAutomationError);
        guard.act(desk);
        EXPECT_EQ(desk.desktop.runtime.Ended(), guard.effect == Effect::EndsTheProcess)
            << guard.where;
        const bool reported = desk.Transcript().find("ShowErrorReport 440") != std::string::npos;
        EXPECT_EQ(reported, guard.effect == Effect::EndsTheProcess) << guard.where;
    }
}

TEST(Guards, AnErrorInTheMainWindowsLoadEndsTheProcess) {
    for (const char* failing : {"ExecutableFolder", "CreateSpVoice", "OpenTextFile", "ReadLine"}) {
        Desk desk("notepad\r\n/usr/bin/xterm.exe\r\n");
        desk.Launch();
        desk.desktop.record.Fail(failing, kPermissionDenied);
        desk.desktop.RunFor(std::chrono::seconds(5));
        EXPECT_TRUE(desk.desktop.runtime.Ended()) << failing;
        EXPECT_FALSE(desk.MainWindowVisible()) << failing;
    }
}

}  // namespace
}  // namespace corvane
