// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// What the voice tells of, on a machine without a sound server: the same events at the same times.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "engine/voice/voice.h"
#include "support/room.h"

namespace corvane::engine {
namespace {

using std::chrono::steady_clock;
using std::chrono_literals::operator""s;

constexpr std::int32_t kFlags = SVSFlagsAsync + SVSFPurgeBeforeSpeak + SVSFIsXML;
constexpr std::int32_t kReading = SVEAudioLevel + SVEWordBoundary + SVEEndInputStream;

class TellingVoice : public ::testing::Test {
protected:
    struct Told {
        std::int32_t stream;
        std::string what;
        std::int64_t position;
    };

    void SetUp() override {
        setenv("PULSE_SERVER", "unix:/nowhere/at/all", 1);
        voice = std::make_unique<Voice>(
            "test", [this](std::function<void()> message) { messages.Post(std::move(message)); });
        Listen();
    }
    void TearDown() override { unsetenv("PULSE_SERVER"); }

    void Listen() {
        voice->Advise({.Word =
                           [this](std::int32_t stream, const Variant& at, std::int32_t position,
                                  std::int32_t length) {
                               Note(stream, at,
                                    "word " + std::to_string(position) + "+" +
                                        std::to_string(length));
                           },
                       .EndStream = [this](std::int32_t stream,
                                           const Variant& at) { Note(stream, at, "end"); },
                       .AudioLevel =
                           [this](std::int32_t stream, const Variant& at, std::int32_t level) {
                               Note(stream, at, "level");
                               levels.push_back(level);
                           },
                       .Bookmark =
                           [this](std::int32_t stream, const Variant& at, const std::string& name,
                                  std::int32_t id) {
                               Note(stream, at, "bookmark " + name + " " + std::to_string(id));
                           }});
    }

    void Note(std::int32_t stream, const Variant& at, std::string what) {
        told.push_back({stream, std::move(what), std::get<std::int64_t>(at)});
    }

