// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/dates.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

DateNames German() {
    return {.weekdays = {"Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag",
                         "Samstag"},
            .short_months = {"Jan", "Feb", "Mär", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt",
                             "Nov", "Dez"},
            .am = "VORM.",
            .pm = "NACHM."};
}

std::string TimeAt(int hour, int minute) {
    return FormatTime({.hour = hour, .minute = minute}, German());
}

TEST(Dates, ADateHasItsWeekdayInFullAndItsDayWithoutALeadingZero) {
    EXPECT_EQ(FormatDate({.year = 2001, .month = 11, .day = 20, .weekday = 3}, German()),
              "Dienstag, Nov 20 2001");
    EXPECT_EQ(FormatDate({.year = 2026, .month = 3, .day = 1, .weekday = 1}, German()),
              "Sonntag, Mär 1 2026");
    EXPECT_EQ(FormatDate({.year = 2005, .month = 12, .day = 31, .weekday = 7}, German()),
              "Samstag, Dez 31 2005");
}

TEST(Dates, ATimeHasTwoDigitsOfMinutesAndTheHalfOfTheDay) {
    EXPECT_EQ(TimeAt(15, 5), "3:05 NACHM.");
    EXPECT_EQ(TimeAt(9, 30), "9:30 VORM.");
    EXPECT_EQ(TimeAt(22, 59), "10:59 NACHM.");
}

TEST(Dates, TheHoursAfterMidnightAndAfterNoonAreCalledTwelve) {
    EXPECT_EQ(TimeAt(0, 0), "12:00 VORM.");
    EXPECT_EQ(TimeAt(0, 59), "12:59 VORM.");
    EXPECT_EQ(TimeAt(1, 0), "1:00 VORM.");
    EXPECT_EQ(TimeAt(11, 59), "11:59 VORM.");
    EXPECT_EQ(TimeAt(12, 0), "12:00 NACHM.");
    EXPECT_EQ(TimeAt(13, 0), "1:00 NACHM.");
}

}  // namespace
}  // namespace corvane
