// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/status_monitor.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;
using testing::Desk;

/// The whole system, with the main window open and no tick yet.
class StatusMonitorTest : public ::testing::Test {
protected:
    StatusMonitorTest() { desk.Start(); }

    void Tick() { desk.desktop.RunFor(1s); }
    [[nodiscard]] const simulated::ShownWindow& Shown() {
        return desk.desktop.windows.Window("Form2");
    }
    [[nodiscard]] std::string Words() { return Shown().captions.at("Label7"); }
    [[nodiscard]] std::string PictureShown() { return Shown().pictures.at("Picture2"); }
    [[nodiscard]] std::string Gauge(const char* name) {
        return Shown().drawn.at(name)->surface->Words();
    }
    void Connect(bool connected, std::uint32_t flags) {
        machine.SetConnection(connected, flags);
        Tick();
    }

    Desk desk;
    simulated::SimulatedMachine& machine = desk.desktop.machine;
};

TEST_F(StatusMonitorTest, BeforeTheFirstTickThereAreNoWordsAndTheGaugesShowTheirStartingValues) {
    EXPECT_EQ(Words(), "");
    EXPECT_EQ(PictureShown(), "");
    EXPECT_EQ(Gauge("bkCProg1"), "50%\n50%\n");  // the shadow, and the text on it
}

TEST_F(StatusMonitorTest, ATickAsksInItsOrder) {
    machine.SetConnection(true, INTERNET_CONNECTION_LAN);
    Tick();
    EXPECT_EQ(machine.Asked(),
              "GetDiskFreeSpaceExA /:\\\nGlobalMemoryStatus\nInternetGetConnectedState 0 0\n");
    Tick();
    EXPECT_EQ(machine.Asked(),
              "GetDiskFreeSpaceExA /:\\\nGlobalMemoryStatus\nInternetGetConnectedState 0 0\n")
        << "flags begin at 0 in each tick";
}

TEST_F(StatusMonitorTest, AClockThatIsSetBackOrForwardDoesNotDelayIt) {
    for (const auto jump : {-24h, 24h * 400, 0h}) {
        desk.desktop.runtime.SetClock(std::chrono::sys_days(std::chrono::year(2024) / 2 / 28) +
                                      jump);
        Tick();
        EXPECT_EQ(machine.Asked(),
                  "GetDiskFreeSpaceExA /:\\\nGlobalMemoryStatus\nInternetGetConnectedState 0 0\n");
    }
}

TEST_F(StatusMonitorTest, TheGaugesShowFreeSpaceAndFreeMemory) {
    Tick();
    EXPECT_EQ(Gauge("bkCProg1"), "37%\n37%\n");
    EXPECT_EQ(Gauge("bkCProg2"), "50%\n50%\n");
    machine.PutDrive("/:\\", {.available = 0, .total = 200, .free = 25});  // 12.5
    Tick();
    EXPECT_EQ(Gauge("bkCProg1"), "12%\n12%\n");
}

TEST_F(StatusMonitorTest, TheDriveIsTheOneTheProgramStandsOn) {
    desk.desktop.runtime.SetExecutableFolder("d:\\corvane");
    machine.PutDrive("d:\\", {.available = 0, .total = 100, .free = 81});
    Tick();
    EXPECT_EQ(Gauge("bkCProg1"), "81%\n81%\n");
}

TEST_F(StatusMonitorTest, AShareOfHalfAPercentGoesToTheEvenNeighbour) {
    machine.SetMemory(495, 1000);
    Tick();
    EXPECT_EQ(Gauge("bkCProg2"), "50%\n50%\n");
    machine.SetMemory(505, 1000);
    Tick();
    EXPECT_EQ(Gauge("bkCProg2"), "50%\n50%\n");
}

TEST_F(StatusMonitorTest, MemoryBeyond31And32BitsIsToldRight) {
    machine.SetMemory(std::int64_t{3} << 30, std::int64_t{4} << 30);
    Tick();
    EXPECT_EQ(Gauge("bkCProg2"), "75%\n75%\n");
    machine.SetMemory(std::int64_t{16} << 30, std::int64_t{64} << 30);
    Tick();
    EXPECT_EQ(Gauge("bkCProg2"), "25%\n25%\n");
}

TEST_F(StatusMonitorTest, CountsAreReadAsSigned) {
    machine.SetMemory(-50, 100);
    Tick();
    EXPECT_EQ(Gauge("bkCProg2"), "0%\n0%\n");  // -50, held at Min
}

