// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/system_commands.h"

#include <gtest/gtest.h>

#include "support/desk.h"
#include "support/expect_error.h"

namespace corvane {
namespace {

using testing::Desk;

const std::string kAccepted = "voice.EventInterests 512\n";
constexpr ByteCount kPetabyte = ByteCount{1} << 50;
constexpr std::int64_t kMegabyte = std::int64_t{1} << 20;

std::string SaidOfDrives(const std::string& sentence) {
    return kAccepted + "Drives\nSpeak \"" + sentence + "\" flags=11\n";
}

std::string Said(const std::string& sentence) {
    return kAccepted + "Speak \"" + sentence + "\" flags=11\n";
}

/// The operations by themselves; what they say is noted.
class SystemCommandsTest : public ::testing::Test {
protected:
    simulated::SimulatedDesktop desktop;
    simulated::SimulatedMachine& machine = desktop.machine;
    MessageLoop loop{desktop.queue, desktop.runtime};
    std::string said;
    SystemCommands system{
        desktop.machine,
        desktop.files,
        loop,
        {.SayFreeSpace = [this](const std::string& drive,
                                Long percent) { said += drive + " " + CStr(percent) + "\n"; },
         .SayMemory = [this](Long megabytes) { said += CStr(megabytes) + "\n"; }}};
    ResumeNext step;
};

TEST_F(SystemCommandsTest, TheFreeShareIsOfAllFreeBytesWhateverIsLeftToTheCaller) {
    machine.PutDrive("C:\\", {.available = 1, .total = 400, .free = 54});  // 13.5
    EXPECT_EQ(system.DiskFreePercent("C").units(), 140000);
    machine.PutDrive("C:\\", {.available = 0, .total = 8 * kPetabyte, .free = kPetabyte});
    EXPECT_EQ(CLng(system.DiskFreePercent("C")), 12);  // 12.5
}

TEST_F(SystemCommandsTest, AskingForADriveYieldsOnce) {
    bool ran = false;
    desktop.queue.Post([&] { ran = true; });
    (void)system.DiskFreePercent("/");
    EXPECT_TRUE(ran);
}

TEST_F(SystemCommandsTest, ADriveThatIsMissingOrNotReadyIsAnArithmeticErrorWithoutAYield) {
    machine.PutEmptyDrive("D:\\");
    bool ran = false;
    desktop.queue.Post([&] { ran = true; });
    EXPECT_ERROR(kOverflow, system.DiskFreePercent("D"));
    EXPECT_ERROR(kOverflow, system.DiskFreePercent("X"));
    EXPECT_FALSE(ran);
}

TEST_F(SystemCommandsTest, HalfAPercentGoesToTheEvenNeighbour) {
    const std::pair<ByteCount, const char*> kShares[] = {{50, "c 12\n"},  // 12.5
                                                         {54, "c 14\n"},  // 13.5
                                                         {53, "c 13\n"},
                                                         {400, "c 100\n"},
                                                         {0, "c 0\n"}};
    for (const auto& [free, words] : kShares) {
        machine.PutDrive("C:\\", {.available = 0, .total = 400, .free = free});
        system.SayFreeSpace("free space on c", step);
        EXPECT_EQ(std::exchange(said, {}), words);
    }
}

TEST_F(SystemCommandsTest, TheDriveIsFoundByItsCapitalAndSaidAsItWasHeard) {
    machine.PutDrive("D:\\", {.available = 0, .total = 100, .free = 81});
    system.SayFreeSpace("free space on d", step);
    system.SayFreeSpace("free space D", step);
    EXPECT_EQ(said, "d 81\nD 81\n");
    EXPECT_EQ(machine.Asked(), "GetDiskFreeSpaceExA D:\\\nGetDiskFreeSpaceExA D:\\\n");
}

TEST_F(SystemCommandsTest, EveryDriveThatMatchesIsSaid) {
    machine.ListAgain('C');
    system.SayFreeSpace("free space c", step);
    EXPECT_EQ(said, "c 37\nc 37\n");
}

TEST_F(SystemCommandsTest, EachMatchYieldsOnce) {
    machine.ListAgain('C');
    std::string order;
    desktop.queue.Post([&] { order += "yield of the share, "; });
    SystemCommands listening(desktop.machine, desktop.files, loop,
                             {.SayFreeSpace =
                                  [&](const std::string&, Long) {
                                      order += "said, ";
                                      desktop.queue.Post([&] { order += "yield of a match, "; });
                                  },
                              .SayMemory = {}});
    listening.SayFreeSpace("free space c", step);
    EXPECT_EQ(order, "yield of the share, said, yield of a match, said, ");
}

TEST_F(SystemCommandsTest, ADriveWithoutADiscHasNothingLeft) {
    machine.PutEmptyDrive("D:\\");
    system.SayFreeSpace("free space d", step);
    EXPECT_EQ(said, "d 0\n");
}

TEST_F(SystemCommandsTest, ALetterWithoutADriveIsSilent) {
    system.SayFreeSpace("free space on q", step);
    system.SayFreeSpace("", step);
    EXPECT_EQ(said, "");
}

TEST_F(SystemCommandsTest, AListOfDrivesThatCannotBeFetchedIsSilent) {
    desktop.record.Fail("Drives", kAutomationError);
    system.SayFreeSpace("free space on c", step);
    EXPECT_EQ(said, "");
}

TEST_F(SystemCommandsTest, MemoryIsSaidInWholeMegabytesHalfOfOneToTheEvenNumber) {
    const std::pair<std::int64_t, const char*> kSizes[] = {
        {16384 * kMegabyte, "16384\n"},
        {kMegabyte / 2 * 3, "2\n"},  // 1.5
        {kMegabyte / 2 * 5, "2\n"},  // 2.5
        {2048 * kMegabyte, "2048\n"},
        {4096 * kMegabyte, "4096\n"},
        {65536 * kMegabyte, "65536\n"},  // 64 GiB
        {std::int64_t{1} << 50, "1073741824\n"},
    };
    for (const auto& [bytes, words] : kSizes) {
        machine.SetMemory(0, bytes);
        system.SayMemory();
        EXPECT_EQ(std::exchange(said, {}), words);
    }
}

TEST(FreeSpace, IsAskedInAllItsFormsAndSpelled) {
    for (const char* phrase :
         {"free space c", "how much free space do i have remaining on c", "free space on c"}) {
        Desk desk;
        desk.Start();
        EXPECT_TRUE(desk.Hear(phrase));
        EXPECT_EQ(desk.Transcript(),
                  SaidOfDrives("Drive <spell>c</spell> has 37 percent of its space remaining."))
            << phrase;
    }
}

TEST(FreeSpace, OfALetterWithoutADriveSaysNothing) {
    Desk desk;
    desk.Start();
    EXPECT_TRUE(desk.Hear("free space on z"));
    EXPECT_EQ(desk.Transcript(), kAccepted + "Drives\n");
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST(FreeSpace, OfAnEmptyDriveIsZeroPercent) {
    Desk desk;
    desk.desktop.machine.PutEmptyDrive("D:\\");
    desk.Start();
    desk.Hear("free space d");
    EXPECT_EQ(desk.Transcript(),
              SaidOfDrives("Drive <spell>d</spell> has 0 percent of its space remaining."));
}

TEST(FreeSpace, AnotherCommandThatArrivesInItsYieldRunsToItsEndFirst) {
    Desk desk;
    desk.Start();
    desk.desktop.speech.Say("free space c");
    desk.desktop.speech.Say("copy");
    desk.desktop.RunFor({});
    EXPECT_EQ(desk.Transcript(),
              kAccepted + kAccepted +
                  "SendKeys ^c wait\n"
                  "Drives\n"
                  "Speak \"Drive <spell>c</spell> has 37 percent of its space remaining.\" "
                  "flags=11\n");
}

TEST(Memory, IsAskedInAllItsForms) {
    for (const char* phrase : {"ram", "how much ram is in my computer", "ram do i have"}) {
        Desk desk;
        desk.desktop.machine.SetMemory(0, 16384 * kMegabyte);
        desk.Start();
        EXPECT_TRUE(desk.Hear(phrase));
        EXPECT_EQ(desk.Transcript(), Said("You have 16384 megabytes of ram installed.")) << phrase;
    }
}

TEST(Memory, OfSixtyFourGigabytesIsToldRight) {
    Desk desk;
    desk.desktop.machine.SetMemory(std::int64_t{1} << 35, std::int64_t{1} << 36);
    desk.Start();
    desk.Hear("how much ram");
    EXPECT_EQ(desk.Transcript(), Said("You have 65536 megabytes of ram installed."));
}

TEST(Memory, ThatCannotBeAskedForIsNotSaid) {
    Desk desk;
    desk.Start();
    desk.desktop.record.Fail("GlobalMemoryStatus", kAutomationError);
    desk.Hear("how much ram");
    EXPECT_EQ(desk.Transcript(), kAccepted);
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

}  // namespace
}  // namespace corvane
