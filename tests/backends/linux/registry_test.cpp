// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/settings/registry.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string_view>

#include "temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

using namespace std::string_literals;

class RegistryTest : public testing::Test {
protected:
    std::int32_t Create(const std::string& name, HKEY& key) {
        return registry.RegCreateKeyExA(HKEY_LOCAL_MACHINE, name, "", REG_OPTION_NON_VOLATILE,
                                        KEY_WRITE, {}, key, disposition);
    }
    std::int32_t Open(const std::string& name, HKEY& key) {
        return registry.RegOpenKeyExA(HKEY_LOCAL_MACHINE, name, 0, KEY_QUERY_VALUE, key);
    }
    std::int32_t Write(const std::string& name, const std::string& data,
                       std::uint32_t kind = REG_SZ) {
        HKEY key = 0;
        const auto created = Create("Software\\Corvane", key);
        if (created != ERROR_SUCCESS) return created;
        return registry.RegSetValueExA(key, name, kind, data.data(),
                                       static_cast<std::uint32_t>(data.size()));
    }
    /// Reads into `bytes` and `type`.
    std::int32_t Read(const std::string& name) {
        HKEY key = 0;
        const auto opened = Open("Software\\Corvane", key);
        if (opened != ERROR_SUCCESS) return opened;
        std::uint32_t size = 0;
        const auto measured = registry.RegQueryValueExA(key, name, type, nullptr, size);
        if (measured != ERROR_SUCCESS) return measured;
        bytes.resize(size);
        return registry.RegQueryValueExA(key, name, type, bytes.data(), size);
    }

    TemporaryFolder folder;
    Registry registry{folder / "corvane/registry"};
    std::uint32_t disposition = 0;
    std::string bytes;
    std::uint32_t type = REG_NONE;
};

TEST_F(RegistryTest, BytesComeBackAsTheyWereStored) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    ASSERT_EQ(Write("All", all, 77), ERROR_SUCCESS);
    ASSERT_EQ(Write("None", ""), ERROR_SUCCESS);
    EXPECT_EQ(Read("All"), ERROR_SUCCESS);
    EXPECT_EQ(bytes, all);
    EXPECT_EQ(type, 77U);
    EXPECT_EQ(Read("None"), ERROR_SUCCESS);
    EXPECT_EQ(bytes, "");
}

TEST_F(RegistryTest, BytesMayBeginAndEndInBlanks) {
    for (const std::string& data : {" "s, " \" "s, "1 "s, ""s}) {
        ASSERT_EQ(Write(" blank ", data), ERROR_SUCCESS);
        EXPECT_EQ(Read(" blank "), ERROR_SUCCESS) << '"' << data << '"';
        EXPECT_EQ(bytes, data);
    }
}

TEST_F(RegistryTest, FileCanBeReadAndWrittenByAPerson) {
    ASSERT_EQ(Write("Trained", "1\0"s), ERROR_SUCCESS);
    const std::string text = folder.Bytes("corvane/registry");
    EXPECT_NE(text.find("\n[Software\\Corvane]\n\"Trained\" 1 \"1%00\"\n"), std::string::npos)
        << text;
    folder.Put("corvane/registry", "[Software\\Corvane]\r\n\"Trained\" 1 \"0%00\"");
    EXPECT_EQ(Read("Trained"), ERROR_SUCCESS);
    EXPECT_EQ(bytes, "0\0"s);
}

TEST_F(RegistryTest, AnotherStartFindsWhatWasStored) {
    ASSERT_EQ(Write("Trained", "1"), ERROR_SUCCESS);
    registry = Registry(folder / "corvane/registry");
    EXPECT_EQ(Read("Trained"), ERROR_SUCCESS);
    EXPECT_EQ(bytes, "1");
}

TEST_F(RegistryTest, NamesCompareWithoutCaseAndASeparatorAtTheEndMeansNothing) {
    ASSERT_EQ(Write("Trained", "1"), ERROR_SUCCESS);
    HKEY key = 0;
    EXPECT_EQ(Open("SOFTWARE\\corvane\\", key), ERROR_SUCCESS);
    EXPECT_EQ(Create("software\\CORVANE\\", key), ERROR_SUCCESS);
    EXPECT_EQ(disposition, 2U);
    EXPECT_EQ(Read("TRAINED"), ERROR_SUCCESS);
}

