// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "contract/world.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

class MessageQueueContract : public ::testing::Test {
protected:
    std::unique_ptr<testing::World> world = testing::MakeWorld();
    IMessageQueue& queue = world->queue();
    std::string order;
};

TEST_F(MessageQueueContract, MessagesRunInTheOrderOfPosting) {
    for (const char* name : {"a", "b", "c"}) queue.Post([this, name] { order += name; });
    EXPECT_EQ(order, "");
    queue.DoEvents();
    EXPECT_EQ(order, "abc");
}

TEST_F(MessageQueueContract, ADelayedMessageWaitsForItsTime) {
    queue.PostAfter(30ms, [this] { order += "late"; });
    queue.PostAfter(0ms, [this] { order += "soon "; });
    queue.DoEvents();
    EXPECT_EQ(order.find("late"), std::string::npos);
    world->RunFor(200ms);
    EXPECT_EQ(order, "soon late");
}

TEST_F(MessageQueueContract, AMessageIsOffTheQueueBeforeItRuns) {
    queue.Post([this] {
        order += "(";
        queue.DoEvents();
        order += ")";
    });
    queue.Post([this] { order += "inner"; });
    queue.DoEvents();
    queue.DoEvents();
    EXPECT_EQ(order, "(inner)");
}

TEST_F(MessageQueueContract, AMessagePostedByAMessageRunsToo) {
    queue.Post([this] { queue.Post([this] { order += "second"; }); });
    world->RunFor(20ms);
    EXPECT_EQ(order, "second");
}

TEST_F(MessageQueueContract, EveryMessageGoesThroughTheOneWhoDispatches) {
    queue.DispatchThrough([this](const IMessageQueue::Message& message) {
        order += "<";
        message();
        order += ">";
    });
    queue.Post([this] { order += "now"; });
    queue.PostAfter(1ms, [this] { order += "later"; });
    world->RunFor(100ms);
    EXPECT_EQ(order, "<now><later>");
}

}  // namespace
}  // namespace corvane
