// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QMainWindow>
#include <QScreen>
#include <QTimer>
#include <stdexcept>

#include "linux/windows/qt_toolkit.h"
#include "linux/windows/user32.h"

namespace corvane::linux_desktop {
namespace {

constexpr WindowDescription kMain{
    .name = "Main", .caption = "Main", .client_width = 4800, .client_height = 3000, .controls = {}};
constexpr WindowDescription kBox{.name = "Box",
                                 .caption = "Box",
                                 .client_width = 3000,
                                 .client_height = 1500,
                                 .controls = {},
                                 .position = StartPosition::CentreOfScreen,
                                 .white_background = true};

class WindowFrame : public testing::Test {
protected:
    static QMainWindow& Find(const char* name) {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<QMainWindow*>(widget);
                found && found->objectName() == name)
                return *found;
        throw std::logic_error("there is no such window");
    }
    ~WindowFrame() override {
        main.reset();
        box.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QtToolkit toolkit{"no pictures"};
    int close_requests = 0;
    std::unique_ptr<IWindowPeer> main = toolkit.CreateWindow(kMain, {});
    std::unique_ptr<IWindowPeer> box = toolkit.CreateWindow(kBox, {.CloseRequested = [this] {
                                                                ++close_requests;
                                                                box->Hide();
                                                            }});
};

TEST_F(WindowFrame, ModalWindowReturnsWhenItIsHidden) {
    main->Show();
    bool only_the_box_is_open = false;
    QTimer::singleShot(0, [&] {
        only_the_box_is_open =
            QApplication::activeModalWidget() == &Find("Box") && Find("Box").isVisible();
        box->Hide();
    });
    box->ShowModal();
    EXPECT_TRUE(only_the_box_is_open);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(Find("Main").isVisible());
}

TEST_F(WindowFrame, ModalWindowAsksWhenItIsClosedByTheFrame) {
    QTimer::singleShot(0, [] { Find("Box").close(); });
    box->ShowModal();
    EXPECT_EQ(close_requests, 1);
}

TEST_F(WindowFrame, ModalWindowThatIsLetGoReturns) {
    QTimer::singleShot(0, [&] { box.reset(); });
    box->ShowModal();
    EXPECT_EQ(box, nullptr);
}

TEST_F(WindowFrame, WindowThatWasOpenIsModalFromThenOn) {
    box->Show();
    QTimer::singleShot(0, [&] {
        EXPECT_EQ(QApplication::activeModalWidget(), &Find("Box"));
        box->Hide();
    });
    box->ShowModal();
}

TEST_F(WindowFrame, ChangingTheBorderKeepsTheWindowInSightOrOutOfIt) {
    box->SetBorderStyle(BorderStyle::None);
    EXPECT_FALSE(Find("Box").isVisible());
    EXPECT_TRUE(Find("Box").windowFlags().testFlag(Qt::FramelessWindowHint));
    box->Show();
    box->SetBorderStyle(BorderStyle::FixedSingle);
    EXPECT_TRUE(Find("Box").isVisible());
    EXPECT_FALSE(Find("Box").windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(WindowFrame, ChangingTheBorderInsideAModalLoopDoesNotEndIt) {
    bool still_open = false;
    QTimer::singleShot(0, [&] {
        box->SetBorderStyle(BorderStyle::None);
        QTimer::singleShot(0, [&] {
            still_open = Find("Box").isVisible();
            box->Hide();
        });
    });
    box->ShowModal();
    EXPECT_TRUE(still_open);
}

TEST_F(WindowFrame, StandsInTheMiddleOfTheScreen) {
    box->SetBorderStyle(BorderStyle::None);
    box->Show();
    const QPoint off =
        Find("Box").geometry().center() - QGuiApplication::primaryScreen()->geometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
}

TEST_F(WindowFrame, BackgroundIsWhiteWhereItIsDescribedSo) {
    box->Show();
    EXPECT_EQ(Find("Box").grab().toImage().pixelColor(50, 50), QColor(Qt::white));
}

TEST_F(WindowFrame, HiddenWindowComesBack) {
    main->Show();
    main->Hide();
    EXPECT_FALSE(Find("Main").isVisible());
    main->Show();
    EXPECT_TRUE(Find("Main").isVisible());
}

TEST_F(WindowFrame, EveryWindowHasAHandleAndTheProgramsIcon) {
    EXPECT_NE(main->hWnd(), 0U);
    EXPECT_NE(main->hWnd(), box->hWnd());
    EXPECT_NE(main->hIcon(), 0U);
    EXPECT_EQ(main->hIcon(), box->hIcon());
}

TEST_F(WindowFrame, MessagesToOtherWindowsAreNotHeard) {
    User32 user32(MakeSessionWindows(), toolkit.Controls(), toolkit.Gdi32());
    EXPECT_TRUE(user32.ReleaseCapture());
    EXPECT_EQ(user32.SendMessageA(1, WM_NCLBUTTONDOWN, HTCAPTION, 0), 0);
    EXPECT_EQ(user32.SendMessageA(0, WM_NCLBUTTONDOWN, HTCAPTION, 0), 0);
    EXPECT_EQ(user32.SendMessageA(main->hWnd(), WM_MOUSEMOVE, 0, 0), 0);
}

}  // namespace
}  // namespace corvane::linux_desktop
