// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// The voice as it is heard: on a virtual desktop, whose speaker is recorded. Its sink delivers
// sound in blocks of 20 ms, which is how far times can be trusted.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <mutex>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "engine/audio/pulse_capture.h"
#include "engine/voice/voice.h"

namespace corvane::engine {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using std::chrono_literals::operator""ms;

constexpr std::int32_t kFlags = SVSFlagsAsync + SVSFPurgeBeforeSpeak + SVSFIsXML;
constexpr auto kBlock = 20ms;
constexpr auto kBound = 10000ms;
constexpr double kLoud = 50;  // root mean square; the speaker's silence is digital

/// Hears the speaker and notes when each block came and how loud it was.
class Ear {
public:
    Ear() : thread_([this] { Run(); }) {
        (void)WaitFor([](const auto& blocks) { return !blocks.empty(); });
    }
    ~Ear() {
        speaker_.Interrupt();
        thread_.join();
    }
    Ear(const Ear&) = delete;
    Ear& operator=(const Ear&) = delete;

    /// Waits until sound has been heard for this long; false if that takes too long.
    [[nodiscard]] bool WaitForSound(milliseconds duration) {
        return WaitFor([duration](const auto& blocks) {
            return std::ranges::count_if(blocks, IsLoud) * kBlock >= duration;
        });
    }

    /// Waits until all until now has been recorded.
    void CatchUp() {
        const auto now = steady_clock::now();
        (void)WaitFor(
            [now](const auto& blocks) { return !blocks.empty() && blocks.back().at > now; });
    }

    [[nodiscard]] std::vector<steady_clock::time_point> LoudTimes() {
        const std::lock_guard lock(mutex_);
        std::vector<steady_clock::time_point> times;
        for (const Block& block : blocks_)
            if (IsLoud(block)) times.push_back(block.at);
        return times;
    }

private:
    struct Block {
        steady_clock::time_point at;
        double loudness;
    };

    static bool IsLoud(const Block& block) { return block.loudness > kLoud; }

    template <typename Condition>
    bool WaitFor(Condition condition) {
        const auto deadline = steady_clock::now() + kBound;
        while (steady_clock::now() < deadline) {
            {
                const std::lock_guard lock(mutex_);
                if (condition(blocks_)) return true;
            }
            std::this_thread::sleep_for(1ms);
        }
        return false;
    }

    void Run() {
        std::array<std::int16_t, kSampleRate / 50> samples{};
        std::size_t filled = 0;
        while (const std::size_t count = speaker_.Read(std::span(samples).subspan(filled))) {
            filled += count;
            if (filled < samples.size()) continue;
            filled = 0;
            double energy = 0;
            for (const double sample : samples) energy += sample * sample;
            const std::lock_guard lock(mutex_);
            blocks_.push_back(
                {steady_clock::now(), std::sqrt(energy / static_cast<double>(samples.size()))});
        }
    }

    PulseCapture speaker_{"ear"};
    std::mutex mutex_;
    std::vector<Block> blocks_;
    std::thread thread_;
};

class HeardVoice : public ::testing::Test {
protected:
    static void SetUpTestSuite() { setenv("PULSE_SOURCE", "corvane_speaker.monitor", 1); }

    static milliseconds Between(steady_clock::time_point from, steady_clock::time_point to) {
        return std::chrono::duration_cast<milliseconds>(to - from);
    }

    /// What a command writes.
    static std::string Answer(const std::string& command) {
        std::string answer;
        if (FILE* pipe = popen(command.c_str(), "r")) {
            for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe))
                answer += static_cast<char>(c);
            pclose(pipe);
        }
        return answer;
    }

    Ear ear;
    Voice voice{"test", [](const std::function<void()>&) {}};
};

TEST_F(HeardVoice, IsHeardSoonAndIsDoneWhenItFallsSilent) {
    const auto begun = steady_clock::now();
    voice.Speak("<emph>goodbye</emph> ", kFlags);
    ASSERT_TRUE(voice.WaitUntilDone(1000));
    const auto done = steady_clock::now();
    ear.CatchUp();
    const auto loud = ear.LoudTimes();
    ASSERT_FALSE(loud.empty());
    RecordProperty("first_sound_ms", static_cast<int>(Between(begun, loud.front()).count()));
    RecordProperty("done_after_last_sound_ms",
                   static_cast<int>(Between(loud.back(), done).count()));
    EXPECT_LT(Between(begun, loud.front()), 150ms);
    EXPECT_GT(Between(loud.back(), done), -60ms) << "it was done before it was heard";
    EXPECT_LT(Between(loud.back(), done), 250ms);
}

