// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/disc_players.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/cdrom.h>

#include <cerrno>
#include <future>
#include <map>

#include "linux/system/media_command.h"

namespace corvane::linux_desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Drives in the place of the machine's.
class PretendedDrives final : public DeviceCalls {
public:
    std::vector<std::string> OpticalDrives() override { return drives; }
    FileDescriptor Open(const std::string& device, int flags) override {
        calls.push_back("open " + device + ((flags & O_NONBLOCK) != 0 ? " without waiting" : ""));
        return FileDescriptor(drives.empty() || !opens ? -1 : ::open("/dev/null", O_RDONLY));
    }
    int Control(int /*device*/, unsigned long request, int /*argument*/) override {
        const std::map<unsigned long, std::string> names{
            {CDROM_LOCKDOOR, "unlock"}, {CDROMEJECT, "eject"}, {CDROMCLOSETRAY, "close tray"}};
        if (held) held->get_future().wait();
        calls.push_back(names.at(request));
        if (request == CDROMEJECT && mounted) return EBUSY;
        return request == CDROM_LOCKDOOR ? EINVAL : error;
    }
    bool Unmount(const std::string& device) override {
        calls.push_back("unmount " + device);
        mounted = mounted && !unmounts;
        return unmounts;
    }

    std::vector<std::string> drives{"/dev/sr0", "/dev/sr1"};
    bool opens = true;
    bool mounted = false;
    bool unmounts = true;
    int error = 0;
    std::promise<void>* held = nullptr;
    std::vector<std::string> calls;
};

class DiscPlayersTest : public ::testing::Test {
protected:
    std::uint32_t Send(const std::string& command) {
        std::string reply = "0";
        return players.mciSendStringA(command, reply, 0, 0);
    }

    std::shared_ptr<PretendedDrives> machine = std::make_shared<PretendedDrives>();
    DiscPlayers players{machine};
};

TEST_F(DiscPlayersTest, OpenEjectsTheFirstDriveWithOrWithoutADisc) {
    EXPECT_EQ(Send("Set CDAudio Door Open Wait"), kMediaDone);
    EXPECT_THAT(machine->calls, ElementsAre("open /dev/sr0 without waiting", "unlock", "eject"));
}

TEST_F(DiscPlayersTest, ClosedPullsTheTrayIn) {
    EXPECT_EQ(Send("Set CDAudio Door Closed Wait"), kMediaDone);
    EXPECT_THAT(machine->calls, ElementsAre("open /dev/sr0 without waiting", "close tray"));
}

TEST_F(DiscPlayersTest, WordsAreOfAnyCaseWithAnyBlanks) {
    EXPECT_EQ(Send("SET cdaudio  DOOR\topen wait "), kMediaDone);
    EXPECT_EQ(Send("set cdaudio door closed notify wait"), kMediaDone);
}

TEST_F(DiscPlayersTest, ACommandThatIsNotUnderstoodDoesNothing) {
    EXPECT_EQ(Send(""), kMediaUnknownCommand);
    EXPECT_EQ(Send("play CDAudio"), kMediaUnknownCommand);
    EXPECT_EQ(Send("set"), kMediaUnknownDevice);
    EXPECT_EQ(Send("set waveaudio door open"), kMediaUnknownDevice);
    EXPECT_EQ(Send("set CDAudio"), kMediaMissingParameter);
    EXPECT_EQ(Send("set CDAudio door"), kMediaMissingParameter);
    EXPECT_EQ(Send("set CDAudio time format"), kMediaUnknownKeyword);
    EXPECT_EQ(Send("set CDAudio door ajar wait"), kMediaUnknownKeyword);
    EXPECT_EQ(Send("set CDAudio door open slowly"), kMediaUnknownKeyword);
    EXPECT_THAT(machine->calls, IsEmpty());
}

TEST_F(DiscPlayersTest, WithoutADriveNothingHappens) {
    machine->drives.clear();
    EXPECT_EQ(Send("Set CDAudio Door Open Wait"), kMediaNoDevice);
    EXPECT_THAT(machine->calls, IsEmpty());
}

TEST_F(DiscPlayersTest, ADriveThatCanNotBeOpenedOrDoesNotMoveIsAFailure) {
    machine->error = EIO;
    EXPECT_EQ(Send("Set CDAudio Door Closed Wait"), kMediaHardwareFailed);
    machine->opens = false;
    EXPECT_EQ(Send("Set CDAudio Door Open Wait"), kMediaHardwareFailed);
}

TEST_F(DiscPlayersTest, AMountedDiscIsUnmountedFirst) {
    machine->mounted = true;
    EXPECT_EQ(Send("Set CDAudio Door Open Wait"), kMediaDone);
    EXPECT_THAT(machine->calls, ElementsAre("open /dev/sr0 without waiting", "unlock", "eject",
                                            "unmount /dev/sr0", "unlock", "eject"));
}

TEST_F(DiscPlayersTest, ADiscInUseKeepsItsTrayClosed) {
    machine->mounted = true;
    machine->unmounts = false;
    EXPECT_EQ(Send("Set CDAudio Door Open Wait"), kMediaHardwareFailed);
}

TEST_F(DiscPlayersTest, WithoutWaitTheCallReturnsBeforeTheDoorHasMoved) {
    std::promise<void> door;
    machine->held = &door;
    EXPECT_EQ(Send("Set CDAudio Door Closed"), kMediaDone);  // would hang here
    door.set_value();
    while (machine.use_count() > 2)  // ours and that of the players
        std::this_thread::yield();
    EXPECT_EQ(machine->calls.back(), "close tray");
}

}  // namespace
}  // namespace corvane::linux_desktop
