// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// Lists, calendars, check boxes, default buttons and sizes of windows.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <QTextCharFormat>
#include <QToolButton>
#include <QTreeWidget>
#include <array>
#include <stdexcept>

#include "linux/windows/month_calendar.h"
#include "linux/windows/qt_toolkit.h"
#include "linux/windows/row_list.h"

namespace corvane::linux_desktop {
namespace {

constexpr auto kControls = std::to_array<ControlDescription>({
    {.name = "Rows",
     .kind = ControlKind::ListView,
     .place = {0, 0, 4500, 1500},
     .tab_index = 0,
     .text = "Name\nPath",
     .role = "Rows"},
    {.name = "Word", .kind = ControlKind::TextBox, .place = {0, 1650, 900, 285}, .tab_index = 1},
    {.name = "Add",
     .kind = ControlKind::CommandButton,
     .place = {1500, 1650, 900, 780},
     .tab_index = 2,
     .text = "&Add",
     .picture = "plus",
     .enabled = false},
    {.name = "Search",
     .kind = ControlKind::CheckBox,
     .place = {0, 2100, 300, 225},
     .tab_index = 3,
     .text = "Search for existing",
     .checked = true},
    {.name = "Days", .kind = ControlKind::Calendar, .place = {0, 2550, 4500, 3000}, .tab_index = 4},
});

constexpr WindowDescription kWindow{.name = "Programs",
                                    .caption = "Programs",
                                    .client_width = 4800,
                                    .client_height = 6000,
                                    .controls = kControls,
                                    .border = BorderStyle::Sizable};

constexpr CalendarDescription kDays{.date = {.year = 2001, .month = 10, .day = 31},
                                    .day_font = {.family = "Arial", .points = 8.25, .bold = true},
                                    .grid_font = {.family = "Arial", .points = 8.25},
                                    .title_font = {.family = "Arial", .points = 12, .bold = true},
                                    .grid_colour = 0xA00000,
                                    .title_colour = 0xA00000};

class ProgramWindows : public testing::Test {
protected:
    ProgramWindows() {
        WindowPeerEvents window_events;
        window_events.Resized = [this](const WindowSize& size) { sizes.push_back(size); };
        window = toolkit.CreateWindow(kWindow, std::move(window_events));
        ListViewPeerEvents events;
        events.Click = [this](std::int32_t row) { told += "click " + std::to_string(row) + "\n"; };
        events.DblClick = [this](std::int32_t row) {
            told += "double " + std::to_string(row) + "\n";
        };
        events.Select = [this](std::int32_t row) {
            told += "select " + std::to_string(row) + "\n";
        };
        events.LostFocus = [this] { told += "lost focus\n"; };
        rows = window->AddListView(kControls[0], std::move(events));
        word = window->AddText(kControls[1], {});
        button = window->AddButton(kControls[2], {.Click = [this] { ++clicks; }, .KeyDown = {}});
        box = window->AddCheckBox(kControls[3], {.Click = [this](bool checked) {
                                      told += checked ? "checked\n" : "not checked\n";
                                  }});
        days = window->AddCalendar(
            kControls[4], kDays,
            {.Chosen = [this](const CalendarDate& date) { chosen.push_back(date); }});
        for (const char* text : {"one", "two", "three"}) rows->AddRow(text);
        rows->SelectRow(0);
        window->Show();
        frame().activateWindow();
        QCoreApplication::processEvents();
        told.clear();
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
    static RowList& List() { return dynamic_cast<RowList&>(Find("Rows")); }
    static MonthCalendar& Month() { return dynamic_cast<MonthCalendar&>(Find("Days")); }
    static QPoint PlaceOf(int row) {
        return List().visualItemRect(List().topLevelItem(row)).center();
    }
    static QPoint BelowTheRows() { return PlaceOf(2) + QPoint(0, 40); }
    static int Marked() { return List().indexOfTopLevelItem(List().selectedItems().value(0)); }

    QtToolkit toolkit{"no pictures"};
    std::unique_ptr<IWindowPeer> window;
    std::unique_ptr<IListViewPeer> rows;
    std::unique_ptr<ITextPeer> word;
    std::unique_ptr<IButtonPeer> button;
    std::unique_ptr<ICheckBoxPeer> box;
    std::unique_ptr<ICalendarPeer> days;
    std::string told;
    std::vector<CalendarDate> chosen;
    std::vector<WindowSize> sizes;
    int clicks = 0;
};

TEST_F(ProgramWindows, ListHasItsHeadersAndRows) {
    EXPECT_EQ(List().headerItem()->text(0), "Name");
    EXPECT_EQ(List().headerItem()->text(1), "Path");
    rows->SetCell(1, 1, "/usr/bin/two");
    EXPECT_EQ(List().topLevelItem(1)->text(1), "/usr/bin/two");
    rows->RemoveRow(0);
    EXPECT_EQ(List().topLevelItem(0)->text(0), "two");
    rows->RemoveAllRows();
    EXPECT_EQ(List().topLevelItemCount(), 0);
    EXPECT_EQ(told, "");
}

TEST_F(ProgramWindows, ColumnsHaveTheirWidthAndTheLastOneTheRest) {
    rows->SetColumnWidth(0, 1500);
    rows->SetColumnWidth(1, 6000);
    EXPECT_EQ(List().columnWidth(0), 100);
    EXPECT_EQ(List().columnWidth(1), List().viewport()->width() - 100);
}

TEST_F(ProgramWindows, ClickMarksItsRowAndIsToldOnce) {
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, PlaceOf(1));
    EXPECT_EQ(told, "click 1\n");
    EXPECT_EQ(Marked(), 1);
}

TEST_F(ProgramWindows, ClickBesideTheRowsLeavesTheMark) {
    rows->SelectRow(1);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, BelowTheRows());
    EXPECT_EQ(told, "click -1\n");
    EXPECT_EQ(Marked(), 1);
}

TEST_F(ProgramWindows, CtrlDoesNotTakeTheMarkAway) {
    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::ControlModifier, PlaceOf(0));
    EXPECT_EQ(told, "click 0\n");
    EXPECT_EQ(Marked(), 0);
}

