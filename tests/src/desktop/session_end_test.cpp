// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/session_end.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;

const std::string kAccepted = "voice.EventInterests 512\n";

/// The steps that switch the privilege on: access 40, the empty name of this machine, one privilege
/// with the attribute 2, and 16 bytes for what was before.
const std::string kPrivilege =
    "GetCurrentProcess\n"
    "OpenProcessToken 4294967295 40\n"
    "LookupPrivilegeValueA \"\" \"SeShutdownPrivilege\"\n"
    "AdjustTokenPrivileges 61 0 {1 19:0 2} 16\n";

TEST(SessionEnd, ShutdownAndPowerdownShutDownAndPowerOff) {
    for (const char* phrase : {"shutdown", "powerdown"}) {
        Desk desk;
        desk.Start();
        EXPECT_TRUE(desk.Hear(phrase));
        EXPECT_EQ(desk.Transcript(), kAccepted + kPrivilege + "ExitWindowsEx 9 4294967295\n");
        EXPECT_EQ(desk.desktop.user32.SessionEnd(), EWX_SHUTDOWN | EWX_POWEROFF);
    }
}

TEST(SessionEnd, RebootAndRestartRebootAndTheReservedArgumentIsAllOnes) {
    for (const char* phrase : {"reboot", "restart"}) {
        Desk desk;
        desk.Start();
        EXPECT_TRUE(desk.Hear(phrase));
        EXPECT_EQ(desk.Transcript(), kAccepted + kPrivilege + "ExitWindowsEx 2 4294967295\n");
        EXPECT_EQ(desk.desktop.user32.SessionEnd(), EWX_REBOOT);
    }
}

TEST(SessionEnd, BelowHighConfidenceNothingHappens) {
    for (const char* phrase : {"shutdown", "reboot"}) {
        Desk desk;
        desk.Start();
        desk.Hear(phrase, SECNormalConfidence);
        EXPECT_EQ(desk.Transcript(), "DiscardResultInfo 255\n");
        EXPECT_FALSE(desk.desktop.user32.SessionEnd());
    }
}

TEST(SessionEnd, WithoutThePrivilegeTheSystemGoesOnInSilence) {
    Desk desk;
    desk.desktop.tokens.HoldShutdown(false);
    desk.Start();
    desk.Hear("shutdown");
    EXPECT_EQ(desk.Transcript(), kAccepted + kPrivilege + "ExitWindowsEx 9 4294967295\n");
    EXPECT_FALSE(desk.desktop.user32.SessionEnd());
    EXPECT_FALSE(desk.desktop.runtime.Ended());
    EXPECT_TRUE(desk.Hear("copy"));
}

TEST(SessionEnd, APrivilegeThatCannotBeSwitchedOnDoesNotKeepTheEndFromBeingAsked) {
    Desk desk;
    desk.Start();
    desk.desktop.record.Fail("LookupPrivilegeValueA", kAutomationError);
    desk.Hear("reboot");
    EXPECT_TRUE(desk.Transcript().ends_with("\nExitWindowsEx 2 4294967295\n"));
    EXPECT_FALSE(desk.desktop.user32.SessionEnd());
}

TEST(SessionEnd, ThePrivilegeIsWhatTheEndOfTheSessionNeeds) {
    simulated::SimulatedDesktop desktop;
    EXPECT_FALSE(desktop.user32.ExitWindowsEx(EWX_REBOOT, 0));
    SessionEnd session(desktop.machine, desktop.tokens, desktop.user32);
    session.Reboot({});
    EXPECT_TRUE(desktop.tokens.ShutdownSwitchedOn());
    EXPECT_EQ(desktop.user32.SessionEnd(), EWX_REBOOT);
}

}  // namespace
}  // namespace corvane
