// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/command_line.h"

#include <algorithm>
#include <cstddef>

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

std::vector<std::string> Arguments(std::string_view text) {
    std::vector<std::string> arguments;
    std::size_t from = 0;
    for (const std::size_t blank : PartingBlanks(text)) {
        arguments.push_back(WithoutQuotes(Trimmed(text.substr(from, blank - from))));
        from = blank + 1;
    }
    arguments.push_back(WithoutQuotes(Trimmed(text.substr(from))));
    return arguments;
}

}  // namespace

std::vector<CommandReading> ReadCommandLine(std::string_view line) {
    line = Trimmed(line);
    std::vector<CommandReading> readings;
    const auto add = [&](std::string_view program, std::vector<std::string> arguments) {
        program = Trimmed(program);
        CommandReading reading{WithoutQuotes(program), std::move(arguments)};
        if (MayNameProgram(program) && !reading.program.empty())
            readings.push_back(std::move(reading));
    };
    add(line, {});
    auto blanks = PartingBlanks(line);
    std::ranges::reverse(blanks);
    for (const std::size_t blank : blanks)
        add(line.substr(0, blank), Arguments(line.substr(blank + 1)));
    return readings;
}

}  // namespace corvane::linux_desktop
