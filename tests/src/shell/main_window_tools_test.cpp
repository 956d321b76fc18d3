// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "runtime/text.h"
#include "shell/form2.h"
#include "shell/form_tools.h"
#include "shell/help_page.h"
#include "shell/tray_icon.h"
#include "simulated/simulated_desktop.h"
#include "support/expect_error.h"

namespace corvane {
namespace {

class MainWindowTools : public ::testing::Test {
protected:
    MainWindowTools() {
        form2->Show();
        desktop.record.Clear();
    }
    [[nodiscard]] const simulated::ShownWindow& Shown() const {
        return desktop.windows.Window("Form2");
    }

    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    forms::Lazy<Form2> form2{[this] {
        return std::make_shared<Form2>(desktop.windows, loop, desktop.runtime, desktop.gdi,
                                       desktop.user32);
    }};
    TrayIcon tray{desktop.tray, form2};
    HelpPage help{desktop.automation, desktop.runtime};
};

TEST_F(MainWindowTools, HidingFillsTheIconsRecordFieldByField) {
    tray.HideToTray();
    const NOTIFYICONDATA& data = desktop.tray.Icons().at(0);
    EXPECT_EQ(data.cbSize, 88U);
    EXPECT_EQ(data.hWnd, form2->hWnd());
    EXPECT_EQ(data.uID, 1U);
    EXPECT_EQ(data.uFlags, 7U);
    EXPECT_EQ(data.uCallbackMessage, 512U);
    EXPECT_EQ(data.hIcon, form2->hIcon());
    EXPECT_EQ(std::string(data.szTip.begin(), data.szTip.end()),
              "KT Corvane 2001" + std::string(1, '\0') + std::string(48, ' '));
}

TEST_F(MainWindowTools, TheTipAndTheCaptionDifferOnPurpose) {
    tray.HideToTray();
    EXPECT_STREQ(desktop.tray.Icons().at(0).szTip.data(), "KT Corvane 2001");
    EXPECT_EQ(Shown().description.caption, "KT Corvane 3.0");
}

TEST_F(MainWindowTools, TheWindowIsHiddenBeforeTheIconIsThere) {
    tray.HideToTray();
    EXPECT_EQ(desktop.record.Transcript(), "Hide Form2\nShell_NotifyIconA NIM_ADD\n");
    EXPECT_FALSE(Shown().visible);
}

TEST_F(MainWindowTools, ShowingTakesTheIconAwayFirst) {
    tray.HideToTray();
    desktop.record.Clear();
    tray.ShowFromTray();
    EXPECT_EQ(desktop.record.Transcript(), "Shell_NotifyIconA NIM_DELETE\nShow Form2\n");
    EXPECT_TRUE(desktop.tray.Icons().empty());
    EXPECT_TRUE(Shown().visible);
}

TEST_F(MainWindowTools, ShowingAWindowThatIsInSightShowsNoError) {
    tray.ShowFromTray();
    EXPECT_TRUE(Shown().visible);
}

TEST_F(MainWindowTools, ARemovalThatFailsStillBringsTheWindowBack) {
    tray.HideToTray();
    desktop.record.Fail("Shell_NotifyIconA", kAutomationError);
    tray.ShowFromTray();
    EXPECT_TRUE(Shown().visible);
}

TEST_F(MainWindowTools, HidingTwiceAddsNoSecondIcon) {
    tray.HideToTray();
    tray.HideToTray();
    EXPECT_EQ(desktop.tray.Icons().size(), 1U);
    EXPECT_FALSE(Shown().visible);
}

TEST_F(MainWindowTools, AHiddenWindowGoesOnReceiving) {
    int ticks = 0;
    form2->Timer1.Tick = [&] { ++ticks; };
    tray.HideToTray();
    desktop.RunFor(std::chrono::seconds(3));
    EXPECT_EQ(ticks, 3);
}

TEST_F(MainWindowTools, AKeyOnAButtonLandsInTheWhiteboardAndTheFocusStaysThere) {
    for (const char* button : {"Command2", "Command3"}) {
        desktop.record.Clear();
        desktop.windows.StrikeOn("Form2", button, 'A');
        EXPECT_EQ(desktop.record.Transcript(), "SetFocus Text3\nSendKeys A\n");
        EXPECT_EQ(Shown().focus, "Text3");
    }
}

TEST_F(MainWindowTools, AKeyWithoutACharacterSendsTheOneThatSharesItsCode) {
    desktop.windows.StrikeOn("Form2", "Command2", 38);  // the up arrow
    EXPECT_EQ(desktop.record.Transcript(), "SetFocus Text3\nSendKeys &\n");
}

TEST_F(MainWindowTools, TheDownArrowOnAButtonIsNoKeyAndEndsTheProcess) {
    desktop.record.Fail("SendKeys", kInvalidProcedureCall);  // as "(" does: bad notation
    desktop.Drive([&] { desktop.windows.StrikeOn("Form2", "Command3", 40); });
    EXPECT_TRUE(desktop.runtime.Ended());
    EXPECT_EQ(desktop.record.Transcript(),
              "SetFocus Text3\nSendKeys (\nShowErrorReport 5 SendKeys was told to fail\nEnd\n");
}

TEST_F(MainWindowTools, HelpOpensInABrowserOfItsOwnEachTime) {
    help.Open();
    help.Open();
    EXPECT_EQ(desktop.record.Transcript(),
              "CreateInternetExplorer\nie.Visible true\nNavigate2 /opt/corvane/help.html\n"
              "CreateInternetExplorer\nie.Visible true\nNavigate2 /opt/corvane/help.html\n");
}

TEST_F(MainWindowTools, HelpOfAProgramAtTheRootHasOneSeparator) {
    desktop.runtime.SetExecutableFolder("/");
    help.Open();
    EXPECT_NE(desktop.record.Transcript().find("Navigate2 /help.html\n"), std::string::npos);
}

TEST_F(MainWindowTools, ABrowserThatQuitsIsLetGo) {
    help.Open();
    EXPECT_FALSE(help.ie.empty());
    desktop.automation.QuitBrowser();
    EXPECT_TRUE(help.ie.empty());
}

TEST_F(MainWindowTools, ADragGoesAsIfByTheTitleBar) {
    StartFormDrag(desktop.user32, *form2.operator->());
    EXPECT_EQ(desktop.record.Transcript(),
              "ReleaseCapture\nSendMessageA " + std::to_string(form2->hWnd()) + " 161 2 0\n");
}

TEST_F(MainWindowTools, AWindowCanBeUnloadedForAnother) {
    int unloads = 0;
    form2->Unload = [&] { ++unloads; };
    UnloadGivenForm(*form2.operator->());
    EXPECT_EQ(unloads, 1);
    EXPECT_FALSE(Shown().visible);
}

TEST_F(MainWindowTools, TheProgressBarTakesItsRangeAndNothingElse) {
    form2->ProgressBar1.SetValue(100);
    EXPECT_ERROR(kInvalidPropertyValue, (form2->ProgressBar1.SetValue(101), 0));
    EXPECT_ERROR(kInvalidPropertyValue, (form2->ProgressBar1.SetValue(-1), 0));
    EXPECT_EQ(form2->ProgressBar1.Value(), 100);
}

TEST_F(MainWindowTools, PicturesCountFromOne) {
    EXPECT_EQ(form2->ImageList1.Picture(1), "cd_closed");
    EXPECT_EQ(form2->ImageList1.Picture(2), "cd_open");
    EXPECT_ERROR(kSubscriptOutOfRange, form2->ImageList1.Picture(0));
    EXPECT_ERROR(kSubscriptOutOfRange, form2->ImageList1.Picture(3));
}

TEST(Chr, ACodeIsACharacterOfOneByteOrOfLatinLetters) {
    EXPECT_EQ(Chr(40), "(");
    EXPECT_EQ(Chr(13), "\r");
    EXPECT_EQ(Chr(228), "ä");
    EXPECT_ERROR(kInvalidProcedureCall, Chr(256));
    EXPECT_ERROR(kInvalidProcedureCall, Chr(-1));
}

}  // namespace
}  // namespace corvane
