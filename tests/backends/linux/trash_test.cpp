// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/trash.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include <filesystem>
#include <functional>

#include "linux/files/file_descriptor.h"
#include "linux/system/expunging.h"
#include "linux/system/folder_removal.h"
#include "temporary_folder.h"
#include "unprivileged.h"

namespace corvane::linux_desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
namespace fs = std::filesystem;

/// A home with a trash, and a volume with another.
class TrashTest : public ::testing::Test {
protected:
    TrashTest() {
        fs::create_directories(home / "files");
        fs::create_directories(home / "info");
        fs::create_directories(volume);
    }

    /// A thing in the trash with what is noted about it.
    static void Throw(const fs::path& trash, const std::string& name) {
        fs::create_directories(trash / "files");
        Write(trash / "files" / name);
        Note(trash, name);
    }
    static void Note(const fs::path& trash, const std::string& name) {
        fs::create_directories(trash / "info");
        Write(trash / "info" / (name + ".trashinfo"));
    }
    static void Write(const fs::path& file) {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "x";
    }
    static void Allow(const fs::path& path, mode_t mode) {
        ASSERT_EQ(::chmod(path.c_str(), mode), 0) << path;
    }
    static std::vector<std::string> In(const fs::path& folder) {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            names.push_back(entry.path().filename());
        return names;
    }

    bool Empty(const std::vector<std::string>& tops) {
        return EmptyTrashes({.home = home, .tops = tops, .person = ::geteuid()}, emptying);
    }
    bool Empty() { return Empty({volume}); }

    Unprivileged nobody;
    TemporaryFolder folder;
    fs::path home = folder / "home/.local/share/Trash";
    fs::path volume = folder / "volume";
    fs::path volume_trash = volume / (".Trash-" + std::to_string(::geteuid()));
    Emptying emptying;
};

TEST_F(TrashTest, FilesAndNotesGoFromHomeAndFromEachVolume) {
    for (const fs::path& trash : {home, volume_trash})
        for (const char* name : {"plain.txt", "with blanks ", "-rf", "new\nline", "\xFF\xFE", "*",
                                 "Gr\xC3\xBC\xC3\x9F"
                                 "e",
                                 ".hidden", "..."})
            Throw(trash, name);
    EXPECT_TRUE(Empty());
    for (const fs::path& trash : {home, volume_trash}) {
        EXPECT_THAT(In(trash / "files"), IsEmpty());
        EXPECT_THAT(In(trash / "info"), IsEmpty());
    }
    EXPECT_EQ(emptying.things, 18);
    EXPECT_EQ(emptying.things_done, 18);
}

TEST_F(TrashTest, LinksAreRemovedAndNeverFollowed) {
    const std::string outside = folder.Put("precious/letter.txt", "dear");
    fs::create_symlink(outside, home / "files/link to a file");
    fs::create_directories(home / "files/folder");
    fs::create_directory_symlink(folder / "precious", home / "files/link to a folder");
    fs::create_directory_symlink(folder / "precious", home / "files/folder/link");
    fs::create_directory_symlink("..", home / "files/folder/upwards");
    Empty();
    EXPECT_THAT(In(home / "files"), IsEmpty());
    EXPECT_EQ(folder.Bytes("precious/letter.txt"), "dear");
}

TEST_F(TrashTest, FoldersWithoutPermissionAreMadeWritableFirst) {
    Write(home / "files/project/build/output.o");
    Write(home / "files/project/secret/key");
    Allow(home / "files/project/build", 0555);
    Allow(home / "files/project/secret", 0000);
    Allow(home / "files/project", 0500);
    Empty();
    EXPECT_THAT(In(home / "files"), IsEmpty());
}

