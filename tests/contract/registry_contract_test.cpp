// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "contract/world.h"

namespace corvane {
namespace {

class RegistryContract : public ::testing::Test {
protected:
    std::int32_t Create(const std::string& name) {
        return world->registry().RegCreateKeyExA(
            HKEY_LOCAL_MACHINE, name, "", REG_OPTION_NON_VOLATILE, KEY_WRITE, {}, key, disposition);
    }
    std::int32_t Open(const std::string& name) {
        return world->registry().RegOpenKeyExA(HKEY_LOCAL_MACHINE, name, 0, KEY_QUERY_VALUE, key);
    }

    std::unique_ptr<testing::World> world = testing::MakeWorld();
    HKEY key = 0;
    std::uint32_t disposition = 0;
    std::uint32_t type = REG_NONE;
    std::uint32_t size = 0;
};

TEST_F(RegistryContract, AMissingKeyIsNotFound) {
    EXPECT_EQ(Open("Software\\Corvane"), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryContract, DataIsKeptAsItWasGiven) {
    ASSERT_EQ(Create("Software\\Corvane"), ERROR_SUCCESS);
    const std::string bytes("1\0\xFF\"%\r\n", 7);
    EXPECT_EQ(world->registry().RegSetValueExA(key, "Trained", REG_SZ, bytes.data(), 7),
              ERROR_SUCCESS);
    EXPECT_EQ(world->registry().RegCloseKey(key), ERROR_SUCCESS);

    ASSERT_EQ(Open("Software\\Corvane\\"), ERROR_SUCCESS);
    EXPECT_EQ(world->registry().RegQueryValueExA(key, "Trained", type, nullptr, size),
              ERROR_SUCCESS);
    EXPECT_EQ(type, REG_SZ);
    ASSERT_EQ(size, 7U);
    std::string read(size, ' ');
    EXPECT_EQ(world->registry().RegQueryValueExA(key, "Trained", type, read.data(), size),
              ERROR_SUCCESS);
    EXPECT_EQ(read, bytes);
}

TEST_F(RegistryContract, AMissingValueLeavesTheTypeAsItIs) {
    ASSERT_EQ(Create("Software\\Corvane"), ERROR_SUCCESS);
    EXPECT_EQ(world->registry().RegQueryValueExA(key, "Other", type, nullptr, size),
              ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(type, REG_NONE);
}

TEST_F(RegistryContract, TooLittleRoomIsToldWithTheSize) {
    ASSERT_EQ(Create("Software\\Corvane"), ERROR_SUCCESS);
    world->registry().RegSetValueExA(key, "Trained", REG_SZ, "long", 4);
    char room[2] = {};
    size = sizeof room;
    EXPECT_EQ(world->registry().RegQueryValueExA(key, "Trained", type, room, size),
              ERROR_MORE_DATA);
    EXPECT_EQ(size, 4U);
}

TEST_F(RegistryContract, AClosedKeyIsNoKeyAnyMore) {
    ASSERT_EQ(Create("Software\\Corvane"), ERROR_SUCCESS);
    EXPECT_EQ(world->registry().RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(world->registry().RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(world->registry().RegSetValueExA(key, "x", REG_SZ, "1", 1), ERROR_INVALID_HANDLE);
}

}  // namespace
}  // namespace corvane
