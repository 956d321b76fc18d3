// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/accessible_widgets.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCalendarWidget>
#include <QDate>
#include <QDialog>
#include <QLabel>
#include <QLocale>
#include <QMainWindow>
#include <QMessageBox>
#include <QScrollBar>
#include <QTableView>
#include <array>

#include "linux/windows/qt_toolkit.h"

/// What those are told, and can do, who do not see a window or do not use their hands.
namespace corvane::linux_desktop {
namespace {

constexpr auto kControls = std::to_array<ControlDescription>({
    {.name = "Fruit",
     .kind = ControlKind::ListBox,
     .place = {0, 0, 1500, 1500},
     .tab_index = 0,
     .tool_tip = "What grows on trees",
     .role = "Fruit"},
    {.name = "Rows",
     .kind = ControlKind::ListView,
     .place = {1500, 0, 3000, 1500},
     .tab_index = 1,
     .text = "Word\nMeaning",
     .role = "Rows"},
    {.name = "Month",
     .kind = ControlKind::Calendar,
     .place = {0, 1500, 3000, 3000},
     .tab_index = 2,
     .role = "Month"},
    {.name = "Dial", .kind = ControlKind::Gauge, .place = {3000, 1500, 900, 900}, .role = "Dial"},
    {.name = "Sight",
     .kind = ControlKind::PictureBox,
     .place = {3900, 1500, 600, 600},
     .role = "Sight"},
    {.name = "Edge", .kind = ControlKind::Line, .place = {0, 1500, 4500, 0}},
    {.name = "State",
     .kind = ControlKind::Label,
     .place = {3000, 2400, 1500, 195},
     .text = "Closed",
     .role = "Door"},
    {.name = "Board",
     .kind = ControlKind::MultilineTextBox,
     .place = {3000, 3000, 1500, 900},
     .role = "Board"},
});

constexpr WindowDescription kWindow{.name = "Shop",
                                    .caption = "Shop",
                                    .client_width = 4800,
                                    .client_height = 4800,
                                    .controls = kControls};

constexpr CalendarDescription kMonth{.date = {.year = 2001, .month = 10, .day = 18}};

class AccessibleWidgets : public testing::Test {
protected:
    AccessibleWidgets() {
        window = toolkit.CreateWindow(kWindow, {});
        list = window->AddList(kControls[0], {"apple", "pear"},
                               {.Selected = [this](std::int32_t row) { Tell("selected", row); },
                                .DblClick = [this] { told += "double click;"; }});
        rows = window->AddListView(
            kControls[1], {.Click = [this](std::int32_t row) { Tell("click", row); },
                           .DblClick = [this](std::int32_t row) { Tell("double click", row); },
                           .Select = [this](std::int32_t row) { Tell("select", row); },
                           .LostFocus = {}});
        AddRow("one", "1");
        AddRow("two", "2");
        month =
            window->AddCalendar(kControls[2], kMonth, {.Chosen = [this](const CalendarDate& date) {
                                    Tell("day", date.day);
                                    Tell("month", date.month);
                                }});
        dial = window->AddControl(kControls[3]);
        for (std::size_t fixture = 4; fixture < kControls.size(); ++fixture)
            window->AddFixture(kControls[fixture]);
        window->Show();
        QCoreApplication::processEvents();
    }

    void AddRow(const std::string& word, const std::string& meaning) {
        rows->AddRow(word);
        rows->SetCell(row_count++, 1, meaning);
    }
    void Tell(const std::string& what, std::int32_t number) {
        told += what + " " + std::to_string(number) + ";";
    }
    static QWidget& Find(const char* name) {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* found = widget->findChild<QWidget*>(name); found && widget->isVisible())
                return *found;
        throw std::logic_error("there is no such control");
    }
    static QAccessibleInterface& Told(QWidget& widget) {
        return *QAccessible::queryAccessibleInterface(&widget);
    }
    static QAccessibleInterface& Told(const char* name) { return Told(Find(name)); }
    static QAccessibleInterface& Days() { return Told(*Find("Month").findChild<QTableView*>()); }
    static QString Name(const QAccessibleInterface& part) { return part.text(QAccessible::Name); }
    static void Act(QAccessibleInterface& part, const char* name) {
        part.actionInterface()->doAction(name);
    }

