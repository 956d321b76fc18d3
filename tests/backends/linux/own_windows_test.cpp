// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>

#include "linux/windows/qt_toolkit.h"
#include "linux/windows/user32.h"
#include "other_program.h"

/// Windows of this program among those of others. The suite named Managed needs a window manager.
namespace corvane::linux_desktop {
namespace {

constexpr WindowDescription kMain{.name = "Main",
                                  .caption = "Main window",
                                  .client_width = 6000,
                                  .client_height = 4500,
                                  .controls = {}};

class OwnWindow : public testing::Test {
protected:
    OwnWindow() {
        main->Show();
        EXPECT_TRUE(WaitFor([&] { return IsInFront() && Widget().isActiveWindow(); }));
    }
    ~OwnWindow() override {
        main.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static QMainWindow& Widget() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<QMainWindow*>(widget)) return *found;
        throw std::logic_error("there is no window");
    }
    static QSize ClientSize() { return Widget().centralWidget()->size(); }
    bool IsInFront() { return user32.GetForegroundWindow() == main->hWnd(); }
    bool IsListed() { return std::ranges::count(session->List(), main->hWnd()) > 0; }
    /// Another program takes the front, and the person uses it.
    void CoverWithAnother() {
        other = std::make_unique<OtherProgram>(*session, GtkWindow("another"));
        user32.SetForegroundWindow(other->window());
        EXPECT_TRUE(QTest::qWaitFor([&] { return user32.GetForegroundWindow() == other->window(); },
                                    kBound));
        QProcess::execute("xdotool", {"key", "a"});
    }
    static bool WaitFor(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, kBound);
    }

    int close_requests = 0;
    QtToolkit toolkit{"no pictures"};
    std::unique_ptr<IWindowPeer> main =
        toolkit.CreateWindow(kMain, {.CloseRequested = [this] { ++close_requests; }});
    std::unique_ptr<Windows> session = MakeSessionWindows();
    User32 user32{MakeSessionWindows(), toolkit.Controls(), toolkit.Gdi32()};
    std::unique_ptr<OtherProgram> other;
};
using ManagedOwnWindow = OwnWindow;

TEST_F(OwnWindow, InFrontItIsKnownByItsOwnHandle) {
    EXPECT_EQ(user32.GetForegroundWindow(), main->hWnd());
    EXPECT_EQ(user32.GetWindowThreadProcessId(main->hWnd(), nullptr), ::getpid());
    EXPECT_EQ(user32.GetWindowTextLengthA(main->hWnd()), 11);
}

TEST_F(OwnWindow, ItTakesTheFrontWhileThePersonUsesAnotherProgram) {
    CoverWithAnother();
    EXPECT_TRUE(user32.SetForegroundWindow(main->hWnd()));
    EXPECT_TRUE(IsInFront());
    EXPECT_TRUE(WaitFor([&] { return Widget().isActiveWindow(); }));
}

TEST_F(OwnWindow, ClosingIsAMessageOfTheLoop) {
    EXPECT_TRUE(user32.PostMessageA(main->hWnd(), WM_CLOSE, 0, 0));
    EXPECT_EQ(close_requests, 0);
    EXPECT_TRUE(WaitFor([&] { return close_requests == 1; }));
    EXPECT_TRUE(Widget().isVisible());  // whoever asked for the requests decides
}

TEST_F(OwnWindow, WhatClosesBeforeTheMessageRunsIsForgotten) {
    EXPECT_TRUE(user32.PostMessageA(main->hWnd(), WM_CLOSE, 0, 0));
    main.reset();
    QTest::qWait(0);
    EXPECT_EQ(close_requests, 0);
}

TEST_F(OwnWindow, AMessageBoxClosesToo) {
    QMessageBox box;
    box.open();
    const auto box_window = static_cast<HWND>(box.winId());
    ASSERT_TRUE(WaitFor([&] { return user32.SetForegroundWindow(box_window); }));
    EXPECT_EQ(user32.GetForegroundWindow(), box_window);
    EXPECT_TRUE(user32.PostMessageA(box_window, WM_CLOSE, 0, 0));
    EXPECT_TRUE(WaitFor([&] { return !box.isVisible(); }));
}

TEST_F(ManagedOwnWindow, TheBoxThatIsOpenOverItMayKeepTheFront) {
    QMessageBox box;
    box.open();
    const auto box_window = static_cast<HWND>(box.winId());
    ASSERT_TRUE(WaitFor([&] { return user32.GetForegroundWindow() == box_window; }));
    EXPECT_TRUE(user32.SetForegroundWindow(main->hWnd()));
    // Asked once: the box may come back to the front at any moment.
    const HWND front = user32.GetForegroundWindow();
    EXPECT_TRUE(front == main->hWnd() || front == box_window) << front;
}