TEST_F(TrashTest, DepthIsNoObstacle) {
    constexpr int kDeeperThanAnyPath = 3000;
    int at = ::open((home / "files").c_str(), O_PATH | O_DIRECTORY);
    for (int i = 0; i < kDeeperThanAnyPath; ++i) {
        ASSERT_EQ(::mkdirat(at, "folder", 0700), 0);
        const int below = ::openat(at, "folder", O_PATH | O_DIRECTORY);
        ::close(at);
        at = below;
    }
    ::close(at);
    Empty();
    EXPECT_THAT(In(home / "files"), IsEmpty());
    EXPECT_EQ(emptying.files_removed, kDeeperThanAnyPath);
}

TEST_F(TrashTest, NotesOfNothingAndWhatOthersLeftBehindGoToo) {
    Note(home, "long gone");
    Write(home / "files/never noted");
    Write(home / "expunged/1234/half removed");
    Write(home / "directorysizes");
    Empty();
    EXPECT_THAT(In(home / "files"), IsEmpty());
    EXPECT_THAT(In(home / "info"), IsEmpty());
    EXPECT_THAT(In(home / "expunged"), IsEmpty());
    EXPECT_THAT(In(home), UnorderedElementsAre("files", "info", "expunged"));
}

TEST_F(TrashTest, WhatOthersLeftBehindAndCanNotGoIsNotPassedOver) {
    Write(home / "expunged/1234/half removed");
    Allow(home / "expunged", 0500);
    EXPECT_FALSE(Empty());
    Allow(home / "expunged", 0700);
}

TEST_F(TrashTest, ThePersonsFolderInAStickySharedTrashIsEmptied) {
    const fs::path own = volume / ".Trash" / std::to_string(::geteuid());
    Throw(own, "mine");
    Throw(volume / ".Trash/4711", "somebody else's");
    Allow(volume / ".Trash", 01777);
    Empty();
    EXPECT_THAT(In(own / "files"), IsEmpty());
    EXPECT_THAT(In(volume / ".Trash/4711/files"), ElementsAre("somebody else's"));
}

TEST_F(TrashTest, ASharedTrashWithoutTheStickyBitIsNotTrusted) {
    const fs::path own = volume / ".Trash" / std::to_string(::geteuid());
    Throw(own, "mine");
    Allow(volume / ".Trash", 0777);
    Empty();
    EXPECT_THAT(In(own / "files"), ElementsAre("mine"));
}

TEST_F(TrashTest, ATrashThatIsALinkIsNone) {
    const std::string person = std::to_string(::geteuid());
    const auto elsewhere = folder / "elsewhere";
    Throw(elsewhere / person, "shared");
    Throw(elsewhere / "own", "own");
    Allow(elsewhere, 01777);
    fs::create_directory_symlink(elsewhere, volume / ".Trash");
    fs::create_directory_symlink(elsewhere / "own", volume_trash);
    Empty();
    EXPECT_THAT(In(elsewhere / person / "files"), ElementsAre("shared"));
    EXPECT_THAT(In(elsewhere / "own/files"), ElementsAre("own"));
}

TEST_F(TrashTest, WhatLiesBehindALinkInATrashIsLeftAloneWithItsNotes) {
    const auto elsewhere = folder / "elsewhere";
    Write(elsewhere / "letter.txt");
    fs::remove(home / "files");
    fs::create_directory_symlink(elsewhere, home / "files");
    Note(home, "letter.txt");
    Empty();
    EXPECT_THAT(In(elsewhere), ElementsAre("letter.txt"));
    EXPECT_THAT(In(home / "info"), ElementsAre("letter.txt.trashinfo"));
}

TEST_F(TrashTest, AFolderOfSomebodyElsesIsNoTrash) {
    Throw(volume_trash, "mine");
    const uid_t another = ::geteuid() + 1;
    fs::rename(volume_trash, volume / (".Trash-" + std::to_string(another)));
    EmptyTrashes({.home = home, .tops = {volume}, .person = another}, emptying);
    EXPECT_EQ(emptying.things, 0);
}

TEST_F(TrashTest, AVolumeThatIsMountedTwiceHasOneTrash) {
    Throw(volume_trash, "mine");
    Allow(volume_trash / "files", 0500);
    EXPECT_FALSE(Empty({volume, volume}));
    EXPECT_EQ(emptying.things, 1);
    Allow(volume_trash / "files", 0700);
}

