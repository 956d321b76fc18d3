// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <array>

#include "contract/world.h"

namespace corvane {
namespace {

/// What is asked of the machine: drives, memory, the connection, and what the process may do.
class MachineContract : public ::testing::Test {
protected:
    struct Sizes {
        ByteCount available = 7;
        ByteCount total = 7;
        ByteCount free = 7;
        friend bool operator==(const Sizes&, const Sizes&) = default;
    };
    bool Ask(const std::string& root, Sizes& sizes) {
        return world->kernel32().GetDiskFreeSpaceExA(root, sizes.available, sizes.total,
                                                     sizes.free);
    }

    std::unique_ptr<testing::World> world = testing::MakeWorld();
};

TEST_F(MachineContract, TheProgramsOwnDriveHasSizes) {
    Sizes sizes;
    ASSERT_TRUE(Ask("/:\\", sizes));
    EXPECT_GT(sizes.total, 0U);
    EXPECT_LE(sizes.free, sizes.total);
    EXPECT_LE(sizes.available, sizes.free);
}

TEST_F(MachineContract, ADriveThatIsNotThereLeavesTheCountsAsTheyAre) {
    for (const char* root : {"?:\\", "", ":\\", "CC:\\"}) {
        Sizes sizes;
        EXPECT_FALSE(Ask(root, sizes)) << root;
        EXPECT_EQ(sizes, Sizes()) << root;
    }
}

TEST_F(MachineContract, EveryDriveHasOneCapitalAndTheyAreInOrder) {
    char last = 0;
    for (const DriveObject& drive : world->files().Drives()) {
        ASSERT_EQ(drive.driveletter.size(), 1U);
        EXPECT_GE(drive.driveletter[0], 'A');
        EXPECT_LE(drive.driveletter[0], 'Z');
        EXPECT_GT(drive.driveletter[0], last);
        last = drive.driveletter[0];
    }
}

TEST_F(MachineContract, DriveCIsListedAndItsLetterMayHaveAnyCase) {
    bool listed = false;
    for (const DriveObject& drive : world->files().Drives()) listed |= drive.driveletter == "C";
    EXPECT_TRUE(listed);
    Sizes capital;
    Sizes small;
    EXPECT_TRUE(Ask("C:\\", capital));
    EXPECT_TRUE(Ask("c:\\", small));
    EXPECT_EQ(capital.total, small.total);
}

TEST_F(MachineContract, OnlyListedDrivesHaveSizes) {
    std::string letters;
    for (const DriveObject& drive : world->files().Drives()) letters += drive.driveletter;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        Sizes sizes;
        if (!Ask(std::string(1, letter) + ":\\", sizes)) continue;
        EXPECT_NE(letters.find(letter), std::string::npos) << letter;
    }
}

TEST_F(MachineContract, MemoryIsCountedInBytes) {
    MEMORYSTATUS status;
    world->kernel32().GlobalMemoryStatus(status);
    EXPECT_GT(status.dwTotalPhys, std::int64_t{1} << 24);
    EXPECT_GE(status.dwAvailPhys, 0);
    EXPECT_LE(status.dwAvailPhys, status.dwTotalPhys);
}

TEST_F(MachineContract, TheKindOfConnectionIsToldInKnownFlags) {
    std::uint32_t flags = 0;
    world->wininet().InternetGetConnectedState(flags, 0);
    EXPECT_EQ(flags & ~std::uint32_t{INTERNET_CONNECTION_MODEM | INTERNET_CONNECTION_LAN |
                                     INTERNET_CONNECTION_PROXY | INTERNET_CONNECTION_MODEM_BUSY},
              0U);
}

TEST_F(MachineContract, TheOwnTokenTakesThePrivilegeToShutDown) {
    HANDLE token = 0;
    ASSERT_TRUE(world->tokens().OpenProcessToken(world->kernel32().GetCurrentProcess(),
                                                 TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, token));
    LUID luid;
    ASSERT_TRUE(world->tokens().LookupPrivilegeValueA("", "SeShutdownPrivilege", luid));
    const TOKEN_PRIVILEGES on{
        .PrivilegeCount = 1, .Luid = luid, .Attributes = SE_PRIVILEGE_ENABLED};
    TOKEN_PRIVILEGES before;
    std::uint32_t length = 0;
    EXPECT_TRUE(world->tokens().AdjustTokenPrivileges(token, 0, on, sizeof before, before, length));
    EXPECT_EQ(length, sizeof before);
    EXPECT_EQ(before.Luid, luid);
    EXPECT_EQ(before.Attributes, 0U);
}

TEST_F(MachineContract, ThePrivilegeIsFoundSwitchedOnTheNextTimeAndCanBeSwitchedOff) {
    HANDLE token = 0;
    world->tokens().OpenProcessToken(world->kernel32().GetCurrentProcess(),
                                     TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, token);
    LUID luid;
    world->tokens().LookupPrivilegeValueA("", "SeShutdownPrivilege", luid);
    const TOKEN_PRIVILEGES on{
        .PrivilegeCount = 1, .Luid = luid, .Attributes = SE_PRIVILEGE_ENABLED};
    const TOKEN_PRIVILEGES off{.PrivilegeCount = 1, .Luid = luid, .Attributes = 0};
    std::string seen;
    for (const TOKEN_PRIVILEGES* wanted : {&on, &off, &on}) {
        TOKEN_PRIVILEGES before;
        std::uint32_t length = 0;
        world->tokens().AdjustTokenPrivileges(token, 0, *wanted, sizeof before, before, length);
        seen += std::to_string(before.Attributes);
    }
    EXPECT_EQ(seen, "020");
}

TEST_F(MachineContract, WhatIsNoTokenOrNoPrivilegeIsRefusedAndLeavesTheArgumentsAlone) {
    HANDLE token = 5;
    EXPECT_FALSE(world->tokens().OpenProcessToken(12345, TOKEN_QUERY, token));
    EXPECT_EQ(token, 5U);
    LUID luid{.LowPart = 5, .HighPart = 6};
    EXPECT_FALSE(world->tokens().LookupPrivilegeValueA("", "SeNoSuchPrivilege", luid));
    EXPECT_EQ(luid, (LUID{.LowPart = 5, .HighPart = 6}));
    TOKEN_PRIVILEGES before;
    std::uint32_t length = 0;
    EXPECT_FALSE(world->tokens().AdjustTokenPrivileges(0, 0, {}, sizeof before, before, length));
}

TEST_F(MachineContract, ATokenThatWasOpenedToBeLookedAtTakesNoPrivilege) {
    HANDLE token = 0;
    ASSERT_TRUE(world->tokens().OpenProcessToken(world->kernel32().GetCurrentProcess(), TOKEN_QUERY,
                                                 token));
    LUID luid;
    ASSERT_TRUE(world->tokens().LookupPrivilegeValueA("", "SeShutdownPrivilege", luid));
    TOKEN_PRIVILEGES before;
    std::uint32_t length = 0;
    EXPECT_FALSE(world->tokens().AdjustTokenPrivileges(
        token, 0, {.PrivilegeCount = 1, .Luid = luid, .Attributes = SE_PRIVILEGE_ENABLED},
        sizeof before, before, length));
}

TEST_F(MachineContract, ADiscCommandThatIsNotUnderstoodIsTold) {
    std::string reply = "0";
    EXPECT_NE(world->winmm().mciSendStringA("Set CDAudio Door Ajar", reply, 0, 0), 0U);
    EXPECT_NE(world->winmm().mciSendStringA("", reply, 0, 0), 0U);
    EXPECT_EQ(reply, "0");
}

}  // namespace
}  // namespace corvane
