// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/window_commands.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace corvane {
namespace {

using simulated::ShowState;
using testing::Desk;

const std::string kAccepted = "voice.EventInterests 512\n";
const std::string kPresent = kAccepted + "Speak \"I'm right here\" flags=11\n";

/// The whole system in the background, behind the window of an editor.
class WindowCommandsTest : public ::testing::Test {
protected:
    WindowCommandsTest() {
        desk.Start();
        editor = screen.Open("Letter - Editor");
    }

    [[nodiscard]] HWND MainWindow() const { return desk.desktop.windows.Window("Form2").handle; }
    /// The words for a window in an expected transcript.
    static std::string Of(HWND window) { return std::to_string(window); }

    Desk desk;
    simulated::Screen& screen = desk.desktop.screen;
    HWND editor = 0;
};

TEST_F(WindowCommandsTest, SizesAreSetOnTheWindowInFront) {
    struct Size {
        const char* phrase;
        const char* command;
        ShowState state;
    };
    const Size kSizes[] = {
        {"maximize", "3", ShowState::Maximised},
        {"normalize window", "1", ShowState::Normal},
        {"maximize window", "3", ShowState::Maximised},
        {"normalize", "1", ShowState::Normal},
        {"minimize window", "6", ShowState::Minimised},
    };
    for (const auto& [phrase, command, state] : kSizes) {
        EXPECT_TRUE(desk.Hear(phrase));
        EXPECT_EQ(desk.Transcript(), kAccepted + "GetForegroundWindow\nShowWindow " + Of(editor) +
                                         " " + command + "\n");
        EXPECT_EQ(screen.At(editor).state, state) << phrase;
    }
}

TEST_F(WindowCommandsTest, AMinimisedWindowLeavesTheFrontToTheNext) {
    const HWND browser = screen.Open("News - Browser");
    desk.Hear("minimize");
    EXPECT_EQ(screen.Foreground(), editor);
    desk.Hear("maximize");
    EXPECT_EQ(screen.At(editor).state, ShowState::Maximised);
    EXPECT_EQ(screen.At(browser).state, ShowState::Minimised);
}

TEST_F(WindowCommandsTest, MaximizeWithTheMainWindowInFrontMaximizesIt) {
    screen.BringToFront(MainWindow());
    desk.Hear("maximize");
    EXPECT_EQ(screen.At(MainWindow()).state, ShowState::Maximised);
}

TEST_F(WindowCommandsTest, WithNoWindowInFrontSizesChangeNothing) {
    screen.Remove(editor);
    desk.Hear("hide corvane");
    desk.Transcript();
    desk.Hear("maximize");
    EXPECT_EQ(desk.Transcript(), kAccepted + "GetForegroundWindow\nShowWindow 0 3\n");
}

TEST_F(WindowCommandsTest, CloseWindowPostsTheRequestBehindAReadingOfTheCaptionWithNoRoom) {
    EXPECT_TRUE(desk.Hear("Computer close this window please"));
    // The caption has 15 bytes, and a count of 0 lets none of them come.
    EXPECT_EQ(desk.Transcript(), kAccepted + "GetForegroundWindow\nGetWindowTextLengthA " +
                                     Of(editor) + "\nGetWindowTextA " + Of(editor) +
                                     " 0\nPostMessageA " + Of(editor) + " 16 0 0\n");
    EXPECT_FALSE(screen.Find(editor));
}

TEST_F(WindowCommandsTest, CloseWindowWithTheMainWindowInFrontDoesNothingAtAll) {
    screen.BringToFront(MainWindow());
    EXPECT_TRUE(desk.Hear("close window"));
    EXPECT_EQ(desk.Transcript(), kAccepted + "GetForegroundWindow\nGetWindowTextLengthA " +
                                     Of(MainWindow()) + "\nGetWindowTextA " + Of(MainWindow()) +
                                     " 0\n");
    EXPECT_TRUE(desk.MainWindowVisible());
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST_F(WindowCommandsTest, TheProtectionIsByHandleAndNotByCaption) {
    const HWND double_ganger = screen.Open(screen.At(MainWindow()).caption);
    desk.Hear("close");
    EXPECT_FALSE(screen.Find(double_ganger));
}

TEST_F(WindowCommandsTest, CloseWindowWithTheCalendarInFrontClosesTheCalendarByItsUnload) {
    desk.Hear("calendar");
    desk.Transcript();
    EXPECT_TRUE(desk.Hear("close the window"));
    EXPECT_FALSE(desk.desktop.windows.Window("Form3").visible);
    EXPECT_NE(desk.Transcript().find("Hide Form3\n"), std::string::npos);
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST_F(WindowCommandsTest, CloseWindowClosesTheAddProgramsWindow) {
    desk.Hear("add program");
    desk.Hear("close this program");
    EXPECT_FALSE(desk.desktop.windows.Window("Form1").visible);
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST_F(WindowCommandsTest, CloseWindowClosesTheAboutBoxAlthoughItIsModal) {
    desk.desktop.queue.PostAfter(std::chrono::seconds(1),
                                 [&] { desk.desktop.speech.Say("close window"); });
    desk.desktop.Drive([&] { desk.desktop.windows.ClickMenu("Form2", "mnuAbout"); });
    EXPECT_FALSE(desk.desktop.windows.Window("Form4").visible);
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST_F(WindowCommandsTest, ACloseIsNotWaitedFor) {
    bool asked = false;
    screen.At(editor).OnClose = [&] { asked = true; };  // and it stays
    desk.desktop.record.Fail("PostMessageA", kAutomationError);
    desk.Hear("close");
    EXPECT_FALSE(asked);
    desk.desktop.record.Heal("PostMessageA");
    desk.Hear("close");
    EXPECT_TRUE(asked);
    EXPECT_TRUE(screen.Find(editor));
}

TEST_F(WindowCommandsTest, AQuestionAboutUnsavedWorkStaysAndIsAnsweredByWord) {
    const std::pair<const char*, const char*> kAnswers[] = {
        {"yes", "y"}, {"no", "n"}, {"cancel", "{ESC}"}};
    for (const auto& [word, keys] : kAnswers) {
        const HWND letter = screen.Open("Letter - Editor");
        std::string answered;
        screen.At(letter).OnClose = [&] {
            const HWND question = screen.OpenBeside(letter, "Save changes?");
            screen.At(question).OnKeys = [&, question](const std::string& struck) {
                answered = struck;
                screen.Remove(question);
            };
        };
        desk.Hear("close window");
        EXPECT_EQ(screen.At(screen.Foreground()).caption, "Save changes?");
        desk.Hear(word);
        EXPECT_EQ(answered, keys);
        EXPECT_EQ(screen.Foreground(), letter);
        screen.Remove(letter);
    }
}

TEST_F(WindowCommandsTest, YesWithNoQuestionTypesIntoTheWindowInFront) {
    std::string typed;
    screen.At(editor).OnKeys = [&](const std::string& keys) { typed += keys; };
    desk.Hear("yes");
    desk.Hear("okay");
    EXPECT_EQ(typed, "y{ENTER}");
}

TEST_F(WindowCommandsTest, YouThereSpeaksAndThenComesToTheFrontWithTheInputsJoined) {
    EXPECT_TRUE(desk.Hear("where are you"));
    const std::string other = std::to_string(screen.At(editor).thread);
    const std::string own = std::to_string(simulated::Screen::kOwnThread);
    EXPECT_EQ(desk.Transcript(), kPresent +
                                     "GetForegroundWindow\n"
                                     "GetForegroundWindow\n"
                                     "GetWindowThreadProcessId " +
                                     Of(editor) +
                                     "\n"
                                     "GetWindowThreadProcessId " +
                                     Of(MainWindow()) +
                                     "\n"
                                     "AttachThreadInput " +
                                     other + " " + own +
                                     " -1\n"
                                     "SetForegroundWindow " +
                                     Of(MainWindow()) +
                                     "\n"
                                     "AttachThreadInput " +
                                     other + " " + own +
                                     " 0\n"
                                     "IsIconic " +
                                     Of(MainWindow()) +
                                     "\n"
                                     "ShowWindow " +
                                     Of(MainWindow()) + " 5\n");
    EXPECT_EQ(screen.Foreground(), MainWindow());
    EXPECT_FALSE(desk.desktop.user32.InputJoined());
}

TEST_F(WindowCommandsTest, WithoutJoiningTheInputsTheFrontWouldBeRefused) {
    EXPECT_FALSE(desk.desktop.user32.SetForegroundWindow(MainWindow()));
    EXPECT_EQ(screen.Foreground(), editor);
}

TEST_F(WindowCommandsTest, PendingEventsRunWhileTheInputsAreJoined) {
    bool joined = false;
    HWND in_front = 0;
    desk.desktop.speech.Say("are you there");
    desk.desktop.queue.Post([&] {
        joined = desk.desktop.user32.InputJoined();
        in_front = screen.Foreground();
    });
    desk.desktop.RunFor({});
    EXPECT_TRUE(joined);
    EXPECT_EQ(in_front, MainWindow());
}

TEST_F(WindowCommandsTest, YouThereWithAnotherWindowOfTheSystemInFrontJoinsNothing) {
    desk.Hear("calendar");
    const HWND calendar = screen.Foreground();
    desk.Transcript();
    desk.Hear("are you there");
    EXPECT_EQ(desk.Transcript(), kPresent +
                                     "GetForegroundWindow\nGetForegroundWindow\n"
                                     "GetWindowThreadProcessId " +
                                     Of(calendar) + "\nGetWindowThreadProcessId " +
                                     Of(MainWindow()) + "\nSetForegroundWindow " +
                                     Of(MainWindow()) + "\nIsIconic " + Of(MainWindow()) +
                                     "\nShowWindow " + Of(MainWindow()) + " 5\n");
    EXPECT_EQ(screen.Foreground(), MainWindow());
}

TEST_F(WindowCommandsTest, YouThereRestoresTheMinimisedMainWindow) {
    screen.Minimise(MainWindow());
    desk.Hear("are you there");
    EXPECT_EQ(screen.At(MainWindow()).state, ShowState::Normal);
    EXPECT_EQ(screen.Foreground(), MainWindow());
    EXPECT_TRUE(desk.Transcript().ends_with("IsIconic " + Of(MainWindow()) + "\nShowWindow " +
                                            Of(MainWindow()) + " 9\n"));
}

TEST_F(WindowCommandsTest, YouThereFromTheTrayLeavesTheIconUntilShowCorvane) {
    desk.Hear("hide corvane");
    desk.Hear("are you there");
    EXPECT_TRUE(desk.MainWindowVisible());
    EXPECT_EQ(screen.Foreground(), MainWindow());
    EXPECT_EQ(desk.desktop.tray.Icons().size(), 1U);
    desk.Hear("show corvane");
    EXPECT_TRUE(desk.desktop.tray.Icons().empty());
    EXPECT_TRUE(desk.MainWindowVisible());
}

TEST_F(WindowCommandsTest, YouThereInFrontSpeaksAndChangesNothingElse) {
    screen.BringToFront(MainWindow());
    desk.Hear("maximize");
    desk.Transcript();
    desk.Hear("are you there");
    EXPECT_EQ(desk.Transcript(), kPresent + "GetForegroundWindow\n");
    EXPECT_EQ(screen.At(MainWindow()).state, ShowState::Maximised);
}

TEST_F(WindowCommandsTest, YouThereComesToTheFrontEvenIfNothingCanBeSaid) {
    desk.desktop.record.Fail("Speak", kAutomationError);
    desk.Hear("are you there");
    EXPECT_EQ(screen.Foreground(), MainWindow());
}

/// The operations by themselves, for their results.
class WindowOperations : public ::testing::Test {
protected:
    simulated::SimulatedDesktop desktop;
    simulated::Screen& screen = desktop.screen;
    MessageLoop loop{desktop.queue, desktop.runtime};
    forms::Lazy<Form2> form2{[this] {
        return std::make_shared<Form2>(desktop.windows, loop, desktop.runtime, desktop.gdi,
                                       desktop.user32);
    }};
    WindowCommands windows{desktop.user32, loop, form2};
};

TEST_F(WindowOperations, ClosingTellsWhetherTheRequestWasPosted) {
    form2->Show();
    EXPECT_FALSE(windows.CloseForegroundWindow());
    screen.Open("Letter - Editor");
    EXPECT_TRUE(windows.CloseForegroundWindow());
}

TEST_F(WindowOperations, ForcingAWindowToTheFrontIsAlwaysFalse) {
    form2->Show();
    EXPECT_FALSE(windows.ForceForegroundWindow(form2->hWnd()));
    screen.Open("Letter - Editor");
    EXPECT_FALSE(windows.ForceForegroundWindow(form2->hWnd()));
    EXPECT_EQ(screen.Foreground(), form2->hWnd());
}

TEST_F(WindowOperations, AWindowThatHasGoneIsPassedOverInSilence) {
    form2->Show();
    const HWND gone = screen.Open("Letter - Editor");
    screen.Remove(gone);
    EXPECT_FALSE(windows.ForceForegroundWindow(gone));
    EXPECT_EQ(screen.Foreground(), form2->hWnd());
}

TEST_F(WindowOperations, WithNothingInFrontTheRequestGoesNowhereAndCountsAsPosted) {
    form2->Hide();
    EXPECT_TRUE(windows.CloseForegroundWindow());
}

}  // namespace
}  // namespace corvane
