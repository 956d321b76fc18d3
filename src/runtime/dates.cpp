// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/dates.h"

#include <cstddef>

namespace corvane {
namespace {

constexpr int kNoon = 12;

template <class Names>
const std::string& NameOf(const Names& names, int number) {
    return names.at(static_cast<std::size_t>(number) - 1);
}

std::string TwoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

std::string FormatDate(const DateTime& moment, const DateNames& names) {
    return NameOf(names.weekdays, moment.weekday) + ", " +
           NameOf(names.short_months, moment.month) + " " + std::to_string(moment.day) + " " +
           std::to_string(moment.year);
}

std::string FormatTime(const DateTime& moment, const DateNames& names) {
    // The hour after midnight and the hour after noon are both called 12.
    const int hour = moment.hour % kNoon == 0 ? kNoon : moment.hour % kNoon;
    return std::to_string(hour) + ":" + TwoDigits(moment.minute) + " " +
           (moment.hour < kNoon ? names.am : names.pm);
}

}  // namespace corvane
