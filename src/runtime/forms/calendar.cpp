// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/calendar.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "platform/error.h"
#include "runtime/forms/form.h"

namespace corvane::forms {
namespace {

constexpr int kFirstYear = 1900;
constexpr int kLastYear = 2100;

bool IsLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysIn(int year, int month) {
    constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return kDays[static_cast<std::size_t>(month) - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

int Checked(Integer value, int first, int last) {
    if (value < first || value > last)
        throw RuntimeError(kInvalidPropertyValue, "Invalid property value");
    return value.rep();
}

}  // namespace

Calendar::Calendar(Form& form, std::string_view name, const CalendarDescription& calendar)
    : Movable(form.Describe(name).place), date_(calendar.date) {
    CalendarPeerEvents events;
    events.Chosen = [this, &form](const CalendarDate& date) {
        form.Enter([this, date] { date_ = date; });
    };
    peer_ = form.window().AddCalendar(form.Describe(name), calendar, std::move(events));
}

void Calendar::SetYear(Integer year) {
    SetDate({Checked(year, kFirstYear, kLastYear), date_.month, date_.day});
}

void Calendar::SetMonth(Integer month) {
    SetDate({date_.year, Checked(month, 1, 12), date_.day});
}

void Calendar::SetDay(Integer day) {
    SetDate({date_.year, date_.month, Checked(day, 1, DaysIn(date_.year, date_.month))});
}

void Calendar::SetDate(CalendarDate date) {
    date.day = std::min(date.day, DaysIn(date.year, date.month));
    if (date == date_) return;
    peer_->SetDate(date);
    date_ = date;
}

}  // namespace corvane::forms
