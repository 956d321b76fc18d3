// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QTest>
#include <QTextEdit>
#include <array>
#include <utility>

#include "linux/windows/qt_toolkit.h"

namespace corvane::linux_desktop {
namespace {

constexpr auto kControls = std::to_array<ControlDescription>({
    {.name = "Box", .kind = ControlKind::Frame, .place = {150, 300, 1500, 750}, .text = "Box"},
    {.name = "Inner",
     .kind = ControlKind::Label,
     .place = {60, 195, 540, 540},
     .container = "Box",
     .role = "Inner words"},
    {.name = "Line", .kind = ControlKind::TextBox, .place = {0, 1500, 900, 285}, .tab_index = 1},
    {.name = "Log",
     .kind = ControlKind::RichTextBox,
     .place = {1650, 0, 3000, 1500},
     .tab_index = 0,
     .role = "Log of the day"},
    {.name = "Head",
     .kind = ControlKind::Label,
     .place = {0, 0, 150, 195},
     .text = "Words wider than that"},
});

constexpr WindowDescription kWindow{.name = "Window",
                                    .caption = "A window",
                                    .client_width = 4800,
                                    .client_height = 3000,
                                    .controls = kControls};

struct Edit {
    std::string text;
    std::int32_t start = 0;
    std::int32_t length = 0;
    friend bool operator==(const Edit&, const Edit&) = default;
};

class QtWindowTest : public testing::Test {
protected:
    QtWindowTest() {
        window = toolkit.CreateWindow(kWindow, {.CloseRequested = [this] { ++close_requests; }});
        window->AddFixture(kControls[0]);
        window->AddFixture(kControls[1]);
        line = window->AddText(kControls[2], Notes());
        TextPeerEvents log_events = Notes();
        log_events.GotFocus = [this] { focus += "+log "; };
        log_events.LostFocus = [this] { focus += "-log "; };
        log = window->AddText(kControls[3], std::move(log_events));
        window->AddFixture(kControls[4]);
        window->AddMenu({.name = "file", .caption = "&File"}, {});
        window->AddMenu({.name = "exit", .caption = "E&xit", .menu = "file"}, [this] { ++exits; });
        window->Show();
        frame().activateWindow();
        QCoreApplication::processEvents();
    }

    TextPeerEvents Notes() {
        return {.Edited = [this](const std::string& text, std::int32_t start, std::int32_t length) {
            edits.push_back({text, start, length});
        }};
    }
    static QMainWindow& frame() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<QMainWindow*>(widget); found && found->isVisible())
                return *found;
        throw std::logic_error("there is no window");
    }
    template <class Widget = QWidget>
    static Widget& Find(const char* name) {
        return *frame().findChild<Widget*>(name);
    }

    QtToolkit toolkit{"no pictures"};
    std::unique_ptr<IWindowPeer> window;
    std::unique_ptr<ITextPeer> line, log;
    std::vector<Edit> edits;
    std::string focus;
    int close_requests = 0;
    int exits = 0;
};

