// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Any bytes as an application's desktop entry, and as a command line: a program and its arguments
// come of it, or nothing.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "linux/launch/command_line.h"
#include "linux/launch/desktop_entry.h"
#include "require.h"

using namespace corvane::linux_desktop;
using corvane::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto entry = ReadDesktopEntry(text, "de_DE"))
        Require(!entry->command.empty(), "an entry starts something");

    std::size_t longest = size + 1;
    for (const CommandReading& reading : ReadCommandLine(text)) {
        Require(!reading.program.empty() && reading.program.find('"') == std::string::npos,
                "a program has a name");
        Require(reading.program.size() <= longest, "the longest is tried first");
        longest = reading.program.size();
        std::size_t bytes = reading.program.size();
        for (const std::string& argument : reading.arguments) bytes += argument.size();
        Require(bytes <= size, "nothing is there twice");
    }
    return 0;
}
