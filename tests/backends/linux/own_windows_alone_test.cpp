// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QMainWindow>
#include <QTest>
#include <memory>

#include "linux/session/x11_windows.h"
#include "linux/windows/qt_toolkit.h"
#include "linux/windows/user32.h"

/// In a session that lets a program see no windows but its own, as this one without a display.
namespace corvane::linux_desktop {
namespace {

constexpr WindowDescription kMain{
    .name = "Main", .caption = "Main", .client_width = 4800, .client_height = 3000, .controls = {}};

class OwnWindowsAlone : public testing::Test {
protected:
    ~OwnWindowsAlone() override {
        main.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    int close_requests = 0;
    QtToolkit toolkit{"no pictures"};
    std::unique_ptr<IWindowPeer> main =
        toolkit.CreateWindow(kMain, {.CloseRequested = [this] { ++close_requests; }});
    User32 user32{MakeSessionWindows(), toolkit.Controls(), toolkit.Gdi32()};
    HWND window = main->hWnd();
};

TEST_F(OwnWindowsAlone, TheActiveOneIsInFront) {
    EXPECT_EQ(user32.GetForegroundWindow(), 0U);
    main->Show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() != nullptr; }));
    EXPECT_EQ(user32.GetForegroundWindow(), window);
    EXPECT_EQ(user32.GetWindowThreadProcessId(window, nullptr), ::getpid());
    EXPECT_EQ(user32.GetWindowTextLengthA(window), 4);
}

TEST_F(OwnWindowsAlone, MinimisedItComesBack) {
    main->Show();
    EXPECT_TRUE(user32.ShowWindow(window, SW_MINIMIZE));
    EXPECT_TRUE(user32.IsIconic(window));
    EXPECT_TRUE(user32.ShowWindow(window, SW_RESTORE));
    EXPECT_FALSE(user32.IsIconic(window));
}

TEST_F(OwnWindowsAlone, MaximisedItGoesBackToItsFixedSize) {
    main->Show();
    const QWidget* widget = FindOwnWindow(window);
    const QSize size = widget->size();
    user32.ShowWindow(window, SW_SHOWMAXIMIZED);
    EXPECT_TRUE(QTest::qWaitFor([&] { return widget->width() > size.width(); }));
    user32.ShowWindow(window, SW_SHOWNORMAL);
    EXPECT_TRUE(QTest::qWaitFor([&] { return widget->size() == size; }));
}

TEST_F(OwnWindowsAlone, HiddenItIsShown) {
    EXPECT_FALSE(user32.SetForegroundWindow(window));
    EXPECT_FALSE(user32.ShowWindow(window, SW_SHOW));
    EXPECT_TRUE(FindOwnWindow(window)->isVisible());
}

TEST_F(OwnWindowsAlone, ItIsAskedToCloseByAMessage) {
    main->Show();
    EXPECT_TRUE(user32.PostMessageA(window, WM_CLOSE, 0, 0));
    EXPECT_EQ(close_requests, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return close_requests == 1; }));
}

TEST_F(OwnWindowsAlone, WindowsOfOthersAreOutOfReach) {
    constexpr HWND kOther = 0x400000;
    EXPECT_EQ(user32.GetWindowThreadProcessId(kOther, nullptr), 0U);
    EXPECT_FALSE(user32.SetForegroundWindow(kOther));
    EXPECT_FALSE(user32.ShowWindow(kOther, SW_MINIMIZE));
    EXPECT_FALSE(user32.PostMessageA(kOther, WM_CLOSE, 0, 0));
}

TEST(X11WindowsWithoutADisplay, NothingIsThereAndNothingHappens) {
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":no such display");
    X11Windows windows(nullptr);
    qputenv("DISPLAY", display);
    EXPECT_EQ(windows.Active(), 0U);
    EXPECT_TRUE(windows.List().empty());
    EXPECT_FALSE(windows.Describe(0x400000));
    EXPECT_EQ(windows.Activate(0x400000), SessionAnswer::Denied);
    EXPECT_EQ(windows.Close(0x400000), SessionAnswer::Denied);
}

}  // namespace
}  // namespace corvane::linux_desktop
