// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/session_end.h"

#include <gtest/gtest.h>

#include "platform/user32.h"
#include "private_bus.h"

namespace corvane::linux_desktop {
namespace {

void SwitchOn(ProcessTokens& tokens) {
    HANDLE token = 0;
    LUID shutdown;
    TOKEN_PRIVILEGES previous;
    std::uint32_t length = 0;
    tokens.OpenProcessToken(kThisProcess, TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, token);
    tokens.LookupPrivilegeValueA("", "SeShutdownPrivilege", shutdown);
    ASSERT_TRUE(tokens.AdjustTokenPrivileges(token, 0, {1, shutdown, SE_PRIVILEGE_ENABLED}, 16,
                                             previous, length));
}

class SessionEndTest : public ::testing::Test {
protected:
    [[nodiscard]] std::string Calls() const { return bus.Tell({"calls"}); }

    PrivateBus bus{"machine_mock.py"};
    ProcessTokens tokens;
    SessionEnd session_end{bus.connection(), tokens};
};

TEST_F(SessionEndTest, EachShutdownPowersOffAndARebootRebootsWithoutAsking) {
    SwitchOn(tokens);
    constexpr std::uint32_t kShutdowns[]{EWX_SHUTDOWN | EWX_POWEROFF, EWX_SHUTDOWN, EWX_POWEROFF};
    for (const std::uint32_t flags : kShutdowns)
        EXPECT_TRUE(session_end.ExitWindowsEx(flags)) << flags;
    EXPECT_TRUE(session_end.ExitWindowsEx(EWX_REBOOT));
    EXPECT_EQ(Calls(), "PowerOff False\nPowerOff False\nPowerOff False\nReboot False\n");
}

TEST_F(SessionEndTest, WithoutThePrivilegeNobodyIsAsked) {
    EXPECT_FALSE(session_end.ExitWindowsEx(EWX_REBOOT));
    EXPECT_FALSE(session_end.ExitWindowsEx(EWX_SHUTDOWN | EWX_POWEROFF));
    EXPECT_EQ(Calls(), "");
}

TEST_F(SessionEndTest, OtherFlagsAskForNothing) {
    SwitchOn(tokens);
    constexpr std::uint32_t kOthers[]{0, EWX_REBOOT | EWX_POWEROFF, 64, 0xFFFFFFFF};
    for (const std::uint32_t flags : kOthers)
        EXPECT_FALSE(session_end.ExitWindowsEx(flags)) << flags;
    EXPECT_EQ(Calls(), "");
}

TEST_F(SessionEndTest, RefusedItFails) {
    SwitchOn(tokens);
    bus.Tell({"refuse"});
    EXPECT_FALSE(session_end.ExitWindowsEx(EWX_REBOOT));
    EXPECT_FALSE(session_end.ExitWindowsEx(EWX_SHUTDOWN | EWX_POWEROFF));
}

TEST_F(SessionEndTest, ABusThatDoesNotAnswerIsGivenUp) {
    SwitchOn(tokens);
    bus.Freeze();
    EXPECT_FALSE(session_end.ExitWindowsEx(EWX_REBOOT));
}

TEST_F(SessionEndTest, ABusThatDiesIsGivenUp) {
    SwitchOn(tokens);
    bus.Die();
    EXPECT_FALSE(session_end.ExitWindowsEx(EWX_REBOOT));
}

TEST(SessionEndWithoutLogind, Fails) {
    const PrivateBus bus("");
    ProcessTokens tokens;
    SwitchOn(tokens);
    EXPECT_FALSE(SessionEnd(bus.connection(), tokens).ExitWindowsEx(EWX_REBOOT));
}

TEST(SessionEndWithoutABus, Fails) {
    ProcessTokens tokens;
    SwitchOn(tokens);
    EXPECT_FALSE(SessionEnd(QDBusConnection("none"), tokens).ExitWindowsEx(EWX_REBOOT));
}

}  // namespace
}  // namespace corvane::linux_desktop
