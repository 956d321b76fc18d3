// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/command_line.h"

#include <gtest/gtest.h>

namespace corvane::linux_desktop {
namespace {

using Readings = std::vector<CommandReading>;

TEST(CommandLine, WholeLineIsTriedFirstThenThePartInFrontOfEachBlank) {
    EXPECT_EQ(
        ReadCommandLine("/opt/my tool -x"),
        (Readings{{"/opt/my tool -x", {}}, {"/opt/my tool", {"-x"}}, {"/opt/my", {"tool", "-x"}}}));
}

TEST(CommandLine, QuotedProgramHasOneReading) {
    EXPECT_EQ(ReadCommandLine("\"/opt/my tool\" -x"), (Readings{{"/opt/my tool", {"-x"}}}));
}

TEST(CommandLine, QuotesKeepAnArgumentTogether) {
    EXPECT_EQ(ReadCommandLine("edit \"a b\""), (Readings{{"edit", {"a b"}}}));
}

TEST(CommandLine, EmptyQuotedArgumentIsKept) {
    EXPECT_EQ(ReadCommandLine("edit \"\" x"), (Readings{{"edit", {"", "x"}}}));
}

TEST(CommandLine, BlanksAroundAndInRowsDoNotMatter) {
    EXPECT_EQ(ReadCommandLine("  edit   x  "), (Readings{{"edit   x", {}}, {"edit", {"x"}}}));
}

TEST(CommandLine, EmptyLineHasNoReading) {
    EXPECT_EQ(ReadCommandLine(""), Readings{});
    EXPECT_EQ(ReadCommandLine("  "), Readings{});
    EXPECT_EQ(ReadCommandLine("\"\""), Readings{});
}

TEST(CommandLine, UnclosedQuoteHasNoReading) {
    EXPECT_EQ(ReadCommandLine("\"/opt/my tool"), Readings{});
}

}  // namespace
}  // namespace corvane::linux_desktop
