// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/detached_process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "linux/files/file_descriptor.h"
#include "temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

/// Runs a shell script and gives what it wrote into the file whose name is its first argument.
std::string Told(const TemporaryFolder& folder, const std::string& script,
                 const std::string& working_folder) {
    const std::string out = folder / "out";
    // Moved into place when complete.
    const std::string whole = "{ " + script + "; } > \"$1.part\" 2>&1; mv \"$1.part\" \"$1\"";
    EXPECT_TRUE(StartDetached({"/bin/sh", "-c", whole, "sh", out}, working_folder));
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!std::filesystem::exists(out) && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return folder.Bytes("out");
}

TEST(DetachedProcess, StandsInTheGivenFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(Told(folder, "pwd", folder.path()), folder.path() + "\n");
}

TEST(DetachedProcess, FolderThatCannotBeEnteredDoesNotPreventTheStart) {
    const TemporaryFolder folder;
    EXPECT_EQ(Told(folder, "pwd", "/no/such/folder"), "/\n");
}

TEST(DetachedProcess, InheritsNoneOfOurFiles) {
    const TemporaryFolder folder;
    // A descriptor of some library that does not close itself.
    const FileDescriptor inheritable(::open("/dev/null", O_RDONLY));
    EXPECT_EQ(Told(folder,
                   "test -e /proc/$$/fd/" + std::to_string(inheritable.number()) +
                       " && echo inherited || echo clean",
                   "/"),
              "clean\n");
}

TEST(DetachedProcess, ReadsNothing) {
    const TemporaryFolder folder;
    EXPECT_EQ(Told(folder, "readlink /proc/$$/fd/0", "/"), "/dev/null\n");
}

TEST(DetachedProcess, KnowsNothingOfOurOwnStart) {
    const TemporaryFolder folder;
    ::setenv("DESKTOP_STARTUP_ID", "ours", 1);
    EXPECT_EQ(Told(folder, "echo ${DESKTOP_STARTUP_ID-none}", "/"), "none\n");
    ::unsetenv("DESKTOP_STARTUP_ID");
}

TEST(DetachedProcess, LeavesNoChildBehind) {
    EXPECT_TRUE(StartDetached({"/bin/true"}, "/"));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(DetachedProcess, TellsThatAProgramCannotRun) {
    const TemporaryFolder folder;
    EXPECT_FALSE(StartDetached({"/no/such/program"}, "/"));
    EXPECT_FALSE(StartDetached({folder.PutProgram("broken",
                                                  "\x7F"
                                                  "ELF")},
                               "/"));
}

}  // namespace
}  // namespace corvane::linux_desktop
