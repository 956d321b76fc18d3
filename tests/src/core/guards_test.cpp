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
    std::function<void(Desk&)> before = [](Desk&) {};  ///< while nothing fails yet
};

void ClickMenu(Desk& desk, const char* menu) {
    desk.desktop.Drive([&] { desk.desktop.windows.ClickMenu("Form2", menu); });
}

void ClickButton(Desk& desk, const char* button, const char* window = "Form2") {
    desk.desktop.Drive([&] { desk.desktop.windows.Click(window, button); });
}

/// The Add Programs window with two rows, the first chosen.
void OpenAddPrograms(Desk& desk) {
    desk.Teach("one", "/one.exe");
    desk.Teach("two", "/two.exe");
    desk.Hear("add program");
    desk.desktop.Drive([&] { desk.desktop.windows.ClickRow("Form1", "ListView1", 0); });
}

void OpenCalendar(Desk& desk) {
    desk.Hear("calendar");
}

void OpenPad(Desk& desk) {
    desk.Hear("dictation pad");
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
    {"a command on the window in front", "ShowWindow", [](Desk& desk) { desk.Hear("maximize"); },
     Effect::PassedOver},
    {"the end of the session", "AdjustTokenPrivileges", [](Desk& desk) { desk.Hear("reboot"); },
     Effect::PassedOver},
    {"ToggleCdDoor", "mciSendStringA", [](Desk& desk) { desk.Hear("eject"); }, Effect::PassedOver},
    {"emptying the bin", "SHEmptyRecycleBinA", [](Desk& desk) { desk.Hear("recycle bin"); },
     Effect::PassedOver},
    {"dialling", "InternetAutodial", [](Desk& desk) { desk.Hear("connect"); }, Effect::PassedOver},
    {"the space on a drive", "Drives", [](Desk& desk) { desk.Hear("free space c"); },
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
    {"Form1's load", "FileLen", [](Desk& desk) { desk.Hear("add program"); }, Effect::PassedOver},
    {"Browse", "AskForFile", [](Desk& desk) { ClickButton(desk, "Command1", "Form1"); },
     Effect::EndsTheProcess, OpenAddPrograms},
    {"Add", "WriteLine",
     [](Desk& desk) {
         desk.desktop.Drive([&] { desk.desktop.windows.Type("Form1", "Text1", " more"); });
         ClickButton(desk, "Command2", "Form1");
     },
     Effect::EndsTheProcess, OpenAddPrograms},
    {"Delete", "WriteLine", [](Desk& desk) { ClickButton(desk, "Command3", "Form1"); },
     Effect::EndsTheProcess, OpenAddPrograms},
    {"Clear All", "CreateTextFile", [](Desk& desk) { ClickButton(desk, "Command4", "Form1"); },
     Effect::PassedOver, OpenAddPrograms},
    {"a double click", "CreateTextFile",
     [](Desk& desk) {
         desk.desktop.Drive([&] { desk.desktop.windows.DoubleClickRow("Form1", "ListView1", 0); });
     },
     Effect::PassedOver, OpenAddPrograms},
    {"a click on a row", "SetText",
     [](Desk& desk) {
         desk.desktop.Drive([&] { desk.desktop.windows.ClickRow("Form1", "ListView1", 1); });
     },
     Effect::EndsTheProcess, OpenAddPrograms},
    {"the search while typing", "SelectRow",
     [](Desk& desk) { desk.desktop.Drive([&] { desk.desktop.windows.Erase("Form1", "Text1"); }); },
     Effect::PassedOver, OpenAddPrograms},
    {"the search of the check box", "SelectRow",
     [](Desk& desk) {
         desk.desktop.Drive([&] { desk.desktop.windows.Check("Form1", "Check2", true); });
     },
     Effect::EndsTheProcess, OpenAddPrograms},
    {"the calendar's own recogniser", "CmdLoadFromFile", [](Desk& desk) { desk.Hear("calendar"); },
     Effect::PassedOver},
    {"the calendar's voice, by the command that shows it", "CreateSpVoice",
     [](Desk& desk) { desk.Hear("calendar"); }, Effect::PassedOver},
    {"RC2_Recognition", "SetDate", [](Desk& desk) { desk.Hear("March"); }, Effect::PassedOver,
     OpenCalendar},
    {"RC_Recognition, dictated text", "ReplaceSelection", [](Desk& desk) { desk.Hear("words"); },
     Effect::PassedOver, OpenPad},
    {"RC_Recognition, training", "DisplayUI", [](Desk& desk) { desk.Hear("train that"); },
     Effect::PassedOver, OpenPad},
    {"RC_Recognition, printing", "AskForPrinter", [](Desk& desk) { desk.Hear("print page"); },
     Effect::PassedOver, OpenPad},
    {"PrintRichText", "Printer.Print", [](Desk& desk) { desk.Hear("print page"); },
     Effect::PassedOver, OpenPad},
    {"RC_Hypothesis, dictating", "SetText",
     [](Desk& desk) {
         desk.desktop.speech.Guess("words", "", SECHighConfidence);
         desk.desktop.RunFor({});
     },
     Effect::EndsTheProcess, OpenPad},
    {"Train Profile, the question", "InputBox",
     [](Desk& desk) { ClickButton(desk, "Command1", "Form5"); }, Effect::EndsTheProcess, OpenPad},
    {"Train Profile", "DisplayUI", [](Desk& desk) { ClickButton(desk, "Command1", "Form5"); },
     Effect::EndsTheProcess, OpenPad},
    {"Form5's unload", "CreateSpSharedRecoContext",
     [](Desk& desk) { ClickButton(desk, "Command2", "Form5"); }, Effect::PassedOver, OpenPad},
    {"Form3's resize", "SetPlace",
     [](Desk& desk) {
         desk.desktop.Drive([&] { desk.desktop.windows.Resize("Form3", 5000, 5000); });
     },
     Effect::EndsTheProcess, OpenCalendar},
    {"Form3's unload", "CmdSetRuleIdState",
     [](Desk& desk) { desk.desktop.Drive([&] { desk.desktop.windows.CloseByFrame("Form3"); }); },
     Effect::EndsTheProcess, OpenCalendar},
};

TEST(Guards, AnErrorIsPassedOverOrEndsTheProcessPlaceByPlace) {
    for (const Guard& guard : kGuards) {
        Desk desk;
        desk.Start();
        guard.before(desk);
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
