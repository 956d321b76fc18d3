// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// A day's work on the simulated desktop, and what is held in memory in the end.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/allocations.h"
#include "support/dictation_desk.h"

namespace corvane {
namespace {

using testing::Allocations;
using testing::AllocationsInUse;
using testing::DictationDesk;
using namespace std::chrono_literals;

class ADay : public ::testing::Test {
protected:
    ADay() {
        desk.Teach("notepad", "/usr/bin/xterm.exe");
        desk.Start();
    }

    /// What a person does and what happens in an hour. Every hour is like every other.
    void Hour() {
        for (unsigned quarter = 0; quarter < 4; ++quarter) {
            Commands();
            BeingHeard();
            Speaking();
            Windows();
            Machine(quarter);
            Dictating();
            desk.desktop.RunFor(15min - (desk.desktop.queue.Now() - quarter_begun_));
            quarter_begun_ += 15min;
        }
        Forget();
    }

    [[nodiscard]] std::int64_t LogBytes() const { return std::ssize(desk.Log()); }

    DictationDesk desk;

private:
    void Hear(const std::string& phrase) { EXPECT_TRUE(desk.Hear(phrase)) << phrase; }
    void Commands() {
        for (const std::string phrase :
             {"run notepad please", "what time is it", "what is the date today", "copy",
              "paste", "yes", "maximize", "minimize", "open the tray",
              "how much ram do i have", "hide corvane", "show corvane", "disable", "enable",
              "run notepad please"})
            Hear(phrase);
        desk.Hear("what time is it", SECLowConfidence);
        desk.desktop.RunFor(30s);
    }
    void BeingHeard() {
        for (int i = 0; i < 20; ++i) {
            desk.desktop.speech.Level(5 * i);
            desk.desktop.speech.Guess("what time", "the time", SECNormalConfidence);
        }
        desk.desktop.speech.Trouble(SINoise);
        desk.desktop.speech.Adapted();
        desk.desktop.RunFor(10s);
    }
    void Speaking() {
        auto& windows = desk.desktop.windows;
        desk.desktop.Drive([&] { windows.Type("Form2", "Text3", "A letter to be read aloud."); });
        Hear("read whiteboard");
        desk.desktop.RunFor(3s);
        Hear("clean the whiteboard");  // in the middle of it
        desk.desktop.RunFor(10s);
    }
    void Windows() {
        auto& windows = desk.desktop.windows;
        Hear("show me the calendar");
        Hear("October");
        desk.desktop.RunFor(5s);
        desk.desktop.Drive([&] { windows.CloseByFrame("Form3"); });
        Hear("add program");
        desk.AddProgram("editor", "/usr/bin/gedit.exe");
        desk.desktop.Drive([&] {
            windows.ClickRow("Form1", "ListView1", 1);
            windows.Click("Form1", "Command3");
        });
        desk.desktop.Drive([&] { windows.CloseByFrame("Form1"); });
        desk.desktop.RunFor(5s);
    }
    void Machine(unsigned quarter) {
        auto& machine = desk.desktop.machine;
        machine.PutDrive("/:\\", {.available = 10 + quarter, .total = 100, .free = 10 + quarter});
        machine.SetMemory(20 + quarter, 100);
        machine.SetConnection(quarter % 2 == 0,
                              quarter % 2 == 0 ? std::uint32_t{INTERNET_CONNECTION_LAN} : 0);
        desk.desktop.RunFor(30s);
    }
    void Dictating() {
        Hear("start dictation pad");
        EXPECT_TRUE(desk.PadVisible());
        desk.HearAll({"dear anna", "it rains", "scratch that", "new line", "the sun shines"});
        desk.desktop.RunFor(10s);
        desk.ClosePadByFrame();
    }
    /// What the simulated world remembers for its tests.
    void Forget() {
        desk.Transcript();
        (void)desk.desktop.machine.Asked();
        desk.desktop.runtime.ForgetStarted();
    }

    std::chrono::milliseconds quarter_begun_ = desk.desktop.queue.Now();
};

TEST_F(ADay, TakesNoMoreMemoryInItsLastHourThanInItsFirst) {
    Hour();
    const Allocations first = AllocationsInUse();
    const std::int64_t first_log = LogBytes();
    for (int hour = 1; hour < 24; ++hour) Hour();
    const Allocations last = AllocationsInUse();
    ASSERT_FALSE(desk.desktop.runtime.Ended());
    EXPECT_EQ(last.blocks, first.blocks) << "something is made anew every hour and kept";
    // The log grows as long as the program runs. The program and the screen hold it, each in a text
    // with room for as much again.
    EXPECT_LE(last.bytes - first.bytes, 4 * (LogBytes() - first_log));
    EXPECT_GT(LogBytes() - first_log, 200'000) << "there was something to do all day";
}

}  // namespace
}  // namespace corvane
