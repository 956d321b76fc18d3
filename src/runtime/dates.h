// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/language_runtime.h"

/// Moments as text, with the names of the person's locale.
namespace corvane {

/// The date in the pattern "dddd, mmm d yyyy": weekday in full, month abbreviated, day without a
/// leading zero, as in "Tuesday, Nov 20 2001".
[[nodiscard]] std::string FormatDate(const DateTime& moment, const DateNames& names);

/// The time in the pattern "h:mm AMPM": hour of the 12-hour clock without a leading zero, half of
/// the day in capitals, as in "3:05 PM".
[[nodiscard]] std::string FormatTime(const DateTime& moment, const DateNames& names);

}  // namespace corvane
