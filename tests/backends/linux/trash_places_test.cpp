// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/trash_places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane::linux_desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A root of the kernel's making, a home, a disk with two parts of one file system, and what holds
// no files of a person's.
constexpr const char* kMounts =
    "27 1 0:40 / / rw - overlay overlay rw\n"
    "22 27 0:21 / /proc rw - proc proc rw\n"
    "30 27 8:1 / /nowhere/home rw - ext4 /dev/sda1 rw\n"
    "31 27 0:50 /@a /nowhere/a rw - btrfs /dev/sdb1 rw\n"
    "32 27 0:50 /@b /nowhere/b\\040b rw - btrfs /dev/sdb1 rw\n"
    "33 27 0:60 / /nowhere/run rw - tmpfs tmpfs rw\n"
    "34 27 0:61 / /nowhere/packed ro - squashfs /dev/loop1 ro\n";

class TrashPlacesTest : public ::testing::Test {
protected:
    std::optional<TrashPlaces> On(const std::string& root) const {
        return TrashPlacesOf(
            {.mountinfo = kMounts,
             .drives = DrivesOf(kMounts, {.floppies = {}, .optical = {"/dev/sr0"}}),
             .home_trash = "/nowhere/home/ann/.local/share/Trash",
             .person = 1000},
            root);
    }
    const std::string home_trash = "/nowhere/home/ann/.local/share/Trash";
};

TEST_F(TrashPlacesTest, NoRootIsEveryVolumeThatHoldsFiles) {
    const auto places = On("");
    ASSERT_TRUE(places);
    EXPECT_EQ(places->home, home_trash);
    EXPECT_EQ(places->person, 1000U);
    EXPECT_THAT(places->tops, ElementsAre("/", "/nowhere/home", "/nowhere/a", "/nowhere/b b"));
}

TEST_F(TrashPlacesTest, ADriveHasItsVolumesAndTheHomeTrashThatLiesOnIt) {
    EXPECT_THAT(On("C:\\")->tops, ElementsAre("/"));
    EXPECT_THAT(On("C:\\")->home, IsEmpty());
    EXPECT_THAT(On("d:\\")->tops, ElementsAre("/nowhere/a", "/nowhere/b b"));
    EXPECT_THAT(On("E:\\anything")->tops, ElementsAre("/nowhere/home"));
    EXPECT_EQ(On("E:\\anything")->home, home_trash);
}

TEST_F(TrashPlacesTest, VolumesBehindANetworkComeLast) {
    const auto places =
        TrashPlacesOf({.mountinfo = "27 1 0:40 / / rw - nfs4 server:/root rw\n"
                                    "30 27 0:41 / /nowhere/far rw - cifs //server/far rw\n"
                                    "31 27 0:42 / /nowhere/further rw - fuse.sshfs ann@server: rw\n"
                                    "32 27 8:1 / /nowhere/near rw - ext4 /dev/sda1 rw\n",
                       .drives = {},
                       .home_trash = home_trash,
                       .person = 1000},
                      "");
    ASSERT_TRUE(places);
    EXPECT_THAT(places->tops,
                ElementsAre("/nowhere/near", "/", "/nowhere/far", "/nowhere/further"));
}

TEST_F(TrashPlacesTest, ADriveWithoutADiscHasNoTrash) {
    ASSERT_TRUE(On("F:\\"));
    EXPECT_THAT(On("F:\\")->tops, IsEmpty());
    EXPECT_THAT(On("F:\\")->home, IsEmpty());
}

TEST_F(TrashPlacesTest, WhatIsNoDriveHasNoPlaces) {
    for (const char* root : {"G:\\", "/", "C", ":\\"}) EXPECT_FALSE(On(root)) << root;
}

}  // namespace
}  // namespace corvane::linux_desktop
