// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/reg_api.h"

#include <gtest/gtest.h>

#include "simulated/simulated_desktop.h"

namespace corvane {
namespace {

using namespace std::string_literals;

const std::string kKey = "SOFTWARE\\Brindel\\ktcv\\";
const std::string kStored = "SOFTWARE\\Brindel\\ktcv";
const std::string kName = "checktraining";

class RegApiTest : public ::testing::Test {
protected:
    std::string Read() { return reg.ReadRegistryValue(HKEY_LOCAL_MACHINE, kKey, kName); }
    void Put(std::uint32_t type, std::string bytes) {
        desktop.registry.Put(kStored, kName, {type, std::move(bytes)});
    }

    simulated::SimulatedDesktop desktop;
    RegAPI reg{desktop.registry, desktop.runtime};
};

TEST_F(RegApiTest, ATextLosesItsTerminator) {
    Put(REG_SZ, "1\0"s);
    EXPECT_EQ(Read(), "1");
    Put(REG_SZ, "due at once\0"s);
    EXPECT_EQ(Read(), "due at once");
}

TEST_F(RegApiTest, WhatWasWrittenReadsBackOneCharacterShort) {
    reg.WriteRegistryString(kKey, kName, "0");
    EXPECT_EQ(desktop.registry.Get(kStored, kName)->bytes, "0");
    EXPECT_EQ(Read(), "");
    reg.WriteRegistryString(kKey, kName, "12");
    EXPECT_EQ(Read(), "1");
}

TEST_F(RegApiTest, AOneThatTheSystemWroteItselfDoesNotReadAsOne) {
    reg.WriteRegistryString(kKey, kName, "1");
    EXPECT_EQ(Read(), "");
}

TEST_F(RegApiTest, ANumberReadsAsItsDigits) {
    Put(REG_DWORD, "\x01\x00\x00\x00"s);
    EXPECT_EQ(Read(), "1");
    Put(REG_DWORD, "\xFF\xFF\xFF\xFF"s);
    EXPECT_EQ(Read(), "-1");
}

TEST_F(RegApiTest, ANumberThatCannotBeReadIsEmptyAndTheKeyIsClosed) {
    Put(REG_DWORD, "\x01\x00\x00\x00"s);
    desktop.record.Fail("RegQueryValueExA", ERROR_ACCESS_DENIED, 1);
    EXPECT_EQ(Read(), "");
    EXPECT_EQ(desktop.registry.OpenKeys(), 0U);
}

TEST_F(RegApiTest, AMissingKeyOrValueIsEmpty) {
    EXPECT_EQ(Read(), "");
    desktop.registry.Put(kStored, "other", {REG_SZ, "1\0"s});
    EXPECT_EQ(Read(), "");
    EXPECT_EQ(desktop.registry.OpenKeys(), 0U);
}

TEST_F(RegApiTest, AnotherTypeIsEmpty) {
    constexpr std::uint32_t kBinary = 3;
    Put(kBinary, "1\0"s);
    EXPECT_EQ(Read(), "");
}

TEST_F(RegApiTest, TheLastCharacterIsDroppedWhateverTheSecondQueryReturned) {
    Put(REG_SZ, "123"s);
    desktop.record.Fail("RegQueryValueExA", ERROR_ACCESS_DENIED, 1);
    EXPECT_EQ(Read(), "\0\0"s);
}

TEST_F(RegApiTest, ATextOfNoBytesShowsTheErrorAndRunsTheStatementAgain) {
    Put(REG_SZ, "");
    int boxes = 0;
    desktop.runtime.OnMsgBox = [&] {
        if (++boxes == 3) desktop.runtime.End();  // the person has had enough
    };
    desktop.Drive([&] { static_cast<void>(Read()); });
    EXPECT_EQ(boxes, 3);
    EXPECT_NE(
        desktop.record.Transcript().find("MsgBox \"Invalid procedure call or argument\" 0 \"\"\n"
                                         "MsgBox \"Invalid procedure call or argument\" 0 \"\"\n"),
        std::string::npos);
}

TEST_F(RegApiTest, WritingMakesTheMissingKey) {
    reg.WriteRegistryString(kKey, kName, "0");
    EXPECT_EQ(desktop.record.Transcript(),
              "RegCreateKeyExA SOFTWARE\\Brindel\\ktcv\\ 131078\n"
              "RegSetValueExA checktraining 0\n"
              "RegCloseKey\n");
    EXPECT_EQ(desktop.registry.OpenKeys(), 0U);
}

TEST_F(RegApiTest, AKeyThatMayNotBeWrittenIsLeftAloneInSilence) {
    Put(REG_SZ, "1\0"s);
    desktop.record.Fail("RegCreateKeyExA", ERROR_ACCESS_DENIED);
    reg.WriteRegistryString(kKey, kName, "0");
    EXPECT_EQ(Read(), "1");
}

TEST_F(RegApiTest, AValueThatCannotBeStoredClosesTheKeyAllTheSame) {
    desktop.record.Fail("RegSetValueExA", ERROR_ACCESS_DENIED);
    reg.WriteRegistryString(kKey, kName, "0");
    EXPECT_EQ(desktop.registry.OpenKeys(), 0U);
}

TEST_F(RegApiTest, TheSecurityRecordIsTheOneTheStoreExpects) {
    const SECURITY_ATTRIBUTES attributes;
    EXPECT_EQ(attributes.nLength, 12);
    EXPECT_EQ(attributes.lpSecurityDescriptor, 0);
    EXPECT_EQ(attributes.bInheritHandle, 1);
    EXPECT_EQ(sizeof attributes, 12U);
}

}  // namespace
}  // namespace corvane
