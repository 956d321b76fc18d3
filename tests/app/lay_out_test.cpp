// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lay_out/lay_out.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <string>

#include "temporary_folder.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;
using linux_desktop::TemporaryFolder;

/// No file becomes larger, as on a full disk.
class NoRoom {
public:
    explicit NoRoom(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
        handler_ = ::signal(SIGXFSZ, SIG_IGN);
    }
    ~NoRoom() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, handler_);
    }
    NoRoom(const NoRoom&) = delete;
    NoRoom& operator=(const NoRoom&) = delete;

private:
    rlimit before_{};
    sighandler_t handler_;
};

class LayOutTest : public testing::Test {
protected:
    LayOutTest() {
        folder.Put("delivered/keywords.txt", "notepad\r\n/usr/bin/xterm.exe\r\n");
        folder.Put("delivered/keywords.xml", "<GRAMMAR/>");
        folder.Put("delivered/help.html", "help");
        folder.Put("delivered/pictures/corvane-16.png", "picture");
    }

    void Start() const { LayOut(FilesUnder(delivered), delivered, own); }
    [[nodiscard]] std::string Own(const std::string& name) const {
        return folder.Bytes("own/" + name);
    }
    /// What the failure of a start says.
    [[nodiscard]] std::string Refusal() const {
        try {
            Start();
        } catch (const LayOutFailed& failure) {
            return failure.what();
        }
        return "none";
    }

    TemporaryFolder folder;
    const fs::path delivered = folder / "delivered";
    const fs::path own = folder / "own";
};

TEST_F(LayOutTest, FirstStartLaysEverythingOut) {
    Start();
    EXPECT_EQ(FilesUnder(own), FilesUnder(delivered));
    EXPECT_EQ(Own("keywords.txt"), "notepad\r\n/usr/bin/xterm.exe\r\n");
    EXPECT_EQ(Own("pictures/corvane-16.png"), "picture");
}

TEST_F(LayOutTest, SecondStartTouchesNothing) {
    Start();
    const auto before = fs::last_write_time(own / "help.html");
    fs::last_write_time(delivered / "help.html", before + std::chrono::hours(1));
    Start();
    EXPECT_EQ(fs::last_write_time(own / "help.html"), before);
}

TEST_F(LayOutTest, WhatAPersonHasTaughtStays) {
    Start();
    folder.Put("own/keywords.txt", "editor\r\n/usr/bin/vi.exe\r\n");
    folder.Put("own/keywords.xml", "<GRAMMAR>editor</GRAMMAR>");
    folder.Put("delivered/keywords.txt", "");
    folder.Put("delivered/keywords.xml", "");
    Start();
    EXPECT_EQ(Own("keywords.txt"), "editor\r\n/usr/bin/vi.exe\r\n");
    EXPECT_EQ(Own("keywords.xml"), "<GRAMMAR>editor</GRAMMAR>");
}

TEST_F(LayOutTest, ForgettingEverythingStaysToo) {
    Start();
    folder.Put("own/keywords.txt", "");
    Start();
    EXPECT_EQ(Own("keywords.txt"), "");
}

// Whoever keeps what they taught elsewhere may start the program while that disk is not there.
TEST_F(LayOutTest, ALinkToKeywordsThatAreNotThereStays) {
    Start();
    fs::remove(own / "keywords.txt");
    fs::create_symlink(folder / "stick/keywords.txt", own / "keywords.txt");
    Start();
    EXPECT_EQ(fs::read_symlink(own / "keywords.txt"), folder / "stick/keywords.txt");
    EXPECT_FALSE(fs::exists(folder / "stick"));
    EXPECT_TRUE(AreLaidOut(FilesUnder(delivered), own));
}

TEST_F(LayOutTest, AnUpgradeRefreshesTheRest) {
    Start();
    folder.Put("delivered/help.html", "more help");
    folder.Put("delivered/pictures/corvane-512.png", "large picture");
    Start();
    EXPECT_EQ(Own("help.html"), "more help");
    EXPECT_EQ(Own("pictures/corvane-512.png"), "large picture");
}

TEST_F(LayOutTest, AnUpgradeWhoseFilesAreOlderThanThePersonsCountsToo) {
    Start();
    folder.Put("delivered/help.html", "more help");
    fs::last_write_time(delivered / "help.html",
                        fs::last_write_time(own / "help.html") - std::chrono::hours(24));
    Start();
    EXPECT_EQ(Own("help.html"), "more help");
}

TEST_F(LayOutTest, CopiesOfFilesThatNobodyMayWriteCanBeWritten) {
    for (const fs::path& file : FilesUnder(delivered))
        fs::permissions(delivered / file, fs::perms::owner_read | fs::perms::others_read);
    fs::permissions(delivered, fs::perms::owner_read | fs::perms::owner_exec);
    Start();
    fs::permissions(delivered, fs::perms::owner_all);
    for (const fs::path& file : FilesUnder(own))
        EXPECT_NE(fs::status(own / file).permissions() & fs::perms::owner_write, fs::perms::none)
            << file;
}

