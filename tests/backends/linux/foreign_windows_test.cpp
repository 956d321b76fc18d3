// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <unistd.h>

#include <QGuiApplication>
#include <array>
#include <memory>

#include "linux/canvas/canvas.h"
#include "linux/session/x11_windows.h"
#include "linux/windows/control_handles.h"
#include "linux/windows/user32.h"
#include "other_program.h"

/// Windows of other programs, in front of which this one never stands. The suites named Managed
/// need a window manager, the one named Bare needs none; Desktop is for both.
namespace corvane::linux_desktop {
namespace {

class Desktop : public testing::TestWithParam<QStringList (*)(const QString&)> {
protected:
    Desktop() {
        user32.SetForegroundWindow(program.window());
        EXPECT_TRUE(QTest::qWaitFor([&] { return IsInFront(program); }, kBound));
    }
    bool IsInFront(const OtherProgram& other) {
        return user32.GetForegroundWindow() == other.window();
    }
    std::string Caption(HWND of) {
        std::array<char, 100> buffer{};
        const auto copied = user32.GetWindowTextA(of, buffer.data(), 100);
        EXPECT_EQ(copied, user32.GetWindowTextLengthA(of));
        return buffer.data();
    }
    /// A program may tell only some time after its window is there that it can be asked.
    bool IsAskedToClose(const OtherProgram& other) {
        return QTest::qWaitFor([&] { return user32.PostMessageA(other.window(), WM_CLOSE, 0, 0); },
                               kBound);
    }
    bool IsMaximised() { return session->Describe(program.window())->maximised; }

    Windows* session = new X11Windows(nullptr);
    ControlHandles controls;
    Gdi gdi;
    User32 user32{std::unique_ptr<Windows>(session), controls, gdi};
    OtherProgram program{*session, GetParam()("Übung")};
    HWND window = program.window();
};
using ManagedDesktop = Desktop;

std::string NameOfProgram(const testing::TestParamInfo<Desktop::ParamType>& info) {
    return info.index == 0 ? "xterm" : "gtk";
}
INSTANTIATE_TEST_SUITE_P(With, Desktop, testing::Values(Terminal, GtkWindow), NameOfProgram);
INSTANTIATE_TEST_SUITE_P(With, ManagedDesktop, testing::Values(Terminal, GtkWindow), NameOfProgram);

TEST_P(Desktop, TheCaptionIsThatOfTheTitleBar) {
    EXPECT_EQ(Caption(window), "Übung");
}

TEST_P(Desktop, ACaptionIsCutToTheBuffer) {
    std::array<char, 4> buffer{'?', '?', '?', '?'};
    EXPECT_EQ(user32.GetWindowTextA(window, buffer.data(), 0), 0);
    EXPECT_EQ(buffer[0], '?');
    EXPECT_EQ(user32.GetWindowTextA(window, buffer.data(), 3), 2);
    EXPECT_STREQ(buffer.data(), "Ü");
    EXPECT_EQ(buffer[3], '?');
}

TEST_P(Desktop, TheThreadIsTheProgramsProcess) {
    std::uint32_t process = 0;
    EXPECT_EQ(user32.GetWindowThreadProcessId(window, &process), program.process());
    EXPECT_EQ(process, program.process());
    EXPECT_TRUE(user32.AttachThreadInput(process, static_cast<std::uint32_t>(::getpid()), -1));
    EXPECT_TRUE(user32.AttachThreadInput(process, static_cast<std::uint32_t>(::getpid()), 0));
}

TEST_P(Desktop, ClosingEndsAProgramThatDoesNotMind) {
    EXPECT_TRUE(IsAskedToClose(program));
    EXPECT_TRUE(program.Ends());
}

TEST_P(Desktop, AProgramThatAsksAboutUnsavedWorkStays) {
    const OtherProgram editor(*session, GtkWindowThatAsks("Letter", "Save the letter?"));
    EXPECT_TRUE(IsAskedToClose(editor));
    const auto asks = [&] {
        return session->Describe(editor.window())->title == "Save the letter?";
    };
    EXPECT_TRUE(QTest::qWaitFor(asks, kBound));
}

TEST_P(Desktop, OtherMessagesDoNothing) {
    EXPECT_TRUE(user32.PostMessageA(window, WM_MOUSEMOVE, 0, 0));
    EXPECT_TRUE(IsInFront(program));
}

TEST_P(Desktop, AWindowBehindAnotherComesToTheFront) {
    const OtherProgram other(*session, GtkWindow("in front"));
    user32.SetForegroundWindow(other.window());
    ASSERT_TRUE(QTest::qWaitFor([&] { return IsInFront(other); }, kBound));
    EXPECT_TRUE(user32.SetForegroundWindow(window));
    EXPECT_TRUE(IsInFront(program));
}

TEST_P(Desktop, AWindowThatHasGoneIsNoError) {
    ASSERT_TRUE(IsAskedToClose(program));
    ASSERT_TRUE(program.Ends());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !session->Describe(window); }, kBound));
    EXPECT_EQ(Caption(window), "");
    EXPECT_EQ(user32.GetWindowThreadProcessId(window, nullptr), 0U);
    EXPECT_FALSE(user32.IsIconic(window));
    EXPECT_FALSE(user32.SetForegroundWindow(window));
    for (const auto command :
         {SW_SHOWNORMAL, SW_SHOWMINIMIZED, SW_SHOWMAXIMIZED, SW_SHOW, SW_MINIMIZE, SW_RESTORE})
        EXPECT_FALSE(user32.ShowWindow(window, command));
    EXPECT_FALSE(user32.PostMessageA(window, WM_CLOSE, 0, 0));
    EXPECT_FALSE(user32.PostMessageA(window, WM_MOUSEMOVE, 0, 0));
    // And the connection lives on.
    const OtherProgram other(*session, Terminal("another"));
    EXPECT_EQ(Caption(other.window()), "another");
}