TEST_F(TrashTest, AVolumeIsOnlyLookedAtWhenThePlacesBeforeItAreDone) {
    const fs::path within = home / "files/thrown away";
    Throw(within / volume_trash.filename(), "letter.txt");
    EXPECT_TRUE(Empty({within}));
    EXPECT_EQ(emptying.things, 1);
}

TEST_F(TrashTest, InAReadOnlyTrashThingsStayWithTheirNotes) {
    Throw(home, "letter.txt");
    Allow(home / "files", 0500);
    EXPECT_FALSE(Empty());
    EXPECT_THAT(In(home / "files"), ElementsAre("letter.txt"));
    EXPECT_THAT(In(home / "info"), ElementsAre("letter.txt.trashinfo"));
    Allow(home / "files", 0700);
}

TEST_F(TrashTest, AFolderThatCanNotBeMovedAsideStaysWholeWithItsNote) {
    Write(home / "files/project/source");
    Note(home, "project");
    Throw(home, "letter.txt");
    Allow(home, 0500);
    EXPECT_FALSE(Empty());
    EXPECT_THAT(In(home / "files"), ElementsAre("project"));
    EXPECT_THAT(In(home / "files/project"), ElementsAre("source"));
    EXPECT_THAT(In(home / "info"), ElementsAre("project.trashinfo"));
    Allow(home, 0700);
}

TEST_F(TrashTest, WhatCanNotGoStaysWithItsNoteAndTheRestGoes) {
    Throw(home, "letter.txt");
    Write(home / "files/mixed/mine");
    Note(home, "mixed");
    const bool foreign = nobody.AsSuperuser([&] { Write(home / "files/mixed/foreign/file"); });
    if (!foreign) GTEST_SKIP() << "only the superuser can make somebody else's files";
    Empty();
    EXPECT_THAT(In(home / "files"), ElementsAre("mixed"));
    EXPECT_THAT(In(home / "files/mixed"), ElementsAre("foreign"));
    EXPECT_THAT(In(home / "info"), ElementsAre("mixed.trashinfo"));
    EXPECT_THAT(In(home / "expunged"), IsEmpty());
    nobody.AsSuperuser([&] { fs::remove_all(home / "files/mixed/foreign"); });
}

TEST_F(TrashTest, CancelledBeforeItBeginsItLeavesAll) {
    Throw(home, "letter.txt");
    Note(home, "long gone");
    emptying.cancelled = true;
    Empty();
    EXPECT_THAT(In(home / "files"), ElementsAre("letter.txt"));
    EXPECT_THAT(In(home / "info"),
                UnorderedElementsAre("letter.txt.trashinfo", "long gone.trashinfo"));
}

TEST_F(TrashTest, NoTrashAtAllIsNothingToDo) {
    fs::remove_all(home);
    EXPECT_TRUE(Empty());
    EXPECT_EQ(emptying.files_removed, 0);
}

TEST_F(TrashTest, AnotherFileSystemInATrashedFolderIsNotEntered) {
    const fs::path thing = home / "files/folder/disk";
    fs::create_directories(thing);
    bool mounted = false;
    nobody.AsSuperuser([&] {
        mounted = ::unshare(CLONE_NEWNS) == 0 &&
                  ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                  ::mount("none", thing.c_str(), "tmpfs", 0, "mode=777") == 0 &&
                  ::mount("none", volume.c_str(), "tmpfs", 0, "mode=777") == 0;
    });
    if (!mounted) GTEST_SKIP() << "nothing can be mounted here";
    Write(thing / "precious");
    Throw(volume_trash, "on a volume of its own");
    Empty();
    EXPECT_THAT(In(thing), ElementsAre("precious"));
    EXPECT_THAT(In(volume_trash / "files"), IsEmpty());
    EXPECT_THAT(In(volume_trash / "info"), IsEmpty());
    nobody.AsSuperuser([&] {
        ::umount(thing.c_str());
        ::umount(volume.c_str());
    });
}