TEST_F(ProgramWindows, OtherButtonsOfTheMouseAreNoClick) {
    QTest::mouseClick(List().viewport(), Qt::RightButton, {}, PlaceOf(1));
    EXPECT_EQ(told, "");
}

TEST_F(ProgramWindows, DoubleClickIsOneClickAndThenADoubleClickOnItsRow) {
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, PlaceOf(2));
    rows->SelectRow(0);  // as the search may do
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, PlaceOf(2));
    // The toolkit's own double click begins with a press and a release.
    EXPECT_TRUE(told.ends_with("double 2\n"));
    EXPECT_EQ(Marked(), 2);
}

TEST_F(ProgramWindows, ArrowKeysMoveTheMarkAndTellIt) {
    QTest::keyClick(&List(), Qt::Key_Down);
    EXPECT_EQ(told, "select 1\n");
    EXPECT_EQ(Marked(), 1);
}

TEST_F(ProgramWindows, WhatTheSystemMarksIsNotTold) {
    rows->SelectRow(2);
    EXPECT_EQ(Marked(), 2);
    rows->SelectRow(kNoRow);
    EXPECT_TRUE(List().selectedItems().isEmpty());
    EXPECT_EQ(told, "");
}

TEST_F(ProgramWindows, RowIsBroughtIntoView) {
    for (int i = 0; i < 100; ++i) rows->AddRow("row");
    rows->BringIntoView(102);
    EXPECT_TRUE(List().viewport()->rect().contains(PlaceOf(102)));
}

TEST_F(ProgramWindows, MarkIsOutOfSightWithoutTheFocusWhenItIsToBe) {
    const auto mark_is_seen = [] {
        return List().palette().color(QPalette::Highlight) !=
               List().palette().color(QPalette::Base);
    };
    EXPECT_TRUE(mark_is_seen());  // the list has the focus
    word->SetFocus();
    EXPECT_FALSE(mark_is_seen());
    rows->SetHideSelection(false);
    EXPECT_TRUE(mark_is_seen());
    rows->SetHideSelection(true);
    EXPECT_FALSE(mark_is_seen());
    rows->SetFocus();
    EXPECT_TRUE(mark_is_seen());
}

TEST_F(ProgramWindows, ListTellsThatItHasLostTheFocusToAnotherControl) {
    word->SetFocus();
    EXPECT_EQ(told, "lost focus\n");
}

TEST_F(ProgramWindows, EnterPressesTheDefaultButtonFromATextAndFromTheList) {
    for (const char* name : {"Word", "Rows"}) {
        Find(name).setFocus();
        clicks = 0;
        button->SetEnabled(true);
        QTest::keyClick(&Find(name), Qt::Key_Return);
        EXPECT_EQ(clicks, 0) << name;
        button->SetDefault(true);
        QTest::keyClick(&Find(name), Qt::Key_Return);
        EXPECT_EQ(clicks, 1) << name;
        button->SetEnabled(false);
        QTest::keyClick(&Find(name), Qt::Key_Return);
        EXPECT_EQ(clicks, 1) << name;
        button->SetDefault(false);
    }
}