TEST_F(OwnWindow, AHiddenWindowStaysHiddenUntilItIsShown) {
    CoverWithAnother();
    main->Hide();
    ASSERT_TRUE(WaitFor([&] { return !IsListed(); }));
    EXPECT_FALSE(user32.SetForegroundWindow(main->hWnd()));
    EXPECT_FALSE(user32.IsIconic(main->hWnd()));
    EXPECT_EQ(user32.GetWindowThreadProcessId(main->hWnd(), nullptr), ::getpid());
    EXPECT_FALSE(Widget().isVisible());
    EXPECT_FALSE(user32.ShowWindow(main->hWnd(), SW_SHOW));  // it was not visible before
    EXPECT_TRUE(Widget().isVisible());
    EXPECT_TRUE(WaitFor([&] { return IsInFront(); }));
    EXPECT_TRUE(user32.ShowWindow(main->hWnd(), SW_SHOW));
}

TEST_F(OwnWindow, MaximisedInSpiteOfItsFixedSizeItsContentStaysInItsPlace) {
    const QSize size = ClientSize();
    for (int times = 0; times < 2; ++times) {
        EXPECT_TRUE(user32.ShowWindow(main->hWnd(), SW_SHOWMAXIMIZED));
        EXPECT_TRUE(
            WaitFor([&] { return ClientSize().width() > 1200 && ClientSize().height() > 850; }));
        EXPECT_EQ(Widget().centralWidget()->x(), 0);
        EXPECT_TRUE(user32.ShowWindow(main->hWnd(), SW_SHOWNORMAL));
        EXPECT_TRUE(WaitFor([&] { return ClientSize() == size; }));
    }
    QTest::qWait(50);
    EXPECT_EQ(ClientSize(), size);
    EXPECT_FALSE(Widget().windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_EQ(Widget().maximumSize(), Widget().minimumSize());
}

TEST_F(ManagedOwnWindow, TheDesktopsOwnWayBackFromMaximisedHoldsTheSizeAgain) {
    const QSize size = ClientSize();
    user32.ShowWindow(main->hWnd(), SW_SHOWMAXIMIZED);
    ASSERT_TRUE(WaitFor([&] { return Widget().isMaximized(); }));
    session->NormalSize(main->hWnd());
    EXPECT_TRUE(WaitFor([&] { return !Widget().isMaximized() && ClientSize() == size; }));
    EXPECT_TRUE(WaitFor([&] { return Widget().maximumSize() == Widget().minimumSize(); }));
}

TEST_F(ManagedOwnWindow, MinimisedFromMaximisedItComesBackMaximised) {
    user32.ShowWindow(main->hWnd(), SW_SHOWMAXIMIZED);
    ASSERT_TRUE(WaitFor([&] { return Widget().isMaximized() && ClientSize().width() > 1200; }));
    user32.ShowWindow(main->hWnd(), SW_MINIMIZE);
    ASSERT_TRUE(WaitFor([&] { return Widget().isMinimized(); }));
    EXPECT_TRUE(user32.SetForegroundWindow(main->hWnd()));
    EXPECT_TRUE(WaitFor([&] { return !Widget().isMinimized(); }));
    QTest::qWait(50);
    EXPECT_TRUE(Widget().isMaximized());
    EXPECT_GT(ClientSize().width(), 1200);
}

TEST_F(ManagedOwnWindow, MinimisedItComesBack) {
    CoverWithAnother();
    EXPECT_TRUE(user32.ShowWindow(main->hWnd(), SW_MINIMIZE));
    EXPECT_TRUE(user32.IsIconic(main->hWnd()));
    ASSERT_TRUE(WaitFor([&] { return Widget().isMinimized(); }));
    EXPECT_TRUE(user32.ShowWindow(main->hWnd(), SW_RESTORE));
    EXPECT_FALSE(user32.IsIconic(main->hWnd()));
    EXPECT_TRUE(IsInFront());
    EXPECT_TRUE(WaitFor([&] { return !Widget().isMinimized() && Widget().isActiveWindow(); }));
}

TEST_F(ManagedOwnWindow, HiddenWhileMinimisedItIsIconicAndIsRestored) {
    user32.ShowWindow(main->hWnd(), SW_MINIMIZE);
    ASSERT_TRUE(WaitFor([&] { return Widget().isMinimized(); }));
    main->Hide();
    QTest::qWait(50);
    EXPECT_TRUE(user32.IsIconic(main->hWnd()));
    EXPECT_FALSE(user32.ShowWindow(main->hWnd(), SW_RESTORE));
    EXPECT_TRUE(WaitFor([&] { return IsInFront(); }));
    EXPECT_FALSE(user32.IsIconic(main->hWnd()));
}

TEST_F(ManagedOwnWindow, ShownWhileHiddenAndMinimisedItIsThereAsAMinimisedOne) {
    user32.ShowWindow(main->hWnd(), SW_MINIMIZE);
    ASSERT_TRUE(WaitFor([&] { return Widget().isMinimized(); }));
    main->Hide();
    QTest::qWait(50);
    user32.ShowWindow(main->hWnd(), SW_SHOW);
    EXPECT_TRUE(WaitFor([&] { return user32.IsIconic(main->hWnd()) && !IsInFront(); }));
    EXPECT_TRUE(Widget().isVisible());
}

TEST_F(ManagedOwnWindow, WithoutAWindowInFrontThereIsNone) {
    main->Hide();
    EXPECT_TRUE(WaitFor([&] { return user32.GetForegroundWindow() == 0; }));
}

}  // namespace
}  // namespace corvane::linux_desktop
