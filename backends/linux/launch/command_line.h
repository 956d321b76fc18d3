// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane::linux_desktop {

/// One way to read a command line.
struct CommandReading {
    std::string program;
    std::string_view rest;  ///< of the line: the arguments as they are written
    friend bool operator==(const CommandReading&, const CommandReading&) = default;
};

/// The ways to read `line`, likeliest first. A program's path may contain blanks without quotes, so
/// the whole line is tried as one, then what stands in front of each blank outside of quotes,
/// longest first, if it is not longer than any path. Double quotes keep blanks together and are
/// dropped. An empty line has no reading. The readings last as long as the line.
[[nodiscard]] std::vector<CommandReading> ReadCommandLine(std::string_view line);

/// The arguments of a reading, which are written as that.
[[nodiscard]] std::vector<std::string> ArgumentsOf(std::string_view rest);

}  // namespace corvane::linux_desktop
