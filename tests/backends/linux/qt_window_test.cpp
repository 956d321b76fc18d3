// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QTest>
#include <QTextEdit>
#include <array>

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
        log = window->AddText(kControls[3], Notes());
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
    EXPECT_EQ(exits, 1);
}

}  // namespace
}  // namespace corvane::linux_desktop
