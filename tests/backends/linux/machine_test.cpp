// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <sys/statvfs.h>

#include "linux/system/connection.h"
#include "linux/system/default_route.h"
#include "linux/system/drives.h"
#include "linux/system/kernel32.h"

namespace corvane::linux_desktop {
namespace {

constexpr const char* kMounts =
    "22 28 0:20 / /sys rw,nosuid shared:7 - sysfs sysfs rw\n"
    "28 1 254:1 / / rw,relatime shared:1 - ext4 /dev/vda1 rw\n"
    "33 28 254:3 / /srv/films rw shared:9 - ext4 /dev/vda3 rw\n"
    "34 28 254:2 / /home rw shared:8 - xfs /dev/vda2 rw\n"
    "35 28 254:2 /ann /mnt/ann rw shared:8 - xfs /dev/vda2 rw\n"
    "36 28 254:1 /var/tmp /scratch rw - ext4 /dev/vda1 rw\n"
    "37 28 0:44 / /net/box rw - nfs4 box:/export rw,vers=4.2\n"
    "38 28 7:1 / /snap/core/1 ro - squashfs /dev/loop1 ro\n"
    "39 28 11:0 / /media/ann/My\\040Disc ro - iso9660 /dev/sr0 ro\n"
    "40 28 0:50 / /run/user/1000 rw - tmpfs tmpfs rw\n"
    "broken\n";

TEST(Drives, AreTheRealMountsInOrderBehindTheRootAndTheOpticalOnesLast) {
    const std::vector<Drive> drives = DrivesOf(kMounts, {.floppies = {}, .optical = {"/dev/sr0"}});
    EXPECT_EQ(drives, (std::vector<Drive>{{'C', "/"},
                                          {'D', "/home"},
                                          {'E', "/net/box"},
                                          {'F', "/srv/films"},
                                          {'G', "/media/ann/My Disc"}}));
}

TEST(Drives, AnOpticalDriveWithoutADiscAndAFloppyAreThereAndNotReady) {
    const std::vector<Drive> drives =
        DrivesOf("28 1 254:1 / / rw - ext4 /dev/vda1 rw\n",
                 {.floppies = {"/dev/fd0", "/dev/fd1", "/dev/fd2"}, .optical = {"/dev/sr1"}});
    EXPECT_EQ(drives, (std::vector<Drive>{{'A', ""}, {'B', ""}, {'C', "/"}, {'D', ""}}));
}

TEST(Drives, EndAtZ) {
    std::string mounts;
    for (int i = 0; i < 60; ++i)
        mounts += "1 1 8:" + std::to_string(i) + " / /m" + std::to_string(i) +
                  " rw - ext4 /dev/sd" + std::to_string(i) + " rw\n";
    EXPECT_EQ(DrivesOf(mounts, {}).back().letter, 'Z');
}

TEST(Kernel32Test, TheProgramsOwnRootIsTheFileSystemThatHoldsIt) {
    Kernel32 kernel("/");
    ByteCount available = 0;
    ByteCount total = 0;
    ByteCount free = 0;
    ASSERT_TRUE(kernel.GetDiskFreeSpaceExA("/:\\", available, total, free));
    struct statvfs sizes {};
    ASSERT_EQ(statvfs("/", &sizes), 0);
    EXPECT_EQ(total, ByteCount{sizes.f_blocks} * sizes.f_frsize);
    EXPECT_LE(available, free);
    EXPECT_LE(free, total);
    ByteCount same = 0;
    ASSERT_TRUE(kernel.GetDiskFreeSpaceExA("c:\\", available, same, free));
    EXPECT_EQ(same, total);
}

TEST(Kernel32Test, ADriveThatIsMissingLeavesTheCountsAlone) {
    Kernel32 kernel("/nowhere/at/all");
    ByteCount available = 1;
    ByteCount total = 2;
    ByteCount free = 3;
    for (const char* root : {"Z:\\", "/:\\", "\\:\\", "", "C", "C:/", "::\\"})
        EXPECT_FALSE(kernel.GetDiskFreeSpaceExA(root, available, total, free)) << root;
    EXPECT_EQ(available + total + free, 6U);
}

TEST(Kernel32Test, MemoryIsWhatProgramsCanHave) {
    const MEMORYSTATUS status = MemoryOf(
        "MemTotal:       67108864 kB\nMemFree:          100000 kB\nMemAvailable:   16777216 kB\n"
        "SwapTotal:       1048576 kB\nSwapFree:         1048576 kB\nHugePages_Total:       0\n");
    EXPECT_EQ(status.dwTotalPhys, std::int64_t{64} << 30);
    EXPECT_EQ(status.dwAvailPhys, std::int64_t{16} << 30);
    EXPECT_EQ(status.dwTotalPageFile, std::int64_t{65} << 30);
    EXPECT_EQ(status.dwMemoryLoad, 75U);
    EXPECT_EQ(MemoryOf("").dwTotalPhys, 0);
}

TEST(Kernel32Test, ThisMachineHasMemory) {
    Kernel32 kernel("/");
    MEMORYSTATUS status;
    kernel.GlobalMemoryStatus(status);
    EXPECT_GT(status.dwAvailPhys, 0);
    EXPECT_GT(status.dwTotalPhys, status.dwAvailPhys);
}

TEST(DefaultRoute, IsTheOneToEverywhere) {
    EXPECT_EQ(DefaultRouteOf("Iface\tDestination\tGateway\tFlags\tRefCnt\tUse\tMetric\tMask\n"
                             "eth0\t0000A8C0\t00000000\t0001\t0\t0\t0\t00FFFFFF\t0\t0\t0\n"
                             "ppp0\t00000000\t0100A8C0\t0003\t0\t0\t0\t00000000\t0\t0\t0\n",
                             ""),
              "ppp0");
    EXPECT_EQ(DefaultRouteOf("Iface\tDestination\n", ""), std::nullopt);
}

TEST(DefaultRoute, MayBeOneOfVersion6) {
    const std::string none(32, '0');
    EXPECT_EQ(
        DefaultRouteOf("", none + " 00 " + none + " 00 " + none +
                               " ffffffff 00000001 00000000 00200200 lo\n" + none + " 00 " + none +
                               " 00 fe800000000000000000000000000001 00000064 "
                               "00000001 00000000 00450003 wlan0\n"),
        "wlan0");
}

TEST(DefaultRoute, AModemIsKnownByItsDevice) {
    EXPECT_TRUE(IsModemDevice("ppp0"));
    EXPECT_TRUE(IsModemDevice("wwan0"));
    EXPECT_FALSE(IsModemDevice("wlan0"));
}

std::uint32_t Flags(bool connected, const char* type, const char* activating, bool proxy) {
    return FlagsOf({connected, QString(type), QString(activating)}, proxy);
}

TEST(ConnectionFlagsTest, FollowTheConnectionInUseAndTheOneBeingSetUp) {
    EXPECT_EQ(Flags(false, "", "", true), 0U);
    EXPECT_EQ(Flags(true, "", "", false), 0U);
    EXPECT_EQ(Flags(true, "802-11-wireless", "", false), INTERNET_CONNECTION_LAN);
    EXPECT_EQ(Flags(true, "802-3-ethernet", "", true), 6U);
    EXPECT_EQ(Flags(true, "gsm", "", false), INTERNET_CONNECTION_MODEM);
    EXPECT_EQ(Flags(true, "gsm", "cdma", false), 9U);
    EXPECT_EQ(Flags(false, "", "gsm", false), INTERNET_CONNECTION_MODEM_BUSY);
    EXPECT_EQ(Flags(false, "", "802-3-ethernet", false), 0U);
}

}  // namespace
}  // namespace corvane::linux_desktop
