// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "app/launcher/first_training.h"

#include <gtest/gtest.h>

#include "shell/reg_api.h"
#include "simulated/simulated_desktop.h"

namespace corvane {
namespace {

using namespace std::string_literals;

const std::string kKey = "SOFTWARE\\Brindel\\ktcv";
const std::string kName = "checktraining";

class FirstTrainingTest : public testing::Test {
protected:
    simulated::SimulatedDesktop desktop;
    RegAPI reg{desktop.registry, desktop.runtime};
};

TEST_F(FirstTrainingTest, IsAskedForSoThatTheSystemReadsIt) {
    AskForFirstTraining(desktop.registry);
    EXPECT_EQ(reg.ReadRegistryValue(HKEY_LOCAL_MACHINE, kKey, kName), "1");
    EXPECT_EQ(desktop.registry.Get(kKey, kName)->bytes, "1\0"s);
    EXPECT_EQ(desktop.registry.OpenKeys(), 0U);
}

TEST_F(FirstTrainingTest, IsNotAskedForAgainOnceItWasOffered) {
    reg.WriteRegistryString(kKey, kName, "0");
    AskForFirstTraining(desktop.registry);
    EXPECT_EQ(desktop.registry.Get(kKey, kName)->bytes, "0");
}

TEST_F(FirstTrainingTest, ThatCantBeWrittenDownIsNoHindrance) {
    desktop.record.Fail("RegCreateKeyExA", ERROR_ACCESS_DENIED);
    AskForFirstTraining(desktop.registry);
    EXPECT_FALSE(desktop.registry.Get(kKey, kName).has_value());
}

}  // namespace
}  // namespace corvane
