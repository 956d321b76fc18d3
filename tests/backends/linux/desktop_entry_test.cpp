// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/desktop_entry.h"

#include <gtest/gtest.h>

namespace corvane::linux_desktop {
namespace {

using Command = std::vector<std::string>;

std::optional<DesktopEntry> EntryWith(const std::string& lines) {
    return ReadDesktopEntry("[Desktop Entry]\nType=Application\nName=Editor\n" + lines + "\n");
}

TEST(DesktopEntry, FieldCodesAreDropped) {
    EXPECT_EQ(EntryWith("Exec=editor --new %U %i -x=%f")->command,
              (Command{"editor", "--new", "-x="}));
}

TEST(DesktopEntry, DoublePercentIsAPercentSign) {
    EXPECT_EQ(EntryWith("Exec=editor 50%%")->command, (Command{"editor", "50%"}));
}

TEST(DesktopEntry, QuotesKeepAnArgumentTogether) {
    EXPECT_EQ(EntryWith(R"(Exec="/opt/my editor" "say \\"hi\\"" "")")->command,
              (Command{"/opt/my editor", "say \"hi\"", ""}));
}

TEST(DesktopEntry, OnlyTheMainGroupCounts) {
    EXPECT_EQ(EntryWith("Exec=editor\n[Desktop Action new]\nExec=editor --new")->command,
              Command{"editor"});
    EXPECT_FALSE(ReadDesktopEntry("[Other]\nType=Application\nExec=editor\n"));
}

TEST(DesktopEntry, TerminalIsTold) {
    EXPECT_TRUE(EntryWith("Exec=top\nTerminal=true")->terminal);
    EXPECT_FALSE(EntryWith("Exec=top")->terminal);
}

TEST(DesktopEntry, HiddenOrWithoutCommandOrNoApplicationIsNone) {
    EXPECT_FALSE(EntryWith("Exec=editor\nHidden=true"));
    EXPECT_FALSE(EntryWith("DBusActivatable=true"));
    EXPECT_FALSE(ReadDesktopEntry("[Desktop Entry]\nType=Link\nExec=editor\n"));
    EXPECT_FALSE(ReadDesktopEntry(""));
}

}  // namespace
}  // namespace corvane::linux_desktop