    QtToolkit toolkit{"no pictures"};
    std::unique_ptr<IWindowPeer> window;
    std::unique_ptr<IListPeer> list;
    std::unique_ptr<IListViewPeer> rows;
    std::unique_ptr<ICalendarPeer> month;
    std::unique_ptr<IControlHost> dial;
    std::int32_t row_count = 0;
    std::string told;
};

TEST_F(AccessibleWidgets, AListNamesItsItemsAndSaysWhatItIsFor) {
    QAccessibleInterface& fruit = Told("Fruit");
    EXPECT_EQ(fruit.role(), QAccessible::List);
    EXPECT_EQ(Name(fruit), "Fruit");
    EXPECT_EQ(fruit.text(QAccessible::Description), "What grows on trees");
    ASSERT_EQ(fruit.childCount(), 2);
    EXPECT_EQ(Name(*fruit.child(1)), "pear");
    EXPECT_EQ(fruit.child(1)->role(), QAccessible::ListItem);
    EXPECT_EQ(fruit.child(1)->parent(), &fruit);
    EXPECT_EQ(fruit.indexOfChild(fruit.child(1)), 1);
    EXPECT_EQ(fruit.child(2), nullptr);
}

TEST_F(AccessibleWidgets, ActivatingAnItemDoesWhatADoubleClickDoes) {
    Act(*Told("Fruit").child(1), "Activate");
    EXPECT_EQ(told, "") << "it would keep whoever asked waiting";
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "selected 1;double click;");
    EXPECT_TRUE(Told("Fruit").child(1)->state().selected);
    EXPECT_FALSE(Told("Fruit").child(0)->state().selected);
}

TEST_F(AccessibleWidgets, SelectingAnItemDoesNoMore) {
    Act(*Told("Fruit").child(0), "Select");
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "selected 0;");
}

TEST_F(AccessibleWidgets, WhatCannotBeDoneIsNotDone) {
    Act(*Told("Fruit").child(0), "Fly");
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "");
}

TEST_F(AccessibleWidgets, ADisabledListOffersAndDoesNothing) {
    Act(*Told("Fruit").child(1), "Activate");
    EXPECT_TRUE(Told("Fruit").child(1)->state().selectable);
    Find("Fruit").setEnabled(false);
    EXPECT_TRUE(Told("Fruit").child(1)->actionInterface()->actionNames().isEmpty());
    EXPECT_FALSE(Told("Rows").child(2)->actionInterface()->actionNames().isEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "");
}

TEST_F(AccessibleWidgets, BehindADialogNothingIsDone) {
    Act(*Told("Fruit").child(1), "Activate");
    EXPECT_TRUE(Told("Fruit").tableInterface()->selectRow(1));
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "");
    dialog.hide();
    Act(*Told("Fruit").child(1), "Select");
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "selected 1;");
}

TEST_F(AccessibleWidgets, InAWindowThatADialogHasOpenedThingsAreDone) {
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    Find("Fruit").window()->setParent(&dialog, Qt::Window);
    Find("Fruit").window()->show();
    Act(*Told("Fruit").child(1), "Select");
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "selected 1;");
    Find("Fruit").window()->setParent(nullptr, Qt::Window);
}

TEST_F(AccessibleWidgets, ARowIsSelectedFromTheLoop) {
    EXPECT_TRUE(Told("Fruit").tableInterface()->selectRow(1));
    EXPECT_EQ(told, "") << "it would keep whoever asked waiting";
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "selected 1;");
    EXPECT_FALSE(Told("Fruit").tableInterface()->selectRow(2));
    Find("Fruit").setEnabled(false);
    EXPECT_FALSE(Told("Fruit").tableInterface()->selectRow(0));
}

TEST_F(AccessibleWidgets, ATableTellsItsCellsUnderTheirHeaders) {
    QAccessibleInterface& table = Told("Rows");
    EXPECT_EQ(table.role(), QAccessible::Table);
    ASSERT_EQ(table.childCount(), 6);
    EXPECT_EQ(Name(*table.child(1)), "Meaning");
    EXPECT_EQ(table.child(1)->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(Name(*table.child(5)), "2");
    EXPECT_EQ(table.child(5)->role(), QAccessible::Cell);
    ASSERT_NE(table.tableInterface(), nullptr);
    EXPECT_EQ(table.tableInterface()->cellAt(1, 1), table.child(5));
    const auto* cell = table.child(5)->tableCellInterface();
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->columnHeaderCells(), QList<QAccessibleInterface*>{table.child(1)});
}

TEST_F(AccessibleWidgets, ARowIsClickedAndDoubleClickedAsByAHand) {
    Act(*Told("Rows").child(4), "Select");
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "click 1;");
    EXPECT_TRUE(Told("Rows").child(5)->state().selected) << "the whole row is";
    told.clear();
    Act(*Told("Rows").child(2), "Activate");
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "click 0;double click 0;");
}

TEST_F(AccessibleWidgets, ARowThatIsGoneMeanwhileIsNotActedOn) {
    Act(*Told("Rows").child(4), "Activate");
    rows->RemoveRow(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "");
    EXPECT_EQ(Told("Rows").childCount(), 4);
}

TEST_F(AccessibleWidgets, ARowThatMovedUpIsTheOneActedOn) {
    Act(*Told("Rows").child(4), "Select");
    rows->RemoveRow(0);
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "click 0;");
    EXPECT_EQ(Name(*Told("Rows").child(2)), "two");
}

