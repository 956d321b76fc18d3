// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// The microphone as it is heard while servers and sources come and go: on a sound server of the
// test's own.
#include "engine/audio/pulse_capture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <numbers>
#include <thread>
#include <vector>

#include "support/room.h"
#include "support/sound_server.h"

namespace corvane::engine {
namespace {

using std::chrono::steady_clock;
using testing::Sound;
using testing::SoundServer;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

constexpr const char* kCommands = CORVANE_PROJECT_FOLDER "/data/keywords.xml";
constexpr int kLow = 441;
constexpr int kHigh = 882;
constexpr auto kBound = 15s;

Sound Listen(PulseCapture& capture, std::chrono::milliseconds duration) {
    Sound sound(static_cast<std::size_t>(duration.count()) * 16);
    for (std::span<std::int16_t> rest = sound; !rest.empty();) {
        const std::size_t count = capture.Read(rest);
        if (count == 0) break;
        rest = rest.subspan(count);
    }
    return sound;
}

bool IsSilent(const Sound& sound) {
    return std::ranges::all_of(sound, [](std::int16_t sample) { return sample == 0; });
}

/// How far, of its loudness, a sound is from a pure tone without a gap. Of a tone each sample
/// follows from the two before it.
double StrayFrom(int frequency, const Sound& sound) {
    const double turn = 2.0 * std::cos(2.0 * std::numbers::pi * frequency / kSampleRate);
    double loudest = 0.0, stray = 0.0;
    for (std::size_t i = 2; i < sound.size(); ++i) {
        loudest = std::max(loudest, std::abs(double{1} * sound[i]));
        stray = std::max(stray, std::abs(sound[i] - turn * sound[i - 1] + sound[i - 2]));
    }
    return loudest < 100.0 ? 1.0 : stray / loudest;
}

constexpr double kPure = 0.01;

template <typename Condition>
bool WaitFor(PulseCapture& capture, Condition condition) {
    const auto deadline = steady_clock::now() + kBound;
    while (steady_clock::now() < deadline)
        if (condition(Listen(capture, 100ms))) return true;
    return false;
}

bool WaitForTone(PulseCapture& capture, int frequency) {
    return WaitFor(capture,
                   [&](const Sound& sound) { return StrayFrom(frequency, sound) < kPure; });
}

class CaptureFromServer : public ::testing::Test {
protected:
    CaptureFromServer() { unsetenv("PULSE_SOURCE"); }

    void Start() { ASSERT_TRUE(server.Start()); }

