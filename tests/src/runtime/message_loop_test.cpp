// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/message_loop.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "runtime/failure.h"
#include "simulated/simulated_desktop.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

class MessageLoopTest : public ::testing::Test {
protected:
    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    std::shared_ptr<int> owner = std::make_shared<int>(0);
    std::string order;
};

TEST_F(MessageLoopTest, MessagesRunInTheOrderInWhichTheyFallDue) {
    loop.PostAfter(20ms, owner, [&] { order += "c"; });
    loop.PostAfter(0ms, owner, [&] { order += "a"; });
    loop.PostAfter(10ms, owner, [&] { order += "b"; });
    desktop.RunFor(20ms);
    EXPECT_EQ(order, "abc");
}

TEST_F(MessageLoopTest, TimeMovesOnlyWhenSomebodyWaits) {
    loop.PostAfter(1ms, owner, [&] { order += "late"; });
    desktop.RunFor(0ms);
    EXPECT_EQ(order, "");
    desktop.RunFor(1ms);
    EXPECT_EQ(order, "late");
}

TEST_F(MessageLoopTest, AMessageWhoseOwnerHasGoneIsDropped) {
    loop.PostAfter(10ms, owner, [&] { order += "never"; });
    owner.reset();
    desktop.RunFor(10ms);
    EXPECT_EQ(order, "");
}

TEST_F(MessageLoopTest, AnOwnerStaysAliveWhileItsMessageRuns) {
    std::weak_ptr<int> watch = owner;
    loop.PostAfter(0ms, owner, [&] {
        owner.reset();
        EXPECT_FALSE(watch.expired());
    });
    desktop.RunFor(0ms);
    EXPECT_TRUE(watch.expired());
}

TEST_F(MessageLoopTest, AYieldRunsWhatIsReadyInsideTheHandler) {
    loop.PostAfter(0ms, owner, [&] {
        order += "(";
        loop.DoEvents();
        order += ")";
    });
    loop.PostAfter(0ms, owner, [&] { order += "inner"; });
    desktop.RunFor(0ms);
    EXPECT_EQ(order, "(inner)");
}

TEST_F(MessageLoopTest, AnErrorThatLeavesAHandlerIsReportedAndEndsTheProcess) {
    loop.PostAfter(0ms, owner, [] { throw RuntimeError(kFileNotFound, "File not found"); });
    loop.PostAfter(1ms, owner, [&] { order += "never"; });
    desktop.RunFor(1ms);
    EXPECT_TRUE(desktop.runtime.Ended());
    EXPECT_EQ(desktop.record.Transcript(), "ShowErrorReport 53 File not found\nEnd\n");
    EXPECT_EQ(order, "");
}

TEST_F(MessageLoopTest, AnErrorInsideAYieldEndsTheProcessEvenUnderResumeNext) {
    loop.PostAfter(0ms, owner, [&] {
        ResumeNext step;
        step([&] { loop.DoEvents(); });
        order += "behind the yield";
    });
    loop.PostAfter(0ms, owner, [] { throw RuntimeError(kObjectNotSet, "not set"); });
    desktop.RunFor(0ms);
    EXPECT_TRUE(desktop.runtime.Ended());
    EXPECT_EQ(order, "");
}

TEST_F(MessageLoopTest, WhatABackendPostsMeetsTheSameBoundary) {
    desktop.Drive([&] {
        desktop.queue.Post([] { throw RuntimeError(kOverflow, "Overflow"); });
        loop.Run();
    });
    EXPECT_TRUE(desktop.runtime.Ended());
}

}  // namespace
}  // namespace corvane
