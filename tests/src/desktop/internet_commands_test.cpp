// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/internet_commands.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;
using namespace std::chrono_literals;

const std::string kAccepted = "voice.EventInterests 512\n";
const std::string kDial = kAccepted + "InternetAutodial 2 0\n";
const std::string kHangUp = kAccepted + "InternetAutodialHangup 0\n";

class InternetCommandsTest : public ::testing::Test {
protected:
    InternetCommandsTest() { desk.Start(); }

    [[nodiscard]] std::string Words() {
        return desk.desktop.windows.Window("Form2").captions.at("Label7");
    }

    Desk desk;
};

TEST_F(InternetCommandsTest, AreSpokenInManyWaysAndAnswerNothing) {
    for (const char* phrase : {"connect", "dial the internet please", "go online",
                               "connect to the internet", "connect to the world wide web"}) {
        EXPECT_TRUE(desk.Hear(phrase)) << phrase;
        EXPECT_EQ(desk.Transcript(), kDial) << phrase;
    }
    for (const char* phrase : {"disconnect", "hang up please", "logoff", "hang up the internet"}) {
        EXPECT_TRUE(desk.Hear(phrase)) << phrase;
        EXPECT_EQ(desk.Transcript(), kHangUp) << phrase;
    }
}

TEST_F(InternetCommandsTest, AfterASpokenConnectTheWordsFollowWithinASecond) {
    desk.desktop.RunFor(1s);
    EXPECT_EQ(Words(), "Disconnected");
    desk.Hear("connect to the internet");
    desk.desktop.RunFor(1s);
    EXPECT_EQ(Words(), "Connection via modem");
    desk.Hear("hang up");
    desk.desktop.RunFor(1s);
    EXPECT_EQ(Words(), "Disconnected");
}

TEST_F(InternetCommandsTest, NothingRunsWhileTheDiallerWorks) {
    (void)desk.desktop.machine.Asked();
    const auto before = desk.desktop.queue.Now();
    desk.desktop.speech.Say("dial");
    desk.desktop.speech.Say("copy");
    desk.desktop.RunFor({});
    EXPECT_EQ(desk.desktop.queue.Now() - before, 20s);
    EXPECT_EQ(desk.desktop.machine.Asked(), "");
    // The second command was heard meanwhile and has waited for its turn.
    EXPECT_EQ(desk.Transcript(), kDial + kAccepted + "SendKeys ^c wait\n");
}

TEST_F(InternetCommandsTest, DialWithAConnectionStandingIsCalledAllTheSame) {
    desk.desktop.machine.SetConnection(true, INTERNET_CONNECTION_LAN);
    desk.Hear("dial the internet");
    desk.desktop.RunFor(1s);
    EXPECT_EQ(desk.Transcript(), kDial);
    EXPECT_EQ(Words(), "Connection via LAN");
}

TEST_F(InternetCommandsTest, HangUpWithNoConnectionChangesAndSaysNothing) {
    desk.Hear("hang up");
    desk.desktop.RunFor(1s);
    EXPECT_EQ(desk.Transcript(), kHangUp);
    EXPECT_EQ(Words(), "Disconnected");
}

TEST_F(InternetCommandsTest, HangUpLeavesALocalNetworkAlone) {
    desk.desktop.machine.SetConnection(true, INTERNET_CONNECTION_LAN);
    desk.Hear("disconnect");
    desk.desktop.RunFor(1s);
    EXPECT_EQ(Words(), "Connection via LAN");
}

TEST_F(InternetCommandsTest, ADialThatNobodyAnswersLeavesTheWordsAsTheyWere) {
    desk.desktop.machine.SetLine(false);
    desk.Hear("go online");
    desk.desktop.RunFor(1s);
    EXPECT_EQ(Words(), "Disconnected");
    EXPECT_EQ(desk.Transcript(), kDial);
}

TEST_F(InternetCommandsTest, BothWorkWithTheMainWindowInTheTray) {
    desk.Hear("hide corvane");
    desk.Transcript();
    desk.Hear("connect");
    desk.Hear("disconnect");
    EXPECT_EQ(desk.Transcript(), kDial + kHangUp);
}

}  // namespace
}  // namespace corvane