TEST_F(HeardVoice, PurgeFallsSilent) {
    voice.Speak("This is a long sentence which nobody is going to hear to its very end.", kFlags);
    ASSERT_TRUE(ear.WaitForSound(300ms));
    const auto purged = steady_clock::now();
    voice.Speak("", kFlags);
    EXPECT_TRUE(voice.WaitUntilDone(500));
    for (int i = 0; i < 20; ++i) ear.CatchUp();
    const auto loud = ear.LoudTimes();
    RecordProperty("last_sound_ms", static_cast<int>(Between(purged, loud.back()).count()));
    EXPECT_LT(Between(purged, loud.back()), 50ms + 2 * kBlock);
}

TEST_F(HeardVoice, EachWordIsToldWhenItIsHeard) {
    std::mutex mutex;
    std::vector<std::pair<steady_clock::time_point, std::function<void()>>> told;
    Voice teller("test", [&](std::function<void()> message) {
        const std::lock_guard lock(mutex);
        told.emplace_back(steady_clock::now(), std::move(message));
    });
    teller.SetEventInterests(SVEWordBoundary);
    std::string text;
    for (const char* word : {"all", "open", "eyes", "are", "easy", "on", "everyone", "always"})
        text += std::string(word) + " <silence msec=\"250\"/>";
    teller.Speak(text, kFlags);
    ASSERT_TRUE(teller.WaitUntilDone(20'000));
    ear.CatchUp();

    steady_clock::time_point now;
    std::vector<steady_clock::time_point> words;
    teller.Advise({.Word = [&](std::int32_t, const Variant&, std::int32_t,
                               std::int32_t) { words.push_back(now); },
                   .EndStream = {},
                   .AudioLevel = {},
                   .Bookmark = {}});
    for (const auto& [at, message] : told) {
        now = at;
        message();
    }
    std::vector<steady_clock::time_point> onsets;
    steady_clock::time_point last;
    for (const auto at : ear.LoudTimes()) {
        if (at - last > 150ms) onsets.push_back(at);
        last = at;
    }
    ASSERT_EQ(words.size(), 8U);
    ASSERT_EQ(onsets.size(), words.size());
    milliseconds worst{0};
    for (std::size_t i = 0; i < words.size(); ++i)
        worst = std::max(worst, std::chrono::abs(Between(onsets[i], words[i])));
    RecordProperty("worst_ms", static_cast<int>(worst.count()));
    EXPECT_LT(worst, 80ms);
}

TEST_F(HeardVoice, AHundredPurgesLeaveOneVoice) {
    for (int i = 0; i < 100; ++i) {
        voice.Speak("Nobody hears this sentence to its end, number " + std::to_string(i), kFlags);
        std::this_thread::sleep_for(milliseconds(i % 7));
    }
    voice.Speak("", kFlags);
    EXPECT_TRUE(voice.WaitUntilDone(1000));
    for (int i = 0; i < 10; ++i) ear.CatchUp();
    const std::size_t before = ear.LoudTimes().size();
    const auto begun = steady_clock::now();
    voice.Speak("goodbye", kFlags);
    EXPECT_TRUE(voice.WaitUntilDone(2000));
    EXPECT_LT(steady_clock::now() - begun, 1000ms) << "something else was said too";
    for (int i = 0; i < 10; ++i) ear.CatchUp();
    EXPECT_GT(ear.LoudTimes().size(), before);
    EXPECT_EQ(Answer("pactl list sink-inputs | grep -c 'application.name = \"test\"'"), "1\n");
}

TEST_F(HeardVoice, SaysTheNewTextAfterAPurge) {
    voice.Speak("<silence msec=\"60000\"/>", kFlags);
    EXPECT_FALSE(voice.WaitUntilDone(100));
    voice.Speak("hello", kFlags);
    EXPECT_TRUE(ear.WaitForSound(100ms));
    EXPECT_TRUE(voice.WaitUntilDone(2000));
}

TEST_F(HeardVoice, TakesTheTimeOfItsSound) {
    for (const int length : {10, 100, 400}) {
        const auto begun = steady_clock::now();
        voice.Speak("<silence msec=\"" + std::to_string(length) + "\"/>", kFlags);
        ASSERT_TRUE(voice.WaitUntilDone(2000));
        EXPECT_GE(Between(begun, steady_clock::now()), milliseconds(length - 5));
        EXPECT_LT(Between(begun, steady_clock::now()), milliseconds(length + 150));
    }
}

TEST_F(HeardVoice, TextsThatWereQueuedAreAllHeardOut) {
    const auto begun = steady_clock::now();
    for (int i = 0; i < 3; ++i) voice.Speak("<silence msec=\"200\"/>", SVSFlagsAsync + SVSFIsXML);
    EXPECT_FALSE(voice.WaitUntilDone(500));
    EXPECT_TRUE(voice.WaitUntilDone(2000));
    EXPECT_LT(Between(begun, steady_clock::now()), 900ms);
}

TEST_F(HeardVoice, CanBeInterruptedAgainAndAgain) {
    for (int i = 0; i < 50; ++i) {
        voice.Speak("interrupted", kFlags);
        (void)voice.WaitUntilDone(i);
    }
    EXPECT_TRUE(voice.WaitUntilDone(2000));
}

/// A sound server of the test's own, which may come and go.
class SoundServer {
public:
    SoundServer() {
        std::ofstream(folder_ / "script.pa")
            << "load-module module-null-sink sink_name=corvane_speaker norewinds=1\n"
            << "load-module module-native-protocol-unix auth-anonymous=1 socket=" << Socket()
            << '\n';
    }
    ~SoundServer() {
        Kill();
        std::filesystem::remove_all(folder_);
    }
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;

    [[nodiscard]] std::string Socket() const { return folder_ / "socket"; }

    void Start() {
        const std::string script = folder_ / "script.pa";
        process_ = fork();
        if (process_ != 0) return;
        // The desktop's own server holds the name on its bus.
        execlp("env", "env", "DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere", "pulseaudio", "-n",
               "-F", script.c_str(), "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
               "--realtime=no", "--high-priority=no", "--log-level=0", nullptr);
        std::_Exit(127);
    }

    /// It is there, takes calls, and answers none.
    void Freeze() const { kill(process_, SIGSTOP); }

    void Kill() {
        if (process_ <= 0) return;
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
        process_ = 0;
    }

private:
    static std::filesystem::path MakeFolder() {
        std::string name = std::filesystem::temp_directory_path() / "corvane-voice-XXXXXX";
        return mkdtemp(name.data());
    }

    std::filesystem::path folder_ = MakeFolder();
    pid_t process_ = 0;
};

/// A voice on that server, not on the desktop's.
class VoiceAndServer : public ::testing::Test {
protected:
    VoiceAndServer() {
        setenv("PULSE_SOURCE", "corvane_speaker.monitor", 1);
        setenv("PULSE_SERVER", ("unix:" + server.Socket()).c_str(), 1);
    }
    ~VoiceAndServer() override { setenv("PULSE_SERVER", desktop_.c_str(), 1); }

    static std::string LongText() {
        std::string text;
        for (int i = 0; i < 20; ++i) text += "Somebody talks and talks, whoever listens. ";
        return text;
    }

    SoundServer server;

private:
    std::string desktop_ = std::getenv("PULSE_SERVER");
};

TEST_F(VoiceAndServer, SoundComesBackWithTheServer) {
    Voice voice("test", [](const std::function<void()>&) {});
    voice.Speak(LongText(), kFlags);
    EXPECT_FALSE(voice.WaitUntilDone(300));
    for (int coming = 0; coming < 2; ++coming) {
        server.Start();
        {
            Ear ear;
            EXPECT_TRUE(ear.WaitForSound(200ms)) << "coming " << coming;
        }
        server.Kill();
        EXPECT_FALSE(voice.WaitUntilDone(300)) << "it goes on unheard";
    }
    voice.Speak("<silence msec=\"200\"/>", kFlags);
    EXPECT_TRUE(voice.WaitUntilDone(1000));
}

TEST_F(VoiceAndServer, TheEndOfTheStreamComesThoughTheServerDies) {
    server.Start();
    std::mutex mutex;
    std::vector<std::function<void()>> messages;
    Voice voice("test", [&](std::function<void()> message) {
        const std::lock_guard lock(mutex);
        messages.push_back(std::move(message));
    });
    std::vector<std::int32_t> words;
    std::vector<std::int32_t> ends;
    voice.Advise({.Word = [&](std::int32_t stream, const Variant&, std::int32_t,
                              std::int32_t) { words.push_back(stream); },
                  .EndStream = [&](std::int32_t stream, const Variant&) { ends.push_back(stream); },
                  .AudioLevel = {},
                  .Bookmark = {}});
    voice.SetEventInterests(SVEWordBoundary + SVEEndInputStream);
    {
        Ear ear;
        voice.Speak("One two three four five six seven eight.", kFlags);
        ASSERT_TRUE(ear.WaitForSound(200ms));
    }
    server.Kill();
    EXPECT_TRUE(voice.WaitUntilDone(5000));
    server.Start();
    {
        Ear ear;
        voice.Speak(LongText(), SVSFlagsAsync);
        EXPECT_TRUE(ear.WaitForSound(200ms)) << "the next text is not heard";
    }
    const std::lock_guard lock(mutex);
    for (const auto& message : messages) message();
    EXPECT_EQ(std::ranges::count(words, 1), 8);
    EXPECT_EQ(ends, std::vector<std::int32_t>{1});
}

TEST_F(VoiceAndServer, ServerThatDoesNotAnswerHoldsNobodyUp) {
    server.Start();
    Voice voice("test", [](const std::function<void()>&) {});
    {
        Ear ear;
        voice.Speak(LongText(), kFlags);
        ASSERT_TRUE(ear.WaitForSound(100ms));
    }
    server.Freeze();
    const auto begun = steady_clock::now();
    voice.Speak("hello", SVSFPurgeBeforeSpeak);
    EXPECT_LT(steady_clock::now() - begun, 6000ms);
}

}  // namespace
}  // namespace corvane::engine