TEST_F(StatusMonitorTest, NoConnection) {
    Connect(false, 0);
    EXPECT_EQ(Words(), "Disconnected");
    EXPECT_EQ(PictureShown(), "connection_none");
}

TEST_F(StatusMonitorTest, AModem) {
    Connect(true, INTERNET_CONNECTION_MODEM);
    EXPECT_EQ(Words(), "Connection via modem");
    EXPECT_EQ(PictureShown(), "connection_modem");
}

TEST_F(StatusMonitorTest, ALanBehindAProxy) {
    Connect(true, INTERNET_CONNECTION_LAN | INTERNET_CONNECTION_PROXY);
    EXPECT_EQ(Words(), "Connection via LAN using a Proxy");
    EXPECT_EQ(PictureShown(), "connection_lan");
}

TEST_F(StatusMonitorTest, AProxyAloneSharesTheLansPicture) {
    Connect(true, INTERNET_CONNECTION_PROXY);
    EXPECT_EQ(Words(), "Connection using a Proxy");
    EXPECT_EQ(PictureShown(), "connection_lan");
}

TEST_F(StatusMonitorTest, AModemAndABusyLine) {
    Connect(true, INTERNET_CONNECTION_MODEM | INTERNET_CONNECTION_MODEM_BUSY);
    EXPECT_EQ(Words(), "Connection via modem via Modem -line busy");
    EXPECT_EQ(PictureShown(), "connection_busy");
}

TEST_F(StatusMonitorTest, AllFlagsPileUpInTheirOrder) {
    Connect(true, 15);
    EXPECT_EQ(Words(), "Connection via modem via LAN using a Proxy via Modem -line busy");
    EXPECT_EQ(PictureShown(), "connection_busy");
}

TEST_F(StatusMonitorTest, AConnectionOfNoKindKeepsThePictureOfTheLastTick) {
    Connect(true, INTERNET_CONNECTION_MODEM);
    Connect(true, 0);
    EXPECT_EQ(Words(), "Connection");
    EXPECT_EQ(PictureShown(), "connection_modem");
}

TEST_F(StatusMonitorTest, FlagsCountAlsoWithoutAConnection) {
    Connect(false, INTERNET_CONNECTION_LAN);
    EXPECT_EQ(Words(), "Disconnected via LAN");
    EXPECT_EQ(PictureShown(), "connection_lan");
}

TEST_F(StatusMonitorTest, HiddenInTheTrayItGoesOn) {
    desk.Hear("hide corvane");
    machine.PutDrive("/:\\", {.available = 0, .total = 100, .free = 12});
    Connect(true, INTERNET_CONNECTION_LAN);
    EXPECT_FALSE(desk.MainWindowVisible());
    EXPECT_EQ(Gauge("bkCProg1"), "12%\n12%\n");
    desk.Hear("show corvane");
    EXPECT_TRUE(desk.MainWindowVisible());
    EXPECT_EQ(Words(), "Connection via LAN");
    EXPECT_EQ(PictureShown(), "connection_lan");
    EXPECT_EQ(Gauge("bkCProg1"), "12%\n12%\n");
}

TEST_F(StatusMonitorTest, APathWithoutADriveEndsTheProcessWithTheErrorReport) {
    desk.desktop.runtime.SetExecutableFolder("\\\\server\\corvane");
    Tick();
    EXPECT_EQ(desk.Transcript(), "ShowErrorReport 6 Overflow\nEnd\n");
    EXPECT_TRUE(desk.desktop.runtime.Ended());
}

TEST_F(StatusMonitorTest, MemoryThatCannotBeCountedEndsTheProcessWithTheErrorReport) {
    machine.SetMemory(1, 0);
    Tick();
    EXPECT_EQ(desk.Transcript(), "ShowErrorReport 11 Division by zero\nEnd\n");
    EXPECT_EQ(Gauge("bkCProg1"), "37%\n37%\n") << "the disk was shown before";
}

TEST_F(StatusMonitorTest, EventsRunInsideATickBetweenDiskAndMemory) {
    std::string inside;
    desk.desktop.queue.PostAfter(1s, [&] { inside = machine.Asked(); });
    // Posted behind the timer's tick, so it is ready when the tick yields.
    Tick();
    EXPECT_EQ(inside, "GetDiskFreeSpaceExA /:\\\n");
}

}  // namespace
}  // namespace corvane
