// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "platform/controls.h"
#include "runtime/forms/movable.h"
#include "runtime/numbers.h"

namespace corvane::forms {

class Form;

/// A month of a year with a day of it marked. Its date is always one that there is: where another
/// month or year lacks the day, the last day of the month takes its place.
class Calendar : public Movable<ICalendarPeer> {
public:
    /// The control of that name in the form's layout.
    Calendar(Form& form, std::string_view name, const CalendarDescription& calendar);

    [[nodiscard]] Integer Year() const { return date_.year; }
    [[nodiscard]] Integer Month() const { return date_.month; }
    [[nodiscard]] Integer Day() const { return date_.day; }

    // A value out of range raises kInvalidPropertyValue and changes nothing.

    void SetYear(Integer year);    ///< 1900 to 2100
    void SetMonth(Integer month);  ///< 1 to 12
    void SetDay(Integer day);      ///< 1 to the last day of the month

private:
    void SetDate(CalendarDate date);

    CalendarDate date_;
};

}  // namespace corvane::forms