TEST_P(Desktop, NoWindowAtAllIsNoError) {
    EXPECT_EQ(Caption(0), "");
    EXPECT_EQ(user32.GetWindowThreadProcessId(0, nullptr), 0U);
    EXPECT_FALSE(user32.IsIconic(0));
    EXPECT_FALSE(user32.SetForegroundWindow(0));
    EXPECT_FALSE(user32.ShowWindow(0, SW_SHOWMAXIMIZED));
    EXPECT_FALSE(user32.PostMessageA(0, WM_CLOSE, 0, 0));
}

// No limit is asserted: without one, each of these calls would last forever.
TEST_P(Desktop, AProgramThatHangsHoldsUpNobody) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return Caption(window) == "Übung"; }, kBound));
    program.Hang();
    EXPECT_TRUE(IsInFront(program));
    EXPECT_EQ(Caption(window), "Übung");
    for (const auto command : {SW_SHOWMAXIMIZED, SW_SHOWNORMAL, SW_MINIMIZE, SW_RESTORE, SW_SHOW})
        EXPECT_TRUE(user32.ShowWindow(window, command));
    user32.SetForegroundWindow(window);
    user32.PostMessageA(window, WM_CLOSE, 0, 0);
}

TEST_P(ManagedDesktop, MaximisedAndBackToItsNormalSize) {
    EXPECT_TRUE(user32.ShowWindow(window, SW_SHOWMAXIMIZED));
    EXPECT_TRUE(IsMaximised());
    EXPECT_TRUE(user32.ShowWindow(window, SW_SHOWNORMAL));
    EXPECT_FALSE(IsMaximised());
    EXPECT_TRUE(IsInFront(program));
}

TEST_P(ManagedDesktop, MinimisedIsIconicUntilItIsRestored) {
    EXPECT_FALSE(user32.IsIconic(window));
    for (const auto minimise : {SW_MINIMIZE, SW_SHOWMINIMIZED})
        for (const auto restore : {SW_RESTORE, SW_SHOWNORMAL}) {
            EXPECT_TRUE(user32.ShowWindow(window, minimise));
            EXPECT_TRUE(user32.IsIconic(window));
            EXPECT_FALSE(IsInFront(program));
            EXPECT_TRUE(user32.ShowWindow(window, restore));
            EXPECT_FALSE(user32.IsIconic(window));
            EXPECT_TRUE(IsInFront(program));
        }
}

TEST_P(ManagedDesktop, MaximisingBringsAMinimisedWindowBack) {
    user32.ShowWindow(window, SW_MINIMIZE);
    EXPECT_TRUE(user32.ShowWindow(window, SW_SHOWMAXIMIZED));
    EXPECT_FALSE(user32.IsIconic(window));
    EXPECT_TRUE(IsMaximised());
}

TEST_P(ManagedDesktop, RestoringGoesBackOneStep) {
    user32.ShowWindow(window, SW_SHOWMAXIMIZED);
    user32.ShowWindow(window, SW_MINIMIZE);
    user32.ShowWindow(window, SW_RESTORE);
    EXPECT_FALSE(user32.IsIconic(window));
    EXPECT_TRUE(IsMaximised());
    user32.ShowWindow(window, SW_RESTORE);
    EXPECT_FALSE(IsMaximised());
}

TEST_P(ManagedDesktop, ShowingAMinimisedWindowLeavesItMinimised) {
    user32.ShowWindow(window, SW_MINIMIZE);
    EXPECT_TRUE(user32.ShowWindow(window, SW_SHOW));
    EXPECT_TRUE(user32.IsIconic(window));
}

TEST_P(ManagedDesktop, ForcedToTheFrontAMinimisedWindowIsBack) {
    user32.ShowWindow(window, SW_MINIMIZE);
    EXPECT_TRUE(user32.SetForegroundWindow(window));
    EXPECT_FALSE(user32.IsIconic(window));
    EXPECT_TRUE(IsInFront(program));
}

TEST_P(ManagedDesktop, AProgramThatHangsIsMinimisedAllTheSame) {
    program.Hang();
    EXPECT_TRUE(user32.ShowWindow(window, SW_MINIMIZE));
    EXPECT_TRUE(user32.IsIconic(window));
}

}  // namespace
}  // namespace corvane::linux_desktop
