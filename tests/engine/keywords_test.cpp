// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Keywords that a user may think of, spoken and heard.

#include "support/keywords.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "support/room.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

using testing::Listening;
using testing::Room;
using testing::Say;
using testing::Sound;

struct Spoken {
    std::string text;
    std::string rule;  ///< that is to be recognised
    std::string voice;
};

class KeywordsTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }

    /// Says one after the other to a grammar with these keywords and tells which were not
    /// recognised as themselves with at least this confidence.
    static std::vector<std::string> NotHeard(const std::vector<std::string>& keywords,
                                             const std::vector<Spoken>& sayings,
                                             SpeechEngineConfidence confidence) {
        const testing::TemporaryFile file(testing::CommandsWith(keywords));
        Room room;
        const Listening listening(*room.engine, file.Path(), SRERecognition);
        Sound sound;
        std::vector<std::size_t> ends;
        for (const Spoken& spoken : sayings) {
            sound = testing::Joined(std::move(sound), Say(spoken.text, spoken.voice));
            ends.push_back(sound.size() * sizeof(Sound::value_type));
        }
        room.HearToTheEnd(sound);

        std::vector<std::string> missed;
        std::size_t next = 0;
        for (std::size_t i = 0; i < sayings.size(); ++i) {
            std::string told;
            bool right = false;
            while (next < listening.recognised.size() &&
                   static_cast<std::size_t>(listening.positions[next]) < ends[i]) {
                const auto rule = listening.recognised[next]->PhraseInfo()->Rule();
                right = told.empty() && rule->Name() == sayings[i].rule &&
                        rule->Confidence() >= confidence;
                told += testing::Told(listening.recognised[next]) + " (" +
                        std::to_string(rule->Confidence()) + ") ";
                ++next;
            }
            if (!right)
                missed.push_back(sayings[i].voice + ": " + sayings[i].text + " as " + told + "\n");
        }
        return missed;
    }

    static std::string Joined(const std::vector<std::string>& lines) {
        std::string text;
        for (const std::string& line : lines) text += line;
        return text;
    }
};

TEST_F(KeywordsTest, FiftyOfAThousandMadeUpKeywordsAreHeard) {
    const std::vector<std::string> keywords = testing::MadeUpKeywords(1000, 2001);
    std::vector<Spoken> sayings;
    for (const char* voice : {"slt", "rms"})
        for (std::size_t i = 0; i < keywords.size(); i += 20)
            sayings.push_back({.text = keywords[i], .rule = keywords[i], .voice = voice});
    ASSERT_EQ(sayings.size(), 100U);
    // A bare word that nobody knows, in a synthetic voice that reads it by other rules: what counts
    // is that it is told apart from all the others.
    const std::vector<std::string> missed = NotHeard(keywords, sayings, SECLowConfidence);
    RecordProperty("missed", static_cast<int>(missed.size()));
    EXPECT_LE(missed.size(), 20U) << Joined(missed);
}

/// Each is one keyword and how people say it.
const std::vector<Spoken> kWaysOfSpeaking{
    {.text = "k d e", .rule = "KDE", .voice = {}},
    {.text = "gimp", .rule = "GIMP", .voice = {}},
    {.text = "seven zip", .rule = "7zip", .voice = {}},
    {.text = "two thousand forty eight", .rule = "2048", .voice = {}},
    {.text = "twenty forty eight", .rule = "2048", .voice = {}},
    {.text = "run v l c", .rule = "VLC", .voice = {}},
    {.text = "computer run libra office", .rule = "LibreOffice", .voice = {}},
    {.text = "run notepad plus plus", .rule = "notepad++", .voice = {}},
    {.text = "load node dot j s", .rule = "node.js", .voice = {}},
    {.text = "run node j s", .rule = "node.js", .voice = {}},
    {.text = "execute c sharp", .rule = "c#", .voice = {}},
    {.text = "execute c hash", .rule = "c#", .voice = {}},
    {.text = "run cafe please", .rule = "caf\u00E9", .voice = {}},
    {.text = "run moskva", .rule = "\u041C\u043E\u0441\u043A\u0432\u0430", .voice = {}},
    {.text = "load photo editor please", .rule = "photo-editor", .voice = {}},
    {.text = "run x eighty six", .rule = "x86", .voice = {}},
};

TEST_F(KeywordsTest, UnusualKeywordsAreHeardInTheWaysPeopleSayThem) {
    std::vector<std::string> keywords{"---", "\u65E5\u672C"};  // have no sound, and harm no other
    std::vector<Spoken> sayings;
    for (const char* voice : {"slt", "rms"})
        for (Spoken spoken : kWaysOfSpeaking) {
            if (keywords.back() != spoken.rule && sayings.size() < kWaysOfSpeaking.size())
                keywords.push_back(spoken.rule);
            spoken.voice = voice;
            sayings.push_back(spoken);
        }
    const std::vector<std::string> missed = NotHeard(keywords, sayings, SECHighConfidence);
    EXPECT_LE(missed.size() * 10, sayings.size()) << Joined(missed);
}

}  // namespace
}  // namespace corvane::engine