/// Does something when the first thing has been removed.
class Meddler final : public RemovalWatcher {
public:
    explicit Meddler(std::function<bool()> act) : act_(std::move(act)) {}
    bool Removed() override { return ++removed_ > 1 || act_(); }

private:
    std::function<bool()> act_;
    int removed_ = 0;
};

class FolderRemovalTest : public TrashTest {
protected:
    FileDescriptor top{::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY)};
};

TEST_F(FolderRemovalTest, IsStoppedAfterAnyFile) {
    for (const char* name : {"a/1", "a/2", "a/3"}) folder.Put(name);
    Meddler stop([] { return false; });
    EXPECT_FALSE(RemoveTree(top.number(), "a", stop));
    EXPECT_EQ(In(folder / "a").size(), 2U);
}

TEST_F(FolderRemovalTest, DoesNotFollowAFolderThatSomebodyMovesAway) {
    folder.Put("a/b/file");
    folder.Put("outside/precious");
    Meddler move([&] {
        fs::rename(folder / "a/b", folder / "outside/b");
        return true;
    });
    EXPECT_FALSE(RemoveTree(top.number(), "a", move));
    EXPECT_THAT(In(folder / "outside"), UnorderedElementsAre("precious", "b"));
}

/// A trash with a folder of three files.
class ExpungingTest : public TrashTest {
protected:
    ExpungingTest() {
        for (const char* file : {"1", "2", "3"}) Write(thing / file);
        fs::create_directories(folder / "desk");
    }
    bool ExpungeThing(RemovalWatcher& watcher) {
        const FileDescriptor trash(::open(home.c_str(), O_RDONLY | O_DIRECTORY));
        const FileDescriptor files(::open((home / "files").c_str(), O_RDONLY | O_DIRECTORY));
        return Expunge(trash.number(), files.number(), "project", watcher);
    }

    fs::path thing = home / "files/project";
};

TEST_F(ExpungingTest, WhoTakesAThingOutOnceItIsGoingGetsNothingOfIt) {
    std::error_code refused;
    Meddler restore([&] {
        fs::rename(thing, folder / "desk/project", refused);
        return true;
    });
    EXPECT_TRUE(ExpungeThing(restore));
    EXPECT_EQ(refused, std::errc::no_such_file_or_directory);
    EXPECT_THAT(In(folder / "desk"), IsEmpty());
    EXPECT_THAT(In(home / "expunged"), IsEmpty());
}

TEST_F(ExpungingTest, WhoTakesAThingOutBeforeItGoesHasAllOfIt) {
    fs::rename(thing, folder / "desk/project");
    Meddler nobody_else([] { return true; });
    EXPECT_FALSE(ExpungeThing(nobody_else));
    EXPECT_THAT(In(folder / "desk/project"), UnorderedElementsAre("1", "2", "3"));
}

TEST_F(ExpungingTest, WhatIsThrownAwayMeanwhileUnderTheSameNameIsLeftAlone) {
    Meddler throw_away([&] {
        Write(thing / "new");
        return false;
    });
    EXPECT_FALSE(ExpungeThing(throw_away));
    EXPECT_THAT(In(thing), ElementsAre("new"));
}

TEST_F(ExpungingTest, WhatIsLeftWhenStoppedComesBack) {
    Meddler stop([] { return false; });
    EXPECT_FALSE(ExpungeThing(stop));
    EXPECT_EQ(In(thing).size(), 2U);
    EXPECT_THAT(In(home / "expunged"), IsEmpty());
}

TEST_F(ExpungingTest, NothingThatLiesAsideAlreadyIsReplaced) {
    const fs::path aside = home / "expunged" / (std::to_string(::getpid()) + "-1");
    Write(aside);
    Meddler nobody_else([] { return true; });
    EXPECT_TRUE(ExpungeThing(nobody_else));
    EXPECT_TRUE(fs::exists(aside));
}

}  // namespace
}  // namespace corvane::linux_desktop
