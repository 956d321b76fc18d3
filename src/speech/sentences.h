// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "runtime/numbers.h"

/// What the system says on its own account, to the letter: blanks count, tags are markup of the
/// voice. What the command list says of itself stands in shell/command_help.h.
namespace corvane {

inline constexpr std::string_view kGoodbye = "<emph>goodbye</emph> ";
inline constexpr std::string_view kPresence = "I'm right here";

/// The date as FormatDate gives it.
[[nodiscard]] inline std::string DateSentence(const std::string& date) {
    return "<emph>Today</emph> is, " + date;
}

/// The time as FormatTime gives it.
[[nodiscard]] inline std::string TimeSentence(const std::string& time) {
    return "The <emph>time</emph> is, " + time;
}

/// The drive's letter in the case in which it was recognised, and a whole percentage.
[[nodiscard]] inline std::string FreeSpaceSentence(const std::string& drive, Long percent) {
    return "Drive <spell>" + drive + "</spell> has " + CStr(percent) +
           " percent of its space remaining.";
}

/// A whole number of megabytes.
[[nodiscard]] inline std::string MemorySentence(Long megabytes) {
    return "You have " + CStr(megabytes) + " megabytes of ram installed.";
}

}  // namespace corvane