    /// Hears the voice out.
    void HearOut() {
        ASSERT_TRUE(voice->WaitUntilDone(20'000));
        messages.Run();
    }

    /// All but levels, parted by "; ".
    [[nodiscard]] std::string Events() const {
        std::string line;
        for (const Told& event : told)
            if (event.what != "level")
                line +=
                    (line.empty() ? "" : "; ") + std::to_string(event.stream) + " " + event.what;
        return line;
    }

    testing::Messages messages;
    std::unique_ptr<Voice> voice;
    std::vector<Told> told;
    std::vector<std::int32_t> levels;
};

TEST_F(TellingVoice, TellsOfEachWordOfTheOriginalAndOfTheEnd) {
    voice->SetEventInterests(kReading);
    voice->Speak("The <emph>t\xC3\xAFme</emph> is,\r\n5 &lt; 7", kFlags);
    HearOut();
    EXPECT_EQ(Events(),
              "1 word 0+3; 1 word 10+4; 1 word 22+2; 1 word 27+1; 1 word 29+4; 1 word 34+1; 1 end");
    for (std::size_t i = 1; i < told.size(); ++i)
        EXPECT_GE(told[i].position, told[i - 1].position) << i;
    EXPECT_EQ(told.front().position, 0);
}

TEST_F(TellingVoice, PositionsCountBytesOfSixteenKilohertzSound) {
    voice->SetEventInterests(kReading);
    voice->Speak("<silence msec=\"500\"/>", kFlags);
    HearOut();
    ASSERT_EQ(Events(), "1 end");
    EXPECT_EQ(told.back().position, 16'000);
}

TEST_F(TellingVoice, AnEmptyTextHasAnEndAndNoWord) {
    voice->SetEventInterests(kReading);
    voice->Speak("", kFlags);
    HearOut();
    EXPECT_EQ(Events(), "1 end");
    EXPECT_TRUE(levels.empty());
}

TEST_F(TellingVoice, TellsOnlyWhatIsOfInterestWhenItIsTold) {
    voice->SetEventInterests(kReading);
    voice->Speak("one two", kFlags);
    ASSERT_TRUE(voice->WaitUntilDone(20'000));
    voice->SetEventInterests(SVEEndInputStream);
    messages.Run();
    EXPECT_EQ(Events(), "1 end");
    EXPECT_TRUE(levels.empty());
}

TEST_F(TellingVoice, TellsNothingToWhoHasLeft) {
    voice->SetEventInterests(kReading);
    voice->Speak("one two", kFlags);
    ASSERT_TRUE(voice->WaitUntilDone(20'000));
    voice->Advise({});
    messages.Run();
    EXPECT_TRUE(told.empty());
}

TEST_F(TellingVoice, NothingMoreIsToldOfWhatWasCutOffNotEvenItsEnd) {
    voice->SetEventInterests(kReading);
    voice->Speak("one", kFlags);
    ASSERT_TRUE(voice->WaitUntilDone(20'000));
    voice->Speak("two three four five six seven", SVSFlagsAsync);
    EXPECT_FALSE(voice->WaitUntilDone(300));
    // What waits in the queue belongs to the past now.
    voice->Speak("", kFlags);
    HearOut();
    EXPECT_EQ(Events(), "3 end");
    EXPECT_TRUE(levels.empty() || levels == std::vector<std::int32_t>{0});
}

TEST_F(TellingVoice, FallsToLevelNothingWhenItIsCutOff) {
    voice->SetEventInterests(kReading);
    voice->Speak("one two three four five six seven", kFlags);
    EXPECT_FALSE(voice->WaitUntilDone(300));
    messages.Run();
    ASSERT_FALSE(levels.empty());
    EXPECT_GT(*std::ranges::max_element(levels), 20);
    levels.clear();
    voice->Speak("", kFlags);
    HearOut();
    EXPECT_EQ(levels, std::vector<std::int32_t>{0});
}

TEST_F(TellingVoice, FallsToLevelNothingThoughTheOneWhoCutItOffIsCutOffToo) {
    voice->SetEventInterests(kReading);
    voice->Speak("one two three four five six seven", kFlags);
    EXPECT_FALSE(voice->WaitUntilDone(300));
    messages.Run();
    ASSERT_FALSE(levels.empty());
    for (int i = 0; i < 3; ++i) {
        voice->Speak("", kFlags);
        ASSERT_TRUE(voice->WaitUntilDone(1000));
    }
    messages.Run();
    EXPECT_EQ(levels.back(), 0);
}

TEST_F(TellingVoice, LevelFollowsTheSoundAndEndsAtNothing) {
    voice->SetEventInterests(SVEAudioLevel);
    voice->Speak("How loud is this sentence?", kFlags);
    HearOut();
    EXPECT_GT(levels.size(), 10U);
    EXPECT_GE(*std::ranges::min_element(levels), 0);
    EXPECT_LE(*std::ranges::max_element(levels), 100);
    EXPECT_GT(*std::ranges::max_element(levels), 40);
    EXPECT_EQ(levels.back(), 0);
}

TEST_F(TellingVoice, QueuedTextsHaveEndsOfTheirOwn) {
    voice->SetEventInterests(SVEEndInputStream);
    for (int i = 0; i < 3; ++i) voice->Speak("a", SVSFlagsAsync);
    HearOut();
    EXPECT_EQ(Events(), "1 end; 2 end; 3 end");
}

TEST_F(TellingVoice, TellsOfBookmarks) {
    voice->SetEventInterests(SVEBookmark + SVEWordBoundary);
    voice->Speak("a <bookmark mark=\"12th\"/>b<bookmark mark=\"end\"/>", kFlags);
    HearOut();
    EXPECT_EQ(Events(), "1 word 0+1; 1 bookmark 12th 12; 1 word 25+1; 1 bookmark end 0");
}

TEST_F(TellingVoice, AHandlerMaySpeakAndListenAnew) {
    voice->SetEventInterests(kReading);
    voice->Advise({.Word = {},
                   .EndStream =
                       [this](std::int32_t, const Variant&) {
                           Listen();
                           voice->Speak("two", kFlags);
                       },
                   .AudioLevel = {},
                   .Bookmark = {}});
    voice->Speak("one", kFlags);
    HearOut();
    EXPECT_EQ(Events(), "");
    HearOut();
    EXPECT_EQ(Events(), "2 word 0+3; 2 end");
}

TEST_F(TellingVoice, AHandlerMayLetItGo) {
    voice->SetEventInterests(kReading);
    voice->Advise({.Word = [this](std::int32_t, const Variant&, std::int32_t,
                                  std::int32_t) { voice.reset(); },
                   .EndStream = {},
                   .AudioLevel = {},
                   .Bookmark = {}});
    voice->Speak("one two three", kFlags);
    ASSERT_TRUE(voice->WaitUntilDone(20'000));
    messages.Run();
    EXPECT_EQ(voice, nullptr);
}

TEST_F(TellingVoice, PostsNothingOnceItsEngineHasGone) {
    testing::Room room;
    const auto orphan = room.engine->CreateSpVoice();
    orphan->SetEventInterests(kReading);
    orphan->Advise(
        {.Word = {},
         .EndStream = [this](std::int32_t stream, const Variant& at) { Note(stream, at, "end"); },
         .AudioLevel = {},
         .Bookmark = {}});
    room.engine.reset();
    orphan->Speak("hello", kFlags);
    EXPECT_TRUE(orphan->WaitUntilDone(20'000));
    room.messages.Run();
    EXPECT_EQ(Events(), "");
}

TEST_F(TellingVoice, AVeryLongTextIsReturnedFromAtOnceAndCutOffAtOnce) {
    std::string text;
    while (text.size() < 1'000'000)
        text += "All work &amp; no <emph>play</emph> makes nobody happy ";
    voice->SetEventInterests(kReading);
    // It is a day's reading: whoever waited for any of it would be far beyond these bounds, which
    // leave room for a slow machine.
    const auto begun = steady_clock::now();
    voice->Speak(text, kFlags);
    EXPECT_LT(steady_clock::now() - begun, 5s);
    for (int tenths = 0; tenths < 200 && Events().empty(); ++tenths) {
        EXPECT_FALSE(voice->WaitUntilDone(100));
        messages.Run();
    }
    EXPECT_EQ(Events().substr(0, 10), "1 word 0+3");
    voice->Speak("", kFlags);
    EXPECT_TRUE(voice->WaitUntilDone(10'000));
}

}  // namespace
}  // namespace corvane::engine
