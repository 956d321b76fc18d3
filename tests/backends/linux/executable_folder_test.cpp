// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/executable_folder.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

namespace fs = std::filesystem;

class ExecutableFolderTest : public testing::Test {
protected:
    /// What the kernel keeps for each process: a link to the file that runs.
    [[nodiscard]] fs::path SelfOf(const fs::path& file) const {
        fs::create_symlink(file, scratch / "self");
        return scratch / "self";
    }

    TemporaryFolder scratch;
    const fs::path root = fs::canonical(scratch.path());
    const fs::path program = scratch.PutProgram("lib/corvane");
};

TEST_F(ExecutableFolderTest, IsWhereTheProgramLies) {
    EXPECT_EQ(ExecutableFolder(program, SelfOf(program)), root / "lib");
}

TEST_F(ExecutableFolderTest, IsWhereTheLinkLiesThatItWasStartedBy) {
    fs::create_directory(scratch / "own");
    fs::create_symlink(program, scratch / "own/corvane");
    EXPECT_EQ(ExecutableFolder(scratch / "own/corvane", SelfOf(program)), root / "own");
}

TEST_F(ExecutableFolderTest, OfAFolderBehindALinkIsTheRealOne) {
    fs::create_directory_symlink(scratch / "lib", scratch / "elsewhere");
    EXPECT_EQ(ExecutableFolder(scratch / "elsewhere/corvane", SelfOf(program)), root / "lib");
}

TEST_F(ExecutableFolderTest, OfARelativeNameIsAbsolute) {
    const fs::path before = fs::current_path();
    fs::current_path(scratch / "lib");
    const fs::path folder = ExecutableFolder("./corvane", SelfOf(program));
    fs::current_path(before);
    EXPECT_EQ(folder, root / "lib");
}

TEST_F(ExecutableFolderTest, IsTheFilesOwnWhenTheNameLeadsToAnother) {
    const fs::path loader = scratch.PutProgram("bin/loader");
    EXPECT_EQ(ExecutableFolder(loader, SelfOf(program)), program.parent_path());
}

TEST_F(ExecutableFolderTest, IsTheFilesOwnWhenTheNameLeadsNowhere) {
    EXPECT_EQ(ExecutableFolder("/dev/fd/999", SelfOf(program)), program.parent_path());
    EXPECT_EQ(ExecutableFolder({}, scratch / "self"), program.parent_path());
}

TEST_F(ExecutableFolderTest, ThatCantBeFoundRaises) {
    EXPECT_THROW(static_cast<void>(ExecutableFolder({}, scratch / "missing")), RuntimeError);
}

TEST_F(ExecutableFolderTest, OfThisProcessHoldsIt) {
    EXPECT_TRUE(fs::equivalent(
        fs::path(ExecutableFolderOfThisProcess()) / fs::read_symlink("/proc/self/exe").filename(),
        "/proc/self/exe"));
}

}  // namespace
}  // namespace corvane::linux_desktop
