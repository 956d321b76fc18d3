// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/timer.h"

#include <gtest/gtest.h>

#include "simulated/simulated_desktop.h"

namespace corvane::forms {
namespace {

using namespace std::chrono_literals;

class TimerTest : public ::testing::Test {
protected:
    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    int ticks = 0;
};

TEST_F(TimerTest, TicksOncePerInterval) {
    Timer timer(loop, 1000ms, true);
    timer.Tick = [&] { ++ticks; };
    desktop.RunFor(999ms);
    EXPECT_EQ(ticks, 0);
    desktop.RunFor(1ms);
    EXPECT_EQ(ticks, 1);
    desktop.RunFor(5000ms);
    EXPECT_EQ(ticks, 6);
}

TEST_F(TimerTest, IsSilentUntilItIsEnabled) {
    Timer timer(loop, 1000ms, false);
    timer.Tick = [&] { ++ticks; };
    desktop.RunFor(3000ms);
    EXPECT_EQ(ticks, 0);
    timer.SetEnabled(true);
    desktop.RunFor(1000ms);
    EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, DisablingInsideTheTickStopsIt) {
    Timer timer(loop, 1000ms, true);
    timer.Tick = [&] {
        ++ticks;
        timer.SetEnabled(false);
    };
    desktop.RunFor(5000ms);
    EXPECT_EQ(ticks, 1);
    EXPECT_FALSE(timer.Enabled());
}

TEST_F(TimerTest, ANewIntervalStartsAnew) {
    Timer timer(loop, 1000ms, true);
    timer.Tick = [&] { ++ticks; };
    desktop.RunFor(900ms);
    timer.SetInterval(500ms);
    desktop.RunFor(499ms);
    EXPECT_EQ(ticks, 0);
    desktop.RunFor(1ms);
    EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, ATickInsideAYieldOfItsOwnHandlerIsNotLost) {
    Timer timer(loop, 1000ms, true);
    timer.Tick = [&] {
        if (++ticks == 1) desktop.queue.RunFor(1000ms);
    };
    desktop.RunFor(1000ms);
    EXPECT_EQ(ticks, 2);
}

TEST_F(TimerTest, NothingTicksBehindItsEnd) {
    {
        Timer timer(loop, 1000ms, true);
        timer.Tick = [&] { ++ticks; };
    }
    desktop.RunFor(2000ms);
    EXPECT_EQ(ticks, 0);
}

}  // namespace
}  // namespace corvane::forms
