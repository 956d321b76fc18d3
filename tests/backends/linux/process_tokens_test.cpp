// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/process_tokens.h"

#include <gtest/gtest.h>

#include "linux/system/kernel32.h"

namespace corvane::linux_desktop {
namespace {

class ProcessTokensTest : public ::testing::Test {
protected:
    bool Adjust(std::int32_t disable_all, std::uint32_t attributes, std::uint32_t room = 16) {
        return tokens.AdjustTokenPrivileges(token, disable_all, {1, shutdown, attributes}, room,
                                            previous, length);
    }
    void Open(std::uint32_t access = TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY) {
        ASSERT_TRUE(tokens.OpenProcessToken(Kernel32("/").GetCurrentProcess(), access, token));
        ASSERT_TRUE(tokens.LookupPrivilegeValueA("", "SeShutdownPrivilege", shutdown));
    }

    ProcessTokens tokens;
    HANDLE token = 0;
    LUID shutdown;
    TOKEN_PRIVILEGES previous;
    std::uint32_t length = 0;
};

TEST_F(ProcessTokensTest, TheShutdownIsNotPermittedUntilItIsAskedFor) {
    Open();
    EXPECT_FALSE(tokens.MayShutDown());
    ASSERT_TRUE(Adjust(0, SE_PRIVILEGE_ENABLED));
    EXPECT_TRUE(tokens.MayShutDown());
    EXPECT_EQ(previous.PrivilegeCount, 1U);
    EXPECT_EQ(previous.Luid, shutdown);
    EXPECT_EQ(previous.Attributes, 0U);
    EXPECT_EQ(length, 16U);
}

TEST_F(ProcessTokensTest, AskedForTwiceNothingChanges) {
    Open();
    Adjust(0, SE_PRIVILEGE_ENABLED);
    ASSERT_TRUE(Adjust(0, SE_PRIVILEGE_ENABLED));
    EXPECT_EQ(previous.PrivilegeCount, 0U);
    EXPECT_EQ(length, 4U);
    EXPECT_TRUE(tokens.MayShutDown());
}

TEST_F(ProcessTokensTest, ItIsSwitchedOffAloneOrWithAllOthers) {
    Open();
    Adjust(0, SE_PRIVILEGE_ENABLED);
    ASSERT_TRUE(Adjust(0, 0));
    EXPECT_FALSE(tokens.MayShutDown());
    Adjust(0, SE_PRIVILEGE_ENABLED);
    ASSERT_TRUE(Adjust(1, SE_PRIVILEGE_ENABLED));
    EXPECT_FALSE(tokens.MayShutDown());
    EXPECT_EQ(previous.Attributes, SE_PRIVILEGE_ENABLED);
}

TEST_F(ProcessTokensTest, AnotherPrivilegeIsPassedOver) {
    Open();
    shutdown = {.LowPart = 20, .HighPart = 0};
    EXPECT_TRUE(Adjust(0, SE_PRIVILEGE_ENABLED));
    EXPECT_FALSE(tokens.MayShutDown());
}

TEST_F(ProcessTokensTest, WhatIsWrongFailsAndChangesNothing) {
    HANDLE none = 77;
    EXPECT_FALSE(tokens.OpenProcessToken(1234, TOKEN_ADJUST_PRIVILEGES, none));
    EXPECT_EQ(none, 77U);
    LUID luid{.LowPart = 5, .HighPart = 6};
    EXPECT_FALSE(tokens.LookupPrivilegeValueA("", "SeNoSuchPrivilege", luid));
    EXPECT_FALSE(tokens.LookupPrivilegeValueA("other", "SeShutdownPrivilege", luid));
    EXPECT_EQ(luid, (LUID{.LowPart = 5, .HighPart = 6}));
    EXPECT_FALSE(Adjust(0, SE_PRIVILEGE_ENABLED));  // no token
    Open(TOKEN_QUERY);
    EXPECT_FALSE(Adjust(0, SE_PRIVILEGE_ENABLED));  // one to look at only
    Open();
    EXPECT_FALSE(Adjust(0, SE_PRIVILEGE_ENABLED, 8));  // no room for what was before
    EXPECT_FALSE(tokens.MayShutDown());
}

}  // namespace
}  // namespace corvane::linux_desktop