    SoundServer server;
    PulseCapture capture{"test"};
};

TEST_F(CaptureFromServer, SourceOfAnotherRateIsHeardAsItIs) {
    Start();
    ASSERT_TRUE(SoundServer::Plug("low", kLow));
    EXPECT_TRUE(WaitForTone(capture, kLow));
}

TEST_F(CaptureFromServer, HearerWhoIsHeldUpMissesNothing) {
    Start();
    ASSERT_TRUE(SoundServer::Plug("low", kLow));
    ASSERT_TRUE(WaitForTone(capture, kLow));
    std::this_thread::sleep_for(1500ms);
    const auto begun = steady_clock::now();
    EXPECT_LT(StrayFrom(kLow, Listen(capture, 1400ms)), kPure);
    EXPECT_LT(steady_clock::now() - begun, 1000ms) << "it was there already";
    EXPECT_LT(StrayFrom(kLow, Listen(capture, 500ms)), kPure);
}

TEST_F(CaptureFromServer, NewDefaultSourceIsFollowed) {
    Start();
    ASSERT_TRUE(SoundServer::Plug("low", kLow));
    ASSERT_TRUE(SoundServer::Plug("high", kHigh));
    for (const auto& [name, frequency] :
         {std::pair("low", kLow), std::pair("high", kHigh), std::pair("low", kLow)}) {
        ASSERT_TRUE(SoundServer::Tell(std::string("set-default-source ") + name));
        EXPECT_TRUE(WaitForTone(capture, frequency)) << name;
    }
}

TEST_F(CaptureFromServer, UnpluggedMicrophoneIsReplacedByTheOther) {
    Start();
    ASSERT_TRUE(SoundServer::Plug("low", kLow));
    ASSERT_TRUE(SoundServer::Plug("high", kHigh));
    ASSERT_TRUE(SoundServer::Tell("set-default-source low"));
    ASSERT_TRUE(WaitForTone(capture, kLow));
    ASSERT_TRUE(SoundServer::Unplug("low"));
    EXPECT_TRUE(WaitForTone(capture, kHigh));
}

TEST_F(CaptureFromServer, OnlyMicrophoneUnpluggedIsSilentAndHeardAgainWhenItIsBack) {
    Start();
    ASSERT_TRUE(SoundServer::Plug("low", kLow));
    ASSERT_TRUE(WaitForTone(capture, kLow));
    ASSERT_TRUE(SoundServer::Unplug("low"));
    EXPECT_TRUE(WaitFor(capture, IsSilent));
    ASSERT_TRUE(SoundServer::Plug("high", kHigh));
    EXPECT_TRUE(WaitForTone(capture, kHigh));
}

TEST_F(CaptureFromServer, ServerMayComeLateAndGoAndComeBack) {
    EXPECT_TRUE(IsSilent(Listen(capture, 1s)));
    for (int coming = 0; coming < 2; ++coming) {
        Start();
        ASSERT_TRUE(SoundServer::Plug("low", kLow));
        EXPECT_TRUE(WaitForTone(capture, kLow)) << "coming " << coming;
        server.Kill();
        EXPECT_TRUE(WaitFor(capture, IsSilent));
    }
}

TEST_F(CaptureFromServer, FrozenServerIsSilentUntilItThaws) {
    Start();
    ASSERT_TRUE(SoundServer::Plug("low", kLow));
    ASSERT_TRUE(WaitForTone(capture, kLow));
    server.Freeze();
    EXPECT_TRUE(WaitFor(capture, IsSilent));
    server.Thaw();
    EXPECT_TRUE(WaitForTone(capture, kLow));
}

TEST_F(CaptureFromServer, MutedAndSuspendedSourcesAreSilentAsLongAsTheyAre) {
    Start();
    ASSERT_TRUE(SoundServer::Plug("low", kLow));
    ASSERT_TRUE(WaitForTone(capture, kLow));
    for (const std::string state : {"mute", "suspend"}) {
        const std::string operation =
            state == "mute" ? "set-source-mute low " : "suspend-source low ";
        ASSERT_TRUE(SoundServer::Tell(operation + "1"));
        EXPECT_TRUE(WaitFor(capture, IsSilent)) << state;
        ASSERT_TRUE(SoundServer::Tell(operation + "0"));
        EXPECT_TRUE(WaitForTone(capture, kLow)) << state;
    }
}

TEST_F(CaptureFromServer, SpeakerIsNotTakenForTheMissingMicrophone) {
    Start();
    ASSERT_TRUE(SoundServer::Tell("load-module module-sine sink=speaker frequency=441"));
    Listen(capture, 500ms);  // what comes before the server has told what it is
    EXPECT_TRUE(IsSilent(Listen(capture, 2s)));
    ASSERT_TRUE(SoundServer::Plug("high", kHigh));
    EXPECT_TRUE(WaitForTone(capture, kHigh));
}

TEST_F(CaptureFromServer, SpeakerChosenForThisProgramIsHeard) {
    Start();
    ASSERT_TRUE(SoundServer::Tell("load-module module-sine sink=speaker frequency=441"));
    ASSERT_TRUE(SoundServer::Plug("high", kHigh));
    ASSERT_TRUE(SoundServer::Tell("set-default-source high"));
    setenv("PULSE_SOURCE", "speaker.monitor", 1);
    EXPECT_TRUE(WaitForTone(capture, kLow));
    unsetenv("PULSE_SOURCE");
}

TEST_F(CaptureFromServer, MissingSignalIsToldOnceAnOutage) {
    Start();
    ASSERT_TRUE(SoundServer::Plug("low", kLow));
    testing::Messages messages;
    SpeechEngine engine(
        {}, [&](std::function<void()> message) { messages.Post(std::move(message)); },
        std::make_unique<PulseCapture>("test"));
    const testing::Listening listening(engine, kCommands, SREInterference);
    const auto told = [&](SpeechInterference what) {
        const auto before = std::ranges::count(listening.interferences, what);
        const auto deadline = steady_clock::now() + kBound;
        while (std::ranges::count(listening.interferences, what) == before &&
               steady_clock::now() < deadline) {
            std::this_thread::sleep_for(20ms);
            messages.Run();
        }
        return std::ranges::count(listening.interferences, what) - before;
    };
    EXPECT_EQ(told(SINoise), 1) << "the whistling is heard";
    for (int outage = 0; outage < 2; ++outage) {
        server.Kill();
        EXPECT_EQ(told(SINoSignal), 1);
        std::this_thread::sleep_for(5s);
        messages.Run();
        EXPECT_EQ(listening.interferences.back(), SINoSignal) << "and nothing since";
        EXPECT_EQ(std::ranges::count(listening.interferences, SINoSignal), outage + 1);
        Start();
        ASSERT_TRUE(SoundServer::Plug("low", kLow));
        EXPECT_EQ(told(SINoise), 1) << "it is heard again";
    }
}

}  // namespace
}  // namespace corvane::engine