TEST_F(RegistryTest, CreatedKeyHasItsParents) {
    HKEY key = 0;
    EXPECT_EQ(Create("A\\B\\C", key), ERROR_SUCCESS);
    EXPECT_EQ(disposition, 1U);
    EXPECT_EQ(Open("A\\B", key), ERROR_SUCCESS);
    EXPECT_EQ(Open("B", key), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryTest, WhatIsMissingIsNotFoundAndLeavesTheTypeAsItIs) {
    HKEY key = 0;
    EXPECT_EQ(Open("Software\\Corvane", key), ERROR_FILE_NOT_FOUND);
    ASSERT_EQ(Write("Trained", "1"), ERROR_SUCCESS);
    EXPECT_EQ(Read("Other"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(type, REG_NONE);
}

TEST_F(RegistryTest, ThereIsOneRoot) {
    constexpr HKEY kCurrentUser = 0x80000001;
    ASSERT_EQ(Write("Trained", "1"), ERROR_SUCCESS);
    HKEY key = 0;
    EXPECT_EQ(registry.RegOpenKeyExA(kCurrentUser, "Software\\Corvane", 0, KEY_QUERY_VALUE, key),
              ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryTest, TooLittleRoomTellsTheSize) {
    ASSERT_EQ(Write("Trained", "long"), ERROR_SUCCESS);
    HKEY key = 0;
    ASSERT_EQ(Open("Software\\Corvane", key), ERROR_SUCCESS);
    char room[2] = {};
    std::uint32_t size = sizeof room;
    EXPECT_EQ(registry.RegQueryValueExA(key, "Trained", type, room, size), ERROR_MORE_DATA);
    EXPECT_EQ(size, 4U);
}

TEST_F(RegistryTest, ClosedKeyIsNoKeyAnyMore) {
    HKEY key = 0;
    ASSERT_EQ(Create("A", key), ERROR_SUCCESS);
    EXPECT_EQ(registry.RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(registry.RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(registry.RegSetValueExA(key, "x", REG_SZ, "1", 1), ERROR_INVALID_HANDLE);
}

TEST_F(RegistryTest, UnreadableFileDeniesAccess) {
    std::filesystem::create_directories(folder / "corvane/registry");  // a folder in its place
    HKEY key = 0;
    EXPECT_EQ(Open("Software\\Corvane", key), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Create("Software\\Corvane", key), ERROR_ACCESS_DENIED);
}

TEST_F(RegistryTest, UnwritableFolderDeniesAccess) {
    folder.Put("corvane");  // a file in its place
    HKEY key = 0;
    EXPECT_EQ(Create("Software\\Corvane", key), ERROR_ACCESS_DENIED);
}

class DamagedRegistry : public RegistryTest, public testing::WithParamInterface<const char*> {};

TEST_P(DamagedRegistry, IsNotReadAndNotOverwritten) {
    folder.Put("corvane/registry", GetParam());
    HKEY key = 0;
    EXPECT_EQ(Open("A", key), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Write("Trained", "1"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(folder.Bytes("corvane/registry"), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Registry, DamagedRegistry,
                         testing::Values("words", "\"a\" 1 \"no key yet\"", "[A", "[A]\n\"",
                                         "[A]\n\"a\"", "[A]\n\"a\" \"b\"", "[A]\n\"a\" x \"b\"",
                                         "[A]\n\"a\" 1 \"%0\"", "[A]\n\"a\" 1 \"%gg\"",
                                         "[A]\n\"a\"1 \"b\"", "[A]\n\"a\" 1 \"", "[%4]"));

TEST(Registry, FileLiesInThePersonsConfigurationFolder) {
    const TemporaryFolder folder;
    ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
    EXPECT_EQ(Registry::FileOfPerson(), folder / "corvane/registry");
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_TRUE(Registry::FileOfPerson().string().ends_with("/.config/corvane/registry"));
}

}  // namespace
}  // namespace corvane::linux_desktop