TEST_F(AccessibleWidgets, DaysAreCalledByTheirWholeDate) {
    QAccessibleInterface& days = Days();
    EXPECT_EQ(Name(days), "Days");
    const auto* table = days.tableInterface();
    ASSERT_EQ(table->rowCount(), 7);
    ASSERT_EQ(table->columnCount(), 7);
    dynamic_cast<QCalendarWidget&>(Find("Month")).setFirstDayOfWeek(Qt::Monday);
    // The months before and behind lend the days that fill the grid.
    QDate date(2001, 9, 24);
    for (int row = 1; row < 7; ++row)
        for (int column = 0; column < 7; ++column, date = date.addDays(1))
            EXPECT_EQ(Name(*table->cellAt(row, column)),
                      QLocale().toString(date, QLocale::LongFormat));
}

TEST_F(AccessibleWidgets, NamesOfTheWeeksDaysAreNoDays) {
    QAccessibleInterface* name = Days().tableInterface()->cellAt(0, 0);
    EXPECT_EQ(name->role(), QAccessible::ColumnHeader);
    EXPECT_FALSE(name->state().selectable);
    EXPECT_TRUE(name->actionInterface()->actionNames().isEmpty());
}

TEST_F(AccessibleWidgets, ADayIsChosenWithoutAHand) {
    Act(*Days().tableInterface()->cellAt(4, 0), "Select");
    QCoreApplication::processEvents();
    const auto chosen = QAccessible::queryAccessibleInterface(&Find("Month"));
    EXPECT_EQ(told.find("day "), 0U);
    EXPECT_TRUE(chosen->text(QAccessible::Description).contains("October 2001"));
    EXPECT_TRUE(Days().tableInterface()->cellAt(4, 0)->state().selected);
}

TEST_F(AccessibleWidgets, DaysFollowTheMonthThatIsShown) {
    ASSERT_TRUE(Name(*Days().tableInterface()->cellAt(3, 3)).contains("October 2001"));
    month->SetDate({.year = 2001, .month = 2, .day = 18});
    EXPECT_TRUE(Name(*Days().tableInterface()->cellAt(3, 3)).contains("February 2001"));
    EXPECT_EQ(told, "");
}

TEST_F(AccessibleWidgets, PartsOfTheCalendarHaveNames) {
    EXPECT_EQ(Find("qt_calendar_prevmonth").accessibleName(), "Previous month");
    EXPECT_EQ(Find("qt_calendar_nextmonth").accessibleName(), "Next month");
    EXPECT_EQ(Find("qt_calendar_yearedit").accessibleName(), "Year");
}

TEST_F(AccessibleWidgets, AGaugeTellsItsPercentageAndCannotBeSet) {
    QAccessibleInterface& gauge = Told("Dial");
    EXPECT_EQ(gauge.role(), QAccessible::ProgressBar);
    ASSERT_NE(gauge.valueInterface(), nullptr);
    EXPECT_EQ(gauge.valueInterface()->currentValue().toInt(), 0);
    Find("Dial").setAccessibleDescription("89%");
    EXPECT_EQ(gauge.valueInterface()->currentValue().toInt(), 89);
    EXPECT_EQ(gauge.valueInterface()->minimumValue().toInt(), 0);
    EXPECT_EQ(gauge.valueInterface()->maximumValue().toInt(), 100);
    gauge.valueInterface()->setCurrentValue(5);
    EXPECT_EQ(gauge.valueInterface()->currentValue().toInt(), 89);
    EXPECT_TRUE(gauge.state().readOnly);
}

TEST_F(AccessibleWidgets, PicturesAndLinesSayThatTheyAre) {
    EXPECT_EQ(Told("Sight").role(), QAccessible::Graphic);
    EXPECT_EQ(Name(Told("Sight")), "Sight");
    EXPECT_EQ(Told("Edge").role(), QAccessible::Separator);
}

TEST_F(AccessibleWidgets, ALabelNamedByItsRoleSaysFromTheStartWhatItShows) {
    EXPECT_EQ(Name(Told("State")), "Door");
    EXPECT_EQ(Told("State").text(QAccessible::Description), "Closed");
}

TEST_F(AccessibleWidgets, ScrollBarsAreCalledAfterWhatTheyScroll) {
    auto& board = dynamic_cast<QAbstractScrollArea&>(Find("Board"));
    EXPECT_EQ(board.verticalScrollBar()->accessibleName(), "Board, up and down");
    EXPECT_EQ(board.horizontalScrollBar()->accessibleName(), "Board, left and right");
}

TEST(MessageIcon, SaysWhatKindOfMessageItIs) {
    TellOfOurWidgets();
    QMessageBox box(QMessageBox::Critical, "Title", "Text");
    auto* icon = box.findChild<QLabel*>("qt_msgboxex_icon_label");
    ASSERT_NE(icon, nullptr);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(icon);
    EXPECT_EQ(told->role(), QAccessible::Graphic);
    EXPECT_EQ(told->text(QAccessible::Name), "Error");
    box.setIcon(QMessageBox::Question);
    EXPECT_EQ(told->text(QAccessible::Name), "Question");
}

}  // namespace
}  // namespace corvane::linux_desktop
