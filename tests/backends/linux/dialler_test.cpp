// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/dialler.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>

#include "linux/system/connection.h"
#include "private_bus.h"

namespace corvane::linux_desktop {
namespace {

class DiallerTest : public ::testing::Test {
protected:
    void Profile(const char* number, const char* type, const char* autoconnect,
                 const char* last_used, const char* outcome = "answers") const {
        bus.Tell({"profile", number, type, autoconnect, last_used, outcome});
    }
    [[nodiscard]] std::string Dialled() const { return bus.Tell({"calls", "ActivateConnection"}); }
    [[nodiscard]] std::string HungUp() const { return bus.Tell({"calls", "DeactivateConnection"}); }
    static std::string Dialling(const char* number) {
        return "/org/freedesktop/NetworkManager/Settings/" + std::string(number) + " / /\n";
    }
    static std::string HangingUp(const char* number) {
        return "/org/freedesktop/NetworkManager/ActiveConnection/of" + std::string(number) + "\n";
    }

    PrivateBus bus{"network_mock.py"};
    Dialler dialler{bus.connection()};
};

TEST_F(DiallerTest, TheProfileThatConnectsByItselfIsTheDefault) {
    Profile("1", "gsm", "no", "900");
    Profile("2", "cdma", "yes", "100");
    Profile("3", "802-11-wireless", "yes", "999");
    EXPECT_TRUE(dialler.Dial());
    EXPECT_EQ(Dialled(), Dialling("2"));
}

TEST_F(DiallerTest, ConnectingByItselfNeedNotBeSaid) {
    Profile("1", "gsm", "no", "900");
    Profile("2", "pppoe", "unsaid", "100");
    EXPECT_TRUE(dialler.Dial());
    EXPECT_EQ(Dialled(), Dialling("2"));
}

TEST_F(DiallerTest, ElseTheOneThatWasUsedLastIsDialled) {
    Profile("1", "gsm", "no", "100");
    Profile("2", "bluetooth:dun", "no", "500");
    Profile("3", "bluetooth:panu", "no", "900");
    Profile("4", "gsm", "no", "300");
    EXPECT_TRUE(dialler.Dial());
    EXPECT_EQ(Dialled(), Dialling("2"));
}

TEST_F(DiallerTest, ABusyLineIsAFailure) {
    Profile("1", "gsm", "yes", "100", "busy");
    EXPECT_FALSE(dialler.Dial());
    EXPECT_EQ(Dialled(), Dialling("1"));
}

TEST_F(DiallerTest, WithoutAModemNothingIsDialled) {
    Profile("1", "802-3-ethernet", "yes", "100");
    Profile("2", "bluetooth:panu", "yes", "100");
    EXPECT_FALSE(dialler.Dial());
    EXPECT_EQ(Dialled(), "");
}

TEST_F(DiallerTest, AnotherConnectionThatStandsIsNoReasonNotToDial) {
    Profile("1", "802-3-ethernet", "yes", "100");
    Profile("2", "gsm", "yes", "100");
    bus.Tell({"stands", "1"});
    EXPECT_TRUE(dialler.Dial());
    EXPECT_EQ(Dialled(), Dialling("2"));
}

TEST_F(DiallerTest, PppDoesNotTakeACardOverThatCarriesALan) {
    Profile("1", "802-3-ethernet@eth0", "yes", "100");
    Profile("2", "pppoe@eth0", "yes", "900");
    Profile("3", "pppoe", "yes", "800");  // whichever card it would get
    bus.Tell({"stands", "1"});
    EXPECT_FALSE(dialler.Dial());
    EXPECT_EQ(Dialled(), "");
    Profile("4", "gsm", "no", "100");
    EXPECT_TRUE(dialler.Dial());
    EXPECT_EQ(Dialled(), Dialling("4"));
}

TEST_F(DiallerTest, PppWithADeviceOfItsOwnIsDialledBesideALan) {
    Profile("1", "802-3-ethernet@eth0", "yes", "100");
    Profile("2", "pppoe:eth0@ppp0", "yes", "900");
    bus.Tell({"stands", "1"});
    EXPECT_TRUE(dialler.Dial());
    EXPECT_EQ(Dialled(), Dialling("2"));
}

TEST_F(DiallerTest, PppIsDialledOverACardThatCarriesNothing) {
    Profile("1", "802-3-ethernet@eth0", "yes", "100");
    Profile("2", "pppoe@eth1", "yes", "900");
    bus.Tell({"stands", "1"});
    EXPECT_TRUE(dialler.Dial());
    EXPECT_EQ(Dialled(), Dialling("2"));
}

TEST_F(DiallerTest, SilenceForAWhileDoesNotMeanThatALineIsDown) {
    Profile("1", "gsm", "yes", "100", "stalls");
    EXPECT_TRUE(dialler.Dial());
}

TEST_F(DiallerTest, AModemThatIsConnectedIsNotDialledAgain) {
    Profile("1", "gsm", "yes", "100");
    bus.Tell({"stands", "1"});
    EXPECT_TRUE(dialler.Dial());
    EXPECT_EQ(Dialled(), "");
}

TEST_F(DiallerTest, HangingUpTakesDownModemsAndNothingElse) {
    Profile("1", "802-3-ethernet", "yes", "100");
    Profile("2", "gsm", "yes", "100");
    Profile("3", "bluetooth:dun", "yes", "100");
    Profile("4", "bluetooth:panu", "yes", "100");
    bus.Tell({"stands", "1", "2", "3", "4"});
    EXPECT_TRUE(dialler.HangUp());
    EXPECT_EQ(HungUp(), HangingUp("2") + HangingUp("3"));
}

TEST_F(DiallerTest, WithNothingToHangUpNothingIsAsked) {
    Profile("1", "802-3-ethernet", "yes", "100");
    bus.Tell({"stands", "1"});
    EXPECT_FALSE(dialler.HangUp());
    EXPECT_EQ(HungUp(), "");
}

TEST_F(DiallerTest, WhatTheMonitorAsksNextFindsWhatHasComeOfIt) {
    Profile("1", "gsm", "yes", "100");
    Connection connection(bus.connection());
    std::uint32_t flags = 0;
    EXPECT_TRUE(connection.InternetAutodial(INTERNET_AUTODIAL_FORCE_UNATTENDED, 0));
    QCoreApplication::processEvents();  // an answer that is older than the call counts for nothing
    EXPECT_TRUE(connection.InternetGetConnectedState(flags, 0));
    EXPECT_EQ(flags & INTERNET_CONNECTION_MODEM, INTERNET_CONNECTION_MODEM);
    EXPECT_TRUE(connection.InternetAutodialHangup(0));
    EXPECT_FALSE(connection.InternetGetConnectedState(flags, 0));
    EXPECT_EQ(flags, 0U);
    EXPECT_FALSE(connection.InternetAutodialHangup(0));
}

TEST_F(DiallerTest, ATelephoneReachedByBluetoothCountsAsAModem) {
    Profile("1", "bluetooth:dun", "yes", "100");
    Connection connection(bus.connection());
    EXPECT_TRUE(connection.InternetAutodial(INTERNET_AUTODIAL_FORCE_UNATTENDED, 0));
    std::uint32_t flags = 0;
    do {  // what sort of telephone it is comes with the next messages
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        connection.InternetGetConnectedState(flags, 0);
    } while ((flags & INTERNET_CONNECTION_MODEM) == 0);
    EXPECT_EQ(flags & INTERNET_CONNECTION_LAN, 0U);
}

TEST_F(DiallerTest, ABusThatDoesNotAnswerIsGivenUp) {
    Profile("1", "gsm", "yes", "100");
    bus.Freeze();
    EXPECT_FALSE(dialler.Dial());
    EXPECT_FALSE(dialler.HangUp());
}

TEST(DiallerWithoutNetworkManager, DoesNothing) {
    const PrivateBus bus("");
    EXPECT_FALSE(Dialler(bus.connection()).Dial());
    EXPECT_FALSE(Dialler(bus.connection()).HangUp());
    const QDBusConnection none("none");
    EXPECT_FALSE(Dialler(none).Dial());
    EXPECT_FALSE(Dialler(none).HangUp());
}

}  // namespace
}  // namespace corvane::linux_desktop
