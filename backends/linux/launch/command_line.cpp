// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/command_line.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <utility>

namespace corvane::linux_desktop {
namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsBlank(char character) {
    return kBlanks.find(character) != std::string_view::npos;
}

std::string WithoutQuotes(std::string_view text) {
    std::string bare(text);
    std::erase(bare, '"');
    return bare;
}

/// A program stands in quotes as a whole or not at all.
bool MayNameProgram(std::string_view text) {
    const auto quotes = std::ranges::count(text, '"');
    return quotes == 0 || (quotes == 2 && text.starts_with('"') && text.ends_with('"'));
}

/// Offsets of the blanks outside of quotes, behind each of which something else follows.
std::vector<std::size_t> PartingBlanks(std::string_view line) {
    std::vector<std::size_t> blanks;
    bool quoted = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == '"') quoted = !quoted;
        if (!quoted && IsBlank(line[at]) && !IsBlank(line[at + 1])) blanks.push_back(at);
    }
    return blanks;
}

}  // namespace

std::vector<CommandReading> ReadCommandLine(std::string_view line) {
    line = Trimmed(line);
    std::vector<CommandReading> readings;
    const auto add = [&](std::string_view program, std::string_view rest) {
        program = Trimmed(program);
        // A line of thousands of blanks has as many readings, but hardly any of a program.
        if (program.size() > PATH_MAX || !MayNameProgram(program)) return;
        if (CommandReading reading{WithoutQuotes(program), rest}; !reading.program.empty())
            readings.push_back(std::move(reading));
    };
    add(line, {});
    auto blanks = PartingBlanks(line);
    std::ranges::reverse(blanks);
    for (const std::size_t blank : blanks) add(line.substr(0, blank), line.substr(blank + 1));
    return readings;
}

std::vector<std::string> ArgumentsOf(std::string_view rest) {
    std::vector<std::string> arguments;
    rest = Trimmed(rest);
    if (rest.empty()) return arguments;
    std::size_t from = 0;
    for (const std::size_t blank : PartingBlanks(rest)) {
        arguments.push_back(WithoutQuotes(Trimmed(rest.substr(from, blank - from))));
        from = blank + 1;
    }
    arguments.push_back(WithoutQuotes(Trimmed(rest.substr(from))));
    return arguments;
}

}  // namespace corvane::linux_desktop