TEST_F(LayOutTest, OnAFullDiskTheFileIsNamedAndNothingIsHalfWritten) {
    folder.Put("delivered/help.html", std::string(100'000, 'x'));
    std::string refusal;
    {
        const NoRoom full(50'000);
        refusal = Refusal();
    }
    EXPECT_EQ(refusal, (own / "help.html").string() + ": File too large");
    EXPECT_TRUE(FilesUnder(own).empty());
    EXPECT_FALSE(AreLaidOut(FilesUnder(delivered), own));
}

TEST_F(LayOutTest, OnAFullDiskAnUpgradeLeavesWhatWasThere) {
    Start();
    folder.Put("delivered/help.html", std::string(100'000, 'x'));
    {
        const NoRoom full(50'000);
        EXPECT_NE(Refusal(), "none");
    }
    EXPECT_EQ(Own("help.html"), "help");
    EXPECT_EQ(FilesUnder(own), FilesUnder(delivered));
    EXPECT_TRUE(AreLaidOut(FilesUnder(delivered), own));
}

TEST_F(LayOutTest, AFileWhereAFolderShouldBeIsNamed) {
    folder.Put("own");
    EXPECT_EQ(Refusal(), own.string() + ": Not a directory");
}

TEST_F(LayOutTest, AFolderWhereAFileShouldBeIsNamed) {
    folder.Put("own/help.html/of the person's");
    EXPECT_EQ(Refusal(), (own / "help.html").string() + ": Is a directory");
}

TEST_F(LayOutTest, AnEmptyFileIsLaidOutToo) {
    folder.Put("delivered/quiet.xml");
    Start();
    EXPECT_TRUE(fs::is_empty(own / "quiet.xml"));
}

TEST_F(LayOutTest, WhatWasNotDeliveredIsNamed) {
    try {
        LayOut({"help.html", "missing.xml"}, delivered, own);
        FAIL() << "nothing was missed";
    } catch (const LayOutFailed& failure) {
        EXPECT_EQ(failure.what(),
                  (delivered / "missing.xml").string() + ": No such file or directory");
    }
    EXPECT_THROW(static_cast<void>(FilesUnder(folder / "nowhere")), LayOutFailed);
}

TEST_F(LayOutTest, ALinkIsMadeKeptAndLedElsewhere) {
    Start();
    LayLink("/usr/lib/corvane/corvane", own / "corvane");
    EXPECT_EQ(fs::read_symlink(own / "corvane"), "/usr/lib/corvane/corvane");
    LayLink("/usr/lib/corvane/corvane", own / "corvane");
    LayLink("/opt/corvane", own / "corvane");
    EXPECT_EQ(fs::read_symlink(own / "corvane"), "/opt/corvane");
}

TEST_F(LayOutTest, ALinkTakesThePlaceOfAFile) {
    folder.Put("own/corvane", "a copy");
    LayLink("/opt/corvane", own / "corvane");
    EXPECT_EQ(fs::read_symlink(own / "corvane"), "/opt/corvane");
}

TEST_F(LayOutTest, TheProgramsLinkIsLedElsewhereThoughAFileFails) {
    const DataFiles files = FilesUnder(delivered);
    LayOutProgram(files, {.data = delivered, .executable = "/home/before/corvane"}, own);
    folder.Put("delivered/help.html", std::string(100'000, 'x'));
    {
        const NoRoom full(50'000);
        try {
            LayOutProgram(files, {.data = delivered, .executable = "/usr/lib/corvane/corvane"},
                          own);
            FAIL() << "nothing was missed";
        } catch (const LayOutFailed& failure) {
            EXPECT_EQ(failure.what(), (own / "help.html").string() + ": File too large");
        }
    }
    EXPECT_EQ(fs::read_symlink(own / "corvane"), "/usr/lib/corvane/corvane");
}

TEST_F(LayOutTest, WhereNothingCanBeLaidOutTheFirstFailureIsTold) {
    folder.Put("own");
    try {
        LayOutProgram(FilesUnder(delivered), {.data = delivered, .executable = "/opt/corvane"},
                      own);
        FAIL() << "nothing was missed";
    } catch (const LayOutFailed& failure) {
        EXPECT_EQ(failure.what(), own.string() + ": Not a directory");
    }
}

TEST_F(LayOutTest, ALinkThatCantBeMadeIsNamed) {
    EXPECT_THROW(LayLink("/opt/corvane", folder / "nowhere/corvane"), LayOutFailed);
}

}  // namespace
}  // namespace corvane