TEST_F(ProgramWindows, ButtonIsDisabledAtFirstWhereItIsDescribedSo) {
    EXPECT_FALSE(Find("Add").isEnabled());
    QTest::mouseClick(&Find("Add"), Qt::LeftButton);
    EXPECT_EQ(clicks, 0);
    button->SetEnabled(true);
    QTest::mouseClick(&Find("Add"), Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ProgramWindows, CheckBoxTellsWhatAPersonDoesAndNotWhatTheSystemSets) {
    auto& check = Find<QCheckBox>("Search");
    EXPECT_TRUE(check.isChecked());
    box->SetChecked(false);
    EXPECT_EQ(told, "");
    QTest::keyClick(&check, Qt::Key_Space);
    QTest::keyClick(&check, Qt::Key_Space);
    EXPECT_EQ(told, "checked\nnot checked\n");
}

TEST_F(ProgramWindows, CheckBoxIsNotCutOff) {
    EXPECT_GE(Find("Search").width(), Find("Search").sizeHint().width());
}

TEST_F(ProgramWindows, CalendarOpensOnItsDateInItsColours) {
    EXPECT_EQ(Month().selectedDate(), QDate(2001, 10, 31));
    for (const auto day : {Qt::Monday, Qt::Saturday, Qt::Sunday})
        EXPECT_EQ(Month().weekdayTextFormat(day).foreground().color(), QColor(0, 0, 160));
    auto& title = *Month().findChild<QToolButton*>("qt_calendar_monthbutton");
    EXPECT_EQ(title.palette().color(QPalette::ButtonText), QColor(0, 0, 160));
    EXPECT_EQ(title.font().pixelSize(), 16);
    EXPECT_TRUE(title.font().bold());
    EXPECT_EQ(Month().font().pixelSize(), 11);
    EXPECT_FALSE(Month().font().bold());
    EXPECT_TRUE(Month().headerTextFormat().font().bold());
    EXPECT_TRUE(Month().isGridVisible());
}

TEST_F(ProgramWindows, CalendarShowsADateThatTheSystemSetsAndDoesNotTellIt) {
    days->SetDate({2004, 2, 29});
    EXPECT_EQ(Month().selectedDate(), QDate(2004, 2, 29));
    EXPECT_EQ(Month().monthShown(), 2);
    EXPECT_EQ(Month().yearShown(), 2004);
    EXPECT_TRUE(chosen.empty());
}

TEST_F(ProgramWindows, TurningToAnotherMonthTakesTheDayAlong) {
    QTest::mouseClick(Month().findChild<QToolButton*>("qt_calendar_nextmonth"), Qt::LeftButton);
    EXPECT_EQ(chosen, (std::vector<CalendarDate>{{2001, 11, 30}}));
    EXPECT_EQ(Month().selectedDate(), QDate(2001, 11, 30));
    Month().setCurrentPage(2026, 11);
    EXPECT_EQ(chosen.back(), (CalendarDate{2026, 11, 30}));
}

TEST_F(ProgramWindows, ChoosingADayIsToldOnce) {
    Month().setSelectedDate(QDate(2001, 10, 5));
    Month().setSelectedDate(QDate(2001, 12, 5));
    EXPECT_EQ(chosen, (std::vector<CalendarDate>{{2001, 10, 5}, {2001, 12, 5}}));
}

TEST_F(ProgramWindows, DateIsThereForThoseWhoDoNotSeeIt) {
    days->SetDate({2001, 3, 18});
    EXPECT_TRUE(Month().accessibleDescription().contains("2001"));
    EXPECT_TRUE(
        Month().accessibleDescription().contains(QLocale().monthName(3, QLocale::LongFormat)));
}

TEST_F(ProgramWindows, CalendarKeepsToItsYears) {
    EXPECT_EQ(Month().minimumDate(), QDate(1900, 1, 1));
    EXPECT_EQ(Month().maximumDate(), QDate(2100, 12, 31));
}

TEST_F(ProgramWindows, PlacesAreRoundedToTheNearestPixel) {
    rows->SetPlace({0, 15, 4507.0F, 1508.0F});
    EXPECT_EQ(List().geometry(), QRect(0, 1, 300, 101));
    days->SetPlace({7.4F, 0, 15, 15});
    EXPECT_EQ(Month().pos(), QPoint(0, 0));
}

TEST_F(ProgramWindows, SizableWindowBeginsInItsSizeAndTellsEachOther) {
    EXPECT_EQ(frame().centralWidget()->size(), QSize(320, 400));
    EXPECT_TRUE(frame().windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_EQ(window->Size().client_width, 4800);
    EXPECT_EQ(window->Size().client_height, 6000);
    EXPECT_GE(window->Size().outer_height, 6000);
    sizes.clear();
    frame().resize(400, 500);
    QCoreApplication::processEvents();
    ASSERT_FALSE(sizes.empty());
    EXPECT_EQ(sizes.back().client_width, 6000);
    EXPECT_EQ(sizes.back().client_height, 7500);
    EXPECT_EQ(sizes.back(), window->Size());
}

TEST_F(ProgramWindows, PeersShowNothingMoreOnceTheirWidgetsAreGone) {
    delete &List();
    delete &Month();
    delete &Find("Search");
    rows->AddRow("four");
    rows->SelectRow(0);
    days->SetDate({2001, 1, 1});
    box->SetChecked(false);
    EXPECT_EQ(told, "");
}

}  // namespace
}  // namespace corvane::linux_desktop
