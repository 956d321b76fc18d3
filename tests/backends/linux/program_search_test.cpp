// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/program_search.h"

#include <gtest/gtest.h>

#include "temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

/// A small machine: programs in bin, desktop entries in applications.
class ProgramSearchTest : public testing::Test {
protected:
    [[nodiscard]] std::optional<Invocation> Find(const std::string& line) const {
        return FindInvocation(line, {{folder / "bin"}, {folder / "applications"}});
    }

    TemporaryFolder folder;
};

TEST_F(ProgramSearchTest, GivenPathIsTakenAsItStands) {
    const auto program = folder.PutProgram("opt/tool.exe");
    folder.PutProgram("opt/tool");
    EXPECT_EQ(Find(program), Invocation{program});
}

TEST_F(ProgramSearchTest, NameWithoutExeIsTakenNext) {
    const auto program = folder.PutProgram("opt/tool");
    EXPECT_EQ(Find(program + ".exe"), Invocation{program});
    EXPECT_EQ(Find(program + ".EXE"), Invocation{program});
}

TEST_F(ProgramSearchTest, CapitalsDoNotMatterInAnyPartOfThePath) {
    const auto program = folder.PutProgram("opt/Big/Tool");
    EXPECT_EQ(Find((folder / "OPT/big/tOOL.exe").string()), Invocation{program});
}

TEST_F(ProgramSearchTest, ExactSpellingWinsOverOtherCapitals) {
    folder.PutProgram("opt/TOOL");
    const auto program = folder.PutProgram("opt/tool");
    EXPECT_EQ(Find(program), Invocation{program});
}

TEST_F(ProgramSearchTest, OfFoldersThatDifferInCapitalsTheOneThatHasTheProgramCounts) {
    folder.Put("opt/tools/readme");
    const auto program = folder.PutProgram("opt/Tools/Hammer");
    EXPECT_EQ(Find((folder / "opt/tools/hammer.exe").string()), Invocation{program});
}

TEST_F(ProgramSearchTest, PathOfADesktopEntryStandsForItsProgram) {
    const auto program = folder.PutProgram("bin/editor");
    // Not the program of the entry's own name, and not the entry itself.
    folder.PutProgram("bin/vim");
    const auto entry = folder.PutProgram("applications/Vim.desktop",
                                         "[Desktop Entry]\nType=Application\nExec=editor -w %F\n");
    for (const std::string& line :
         {entry, entry + ".exe", (folder / "applications/vim.desktop.exe").string()})
        EXPECT_EQ(Find(line), (Invocation{program, "-w"})) << line;
}

TEST_F(ProgramSearchTest, DesktopEntryThatNamesAnotherOneOrItselfStartsNothing) {
    const auto entry = folder.path() + "/applications/loop.desktop";
    folder.Put("applications/loop.desktop",
               "[Desktop Entry]\nType=Application\nExec=" + entry + "\n");
    EXPECT_FALSE(Find(entry));
}

TEST_F(ProgramSearchTest, NameAloneIsFoundOnPath) {
    const auto program = folder.PutProgram("bin/editor");
    EXPECT_EQ(Find("editor.exe"), Invocation{program});
    EXPECT_EQ(Find("EDITOR.EXE -n x"), (Invocation{program, "-n", "x"}));
}

TEST_F(ProgramSearchTest, PathWithAFolderIsNotLookedForOnPath) {
    folder.PutProgram("bin/editor");
    EXPECT_FALSE(Find("/nowhere/editor"));
}

TEST_F(ProgramSearchTest, PathMayContainBlanks) {
    const auto program = folder.PutProgram("My Programs/the tool");
    EXPECT_EQ(Find(program), Invocation{program});
    EXPECT_EQ(Find(program + ".exe /n a"), (Invocation{program, "/n", "a"}));
    EXPECT_EQ(Find('"' + program + ".exe\" \"a b\""), (Invocation{program, "a b"}));
}

TEST_F(ProgramSearchTest, DesktopEntryIsFoundByItsId) {
    const auto program = folder.PutProgram("bin/run-writer");
    folder.Put("applications/writer.desktop",
               "[Desktop Entry]\nType=Application\nExec=run-writer --new %U\n");
    EXPECT_EQ(Find("writer.exe"), (Invocation{program, "--new"}));
    EXPECT_EQ(Find("Writer a.txt"), (Invocation{program, "--new", "a.txt"}));
}

TEST_F(ProgramSearchTest, TerminalProgramOfAnEntryRunsInATerminal) {
    const auto terminal = folder.PutProgram("bin/x-terminal-emulator");
    const auto program = folder.PutProgram("bin/top");
    folder.Put("applications/monitor.desktop",
               "[Desktop Entry]\nType=Application\nExec=top\nTerminal=true\n");
    EXPECT_EQ(Find("monitor"), (Invocation{terminal, "-e", program}));
}

TEST_F(ProgramSearchTest, WindowsProgramRunsThroughWine) {
    const auto program = folder.Put("opt/game.exe", "MZ\x90");
    EXPECT_FALSE(Find(program));
    const auto wine = folder.PutProgram("bin/wine");
    EXPECT_EQ(Find(program + " -full"), (Invocation{wine, program, "-full"}));
}

TEST_F(ProgramSearchTest, WhatIsNoProgramIsNotFound) {
    EXPECT_FALSE(Find(folder.Put("opt/text")));
    EXPECT_FALSE(Find(folder.path()));
    EXPECT_FALSE(Find("nothing"));
    EXPECT_FALSE(Find(".exe"));
    EXPECT_FALSE(Find(""));
}

}  // namespace
}  // namespace corvane::linux_desktop