TEST_F(QtWindowTest, ClientAreaHasItsSizeBelowTheMenuBarAndKeepsIt) {
    EXPECT_EQ(frame().centralWidget()->size(), QSize(320, 200));
    EXPECT_GE(frame().centralWidget()->y(), frame().menuBar()->height());
    EXPECT_EQ(frame().minimumSize(), frame().maximumSize());
    EXPECT_FALSE(frame().windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_EQ(frame().windowTitle(), "A window");
}

TEST_F(QtWindowTest, ControlsStandInTheirPlacesAndCountFromTheirFrame) {
    EXPECT_EQ(Find("Box").geometry(), QRect(10, 20, 100, 50));
    EXPECT_EQ(Find("Inner").geometry(), QRect(4, 13, 36, 36));
    EXPECT_EQ(Find("Inner").parentWidget(), &Find("Box"));
    EXPECT_EQ(Find("Line").geometry(), QRect(0, 100, 60, 19));
}

TEST_F(QtWindowTest, LabelOfOneLineIsNotCutOff) {
    EXPECT_GE(Find("Head").width(), Find("Head").sizeHint().width());
}

TEST_F(QtWindowTest, ScreenReadersHearTheRoleOrElseTheCaption) {
    EXPECT_EQ(Find("Log").accessibleName(), "Log of the day");
    EXPECT_EQ(Find("Box").accessibleName(), "Box");
}

TEST_F(QtWindowTest, FirstControlInTabOrderHasTheFocus) {
    EXPECT_EQ(frame().focusWidget(), &Find("Log"));
    QTest::keyClick(&Find("Log"), Qt::Key_Tab);
    EXPECT_EQ(frame().focusWidget(), &Find("Line"));
}

TEST_F(QtWindowTest, WhatAPersonTypesIsToldOnceWithTheCaret) {
    QTest::keyClicks(&Find("Line"), "ab");
    EXPECT_EQ(edits, (std::vector<Edit>{{"a", 1, 0}, {"ab", 2, 0}}));
}

TEST_F(QtWindowTest, LineEndsAreToldAsTwoCharacters) {
    QTest::keyClicks(&Find("Log"), "a");
    QTest::keyClick(&Find("Log"), Qt::Key_Return);
    EXPECT_EQ(edits.back(), (Edit{"a\r\n", 3, 0}));
    EXPECT_EQ(edits.size(), 2U);
}

TEST_F(QtWindowTest, SelectionIsToldOnce) {
    log->SetText("one\r\ntwo");
    QTest::keyClick(&Find("Log"), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(edits, (std::vector<Edit>{{"one\r\ntwo", 0, 8}}));
}

TEST_F(QtWindowTest, TypingOverASelectionIsOneEdit) {
    log->SetText("one\r\ntwo");
    log->SetSelection(0, 5);
    QTest::keyClicks(&Find("Log"), "x");
    EXPECT_EQ(edits, (std::vector<Edit>{{"xtwo", 1, 0}}));
}

TEST_F(QtWindowTest, WhatTheSystemWritesIsNotToldBack) {
    log->SetText("one");
    log->SetText("one two");
    log->SetSelection(1, 2);
    line->SetText("x");
    QCoreApplication::processEvents();
    EXPECT_TRUE(edits.empty());
}

TEST_F(QtWindowTest, TextThatGrowsIsShownWhole) {
    log->SetText("one\r\n");
    log->SetText("one\r\ntwo\r\n");
    EXPECT_EQ(Find<QTextEdit>("Log").toPlainText(), "one\ntwo\n");
    log->SetText("two\r\n");
    EXPECT_EQ(Find<QTextEdit>("Log").toPlainText(), "two\n");
}

TEST_F(QtWindowTest, CaretInFrontOfTheLastCharacterKeepsTheNewestLineInView) {
    std::string text;
    for (int i = 0; i < 100; ++i) text += "a line\r\n";
    log->SetText(text);
    log->SetSelection(static_cast<std::int32_t>(text.size()) - 1, 0);
    auto& edit = Find<QTextEdit>("Log");
    EXPECT_EQ(edit.textCursor().blockNumber(), 99);
    EXPECT_TRUE(edit.viewport()->rect().contains(edit.cursorRect().center()));
}

TEST_F(QtWindowTest, TextGoesInAtTheCaretAndTheCaretBehindIt) {
    log->SetText("one\r\nfour");
    log->SetSelection(5, 0);
    log->ReplaceSelection("two\r\n");
    log->ReplaceSelection("three ");
    EXPECT_EQ(Find<QTextEdit>("Log").toPlainText(), "one\ntwo\nthree four");
    EXPECT_EQ(Find<QTextEdit>("Log").textCursor().position(), 14);
    line->SetText("12");
    line->SetSelection(1, 0);
    line->ReplaceSelection("x");
    EXPECT_EQ(Find<QLineEdit>("Line").text(), "1x2");
    EXPECT_EQ(Find<QLineEdit>("Line").cursorPosition(), 2);
    EXPECT_TRUE(edits.empty());
}

TEST_F(QtWindowTest, TextTakesThePlaceOfWhatIsMarked) {
    log->SetText("one\r\ntwo");
    log->SetSelection(1, 5);
    log->ReplaceSelection("-");
    EXPECT_EQ(Find<QTextEdit>("Log").toPlainText(), "o-wo");
    log->SetSelection(0, 1);
    QTest::keyClicks(&Find("Log"), "x");
    EXPECT_EQ(edits, (std::vector<Edit>{{"x-wo", 1, 0}}));
}

TEST_F(QtWindowTest, WhatGoesInAtTheCaretIsBroughtIntoView) {
    for (int i = 0; i < 100; ++i) log->ReplaceSelection("a line\r\n");
    auto& edit = Find<QTextEdit>("Log");
    EXPECT_TRUE(edit.viewport()->rect().contains(edit.cursorRect().center()));
}

TEST_F(QtWindowTest, ControlsHaveHandlesOfTheirOwn) {
    EXPECT_NE(log->hWnd(), line->hWnd());
    EXPECT_NE(log->hWnd(), window->hWnd());
    EXPECT_EQ(log->hWnd(), log->hWnd());
    EXPECT_EQ(toolkit.Controls().Find(log->hWnd()), &Find("Log"));
    EXPECT_EQ(toolkit.Controls().Find(0), nullptr);
    const HWND handle = log->hWnd();
    delete &Find("Log");
    EXPECT_EQ(toolkit.Controls().Find(handle), nullptr);
    EXPECT_EQ(log->hWnd(), 0U);
}

TEST_F(QtWindowTest, FocusIsToldWhenItGoesToAnotherControl) {
    EXPECT_EQ(focus, "+log ");
    line->SetFocus();
    EXPECT_EQ(focus, "+log -log ");
    log->SetFocus();
    log->SetFocus();
    EXPECT_EQ(focus, "+log -log +log ");
}

TEST_F(QtWindowTest, AnotherWindowOfTheSystemTakesTheFocus) {
    const auto other = toolkit.CreateWindow(kWindow, {});
    const auto text = other->AddText(kControls[3], {});
    other->Show();
    text->SetFocus();
    EXPECT_TRUE(QTest::qWaitFor([this] { return focus == "+log -log "; }, 10'000));
}

TEST_F(QtWindowTest, DialogsAndOtherProgramsDoNotTakeTheFocus) {
    QInputDialog dialog(&frame());
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.isActiveWindow(); }, 10'000));
    EXPECT_EQ(focus, "+log ");
    dialog.hide();
    frame().activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([] { return frame().isActiveWindow(); }, 10'000));
    EXPECT_EQ(focus, "+log ");
}

TEST_F(QtWindowTest, NoBreakSpaceStaysOne) {
    log->SetText("a\u00A0b");
    QTest::keyClicks(&Find("Log"), "x");
    EXPECT_EQ(edits.back().text, "xa\u00A0b");
}

TEST_F(QtWindowTest, ClosingByTheFrameAsksAndDoesNotClose) {
    EXPECT_FALSE(frame().close());
    EXPECT_EQ(close_requests, 1);
    EXPECT_TRUE(frame().isVisible());
}

TEST_F(QtWindowTest, MenuEntryTellsItsClick) {
    frame().findChild<QAction*>("exit")->trigger();
    EXPECT_EQ(exits, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(exits, 1);
}

}  // namespace
}  // namespace corvane::linux_desktop
