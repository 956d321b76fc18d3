// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/device_calls.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/cdrom.h>

#include <cerrno>

#include "private_bus.h"

namespace corvane::linux_desktop {
namespace {

TEST(MachineDevicesTest, ADeviceThatIsMissingOrNoDriveFails) {
    MachineDevices machine(QDBusConnection("none"));
    EXPECT_FALSE(machine.Open("/dev/sr4711", O_RDONLY | O_NONBLOCK).open());
    const FileDescriptor wrong = machine.Open("/dev/null", O_RDONLY | O_NONBLOCK);
    ASSERT_TRUE(wrong.open());
    EXPECT_EQ(machine.Control(wrong.number(), CDROMEJECT, 0), ENOTTY);
    EXPECT_FALSE(machine.Unmount("/dev/sr0"));
}

TEST(MachineDevicesTest, AMountedDiscIsUnmountedByWhoMountedIt) {
    PrivateBus bus("machine_mock.py");
    MachineDevices machine(bus.connection());
    EXPECT_TRUE(machine.Unmount("/dev/sr0"));
    EXPECT_EQ(bus.Tell({"calls"}), "Unmount {}\n");
    EXPECT_FALSE(machine.Unmount("/dev/sr1"));
    bus.Tell({"refuse"});
    EXPECT_FALSE(machine.Unmount("/dev/sr0"));
    bus.Die();
    EXPECT_FALSE(machine.Unmount("/dev/sr0"));
}

}  // namespace
}  // namespace corvane::linux_desktop
