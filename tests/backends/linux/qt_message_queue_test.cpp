// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/qt_message_queue.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <string>
#include <thread>

namespace corvane::linux_desktop {
namespace {

using namespace std::chrono_literals;

class QtMessageQueueTest : public testing::Test {
protected:
    /// A message that writes its name down.
    IMessageQueue::Message Note(const std::string& name) {
        return [this, name] { ran += name; };
    }
    void RunUntilThereAre(std::size_t count) {
        const auto end = std::chrono::steady_clock::now() + 10s;
        while (ran.size() < count && std::chrono::steady_clock::now() < end) queue.DoEvents();
    }

    QtMessageQueue queue;
    std::string ran;
};

TEST_F(QtMessageQueueTest, MessagesRunInTheirOrderAndOnlyWhenEventsAreDone) {
    queue.Post(Note("a"));
    queue.Post(Note("b"));
    EXPECT_EQ(ran, "");
    queue.DoEvents();
    EXPECT_EQ(ran, "ab");
}

TEST_F(QtMessageQueueTest, MessageIsOffTheQueueWhenItYields) {
    queue.Post([this] {
        ran += "(";
        queue.DoEvents();
        ran += ")";
    });
    queue.Post(Note("a"));
    queue.DoEvents();
    EXPECT_EQ(ran, "(a)");
}

TEST_F(QtMessageQueueTest, WhatAMessagePostsRunsBehindAllThatWaits) {
    queue.Post([this] { queue.Post(Note("c")); });
    queue.Post(Note("a"));
    queue.Post(Note("b"));
    queue.DoEvents();
    EXPECT_EQ(ran, "abc");
}

TEST_F(QtMessageQueueTest, EarlierTimeRunsEarlier) {
    queue.PostAfter(30ms, Note("c"));
    queue.PostAfter(10ms, Note("b"));
    queue.PostAfter(0ms, Note("a"));
    RunUntilThereAre(3);
    EXPECT_EQ(ran, "abc");
}

TEST_F(QtMessageQueueTest, DelayIsNotCutShort) {
    const auto start = std::chrono::steady_clock::now();
    queue.PostAfter(50ms, Note("a"));
    RunUntilThereAre(1);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 50ms);
}

TEST_F(QtMessageQueueTest, OtherThreadsMayPost) {
    std::thread([this] {
        for (int i = 0; i < 100; ++i) queue.Post(Note("a"));
    }).join();
    RunUntilThereAre(100);
    EXPECT_EQ(ran, std::string(100, 'a'));
}

TEST_F(QtMessageQueueTest, EveryMessagePassesTheDispatcher) {
    queue.DispatchThrough([this](const IMessageQueue::Message& message) {
        ran += "<";
        message();
        ran += ">";
    });
    queue.Post(Note("a"));
    queue.PostAfter(1ms, Note("b"));
    RunUntilThereAre(6);
    EXPECT_EQ(ran, "<a><b>");
}

}  // namespace
}  // namespace corvane::linux_desktop
