// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/command_line.h"

#include <gtest/gtest.h>

namespace corvane::linux_desktop {
namespace {

struct Reading {
    std::string program;
    std::vector<std::string> arguments;
    friend bool operator==(const Reading&, const Reading&) = default;
};
using Readings = std::vector<Reading>;

Readings ReadingsOf(std::string_view line) {
    Readings readings;
    for (const CommandReading& reading : ReadCommandLine(line))
        readings.push_back({reading.program, ArgumentsOf(reading.rest)});
    return readings;
}

TEST(CommandLine, WholeLineIsTriedFirstThenThePartInFrontOfEachBlank) {
    EXPECT_EQ(
        ReadingsOf("/opt/my tool -x"),
        (Readings{{"/opt/my tool -x", {}}, {"/opt/my tool", {"-x"}}, {"/opt/my", {"tool", "-x"}}}));
}

TEST(CommandLine, QuotedProgramHasOneReading) {
    EXPECT_EQ(ReadingsOf("\"/opt/my tool\" -x"), (Readings{{"/opt/my tool", {"-x"}}}));
}

TEST(CommandLine, QuotesKeepAnArgumentTogether) {
    EXPECT_EQ(ReadingsOf("edit \"a b\""), (Readings{{"edit", {"a b"}}}));
}

TEST(CommandLine, EmptyQuotedArgumentIsKept) {
    EXPECT_EQ(ReadingsOf("edit \"\" x"), (Readings{{"edit", {"", "x"}}}));
}

TEST(CommandLine, BlanksAroundAndInRowsDoNotMatter) {
    EXPECT_EQ(ReadingsOf("  edit   x  "), (Readings{{"edit   x", {}}, {"edit", {"x"}}}));
}

TEST(CommandLine, EmptyLineHasNoReading) {
    EXPECT_EQ(ReadingsOf(""), Readings{});
    EXPECT_EQ(ReadingsOf("  "), Readings{});
    EXPECT_EQ(ReadingsOf("\"\""), Readings{});
}

TEST(CommandLine, UnclosedQuoteHasNoReading) {
    EXPECT_EQ(ReadingsOf("\"/opt/my tool"), Readings{});
}

TEST(CommandLine, WhatIsLongerThanAnyPathIsNoProgram) {
    std::string line = "tool";
    for (int i = 0; i < 100'000; ++i) line += " a";
    const auto readings = ReadCommandLine(line);
    ASSERT_EQ(readings.size(), 2047U);
    EXPECT_EQ(readings.front().program.size(), 4096U);
    EXPECT_EQ(readings.back().program, "tool");
    EXPECT_EQ(ArgumentsOf(readings.back().rest).size(), 100'000U);
}

}  // namespace
}  // namespace corvane::linux_desktop
