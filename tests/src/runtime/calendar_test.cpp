// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/calendar.h"

#include <gtest/gtest.h>

#include <array>

#include "runtime/forms/form.h"
#include "simulated/simulated_desktop.h"
#include "support/expect_error.h"

namespace corvane::forms {
namespace {

constexpr std::array kControls{ControlDescription{
    .name = "Days", .kind = ControlKind::Calendar, .place = {0, 0, 300, 200}, .tab_index = 0}};
constexpr WindowDescription kYear{.name = "Year", .caption = "Year", .controls = kControls};
constexpr CalendarDescription kNewYearsEve{.date = {.year = 2003, .month = 12, .day = 31}};

class YearForm final : public Form {
public:
    YearForm(IWindowToolkit& toolkit, MessageLoop& loop) : Form(toolkit, loop, kYear) {}
    Calendar Days{*this, "Days", kNewYearsEve};
};

class CalendarTest : public ::testing::Test {
protected:
    [[nodiscard]] CalendarDate Shown() const {
        return desktop.windows.Window("Year").calendars.at("Days").date;
    }

    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    std::shared_ptr<YearForm> form = std::make_shared<YearForm>(desktop.windows, loop);
    Calendar& days = form->Days;
};

TEST_F(CalendarTest, OpensOnItsStoredDate) {
    EXPECT_EQ(days.Year(), 2003);
    EXPECT_EQ(days.Month(), 12);
    EXPECT_EQ(days.Day(), 31);
}

TEST_F(CalendarTest, AMonthThatLacksTheDayShowsItsLastOne) {
    days.SetMonth(2);
    EXPECT_EQ(Shown(), (CalendarDate{2003, 2, 28}));
    EXPECT_EQ(days.Day(), 28);
    days.SetDay(15);
    days.SetMonth(3);
    EXPECT_EQ(Shown(), (CalendarDate{2003, 3, 15}));
}

TEST_F(CalendarTest, LeapYearsHaveTheirDay) {
    days.SetMonth(2);
    EXPECT_ERROR(kInvalidPropertyValue, (days.SetDay(29), 0));
    days.SetYear(2004);
    days.SetDay(29);
    days.SetYear(2100);
    EXPECT_EQ(Shown(), (CalendarDate{2100, 2, 28}));
    days.SetYear(2000);
    days.SetDay(29);
    EXPECT_EQ(days.Day(), 29);
}

TEST_F(CalendarTest, ValuesOutOfRangeAreRefusedAndChangeNothing) {
    for (const int month : {0, 13, -1})
        EXPECT_ERROR(kInvalidPropertyValue, (days.SetMonth(month), 0));
    for (const int year : {1899, 2101})
        EXPECT_ERROR(kInvalidPropertyValue, (days.SetYear(year), 0));
    for (const int day : {0, 32}) EXPECT_ERROR(kInvalidPropertyValue, (days.SetDay(day), 0));
    EXPECT_EQ(Shown(), (CalendarDate{2003, 12, 31}));
}

TEST_F(CalendarTest, WhatAPersonChoosesIsTheDate) {
    desktop.windows.Choose("Year", "Days", {1999, 5, 6});
    EXPECT_EQ(days.Year(), 1999);
    EXPECT_EQ(days.Month(), 5);
    EXPECT_EQ(days.Day(), 6);
}

TEST_F(CalendarTest, ADateThatIsRefusedLeavesTheOldOne) {
    desktop.record.Fail("SetDate", kAutomationError);
    EXPECT_ERROR(kAutomationError, (days.SetMonth(2), 0));
    EXPECT_EQ(days.Month(), 12);
}

}  // namespace
}  // namespace corvane::forms
