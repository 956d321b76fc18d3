// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// Speech without a pause that is longer than an utterance may be.
#include <cstddef>
#include <cstdint>
#include <string>

#include "support/dictating.h"

namespace corvane::engine {
namespace {

using testing::Dictating;
using testing::HasWordsOf;
using testing::Listening;
using testing::Say;
using testing::Says;
using testing::Sound;
using testing::StartDictation;

/// About a quarter of a minute without a pause.
constexpr const char* kTalk =
    "the committee will meet again on monday morning and we would like to thank you very much for "
    "your help with the new school in the old part of the city because the people who live there "
    "have been waiting for it for many years and they will be very happy to see that the work has "
    "begun and after the meeting we will all walk back to the station";

bool HasTwice(const std::string& word, const std::string& text) {
    return text.find(word) != text.rfind(word);
}

TEST_F(Dictating, TalkLongerThanAnUtteranceIsWrittenInPiecesAndNoneIsACommand) {
    const Listening clock(*room.engine, time_file.Path());
    const Listening pad(*room.engine, months_file.Path());
    StartDictation(*pad.grammar);
    const Sound talk = Say(kTalk, "rms");
    ASSERT_GT(talk.size(), std::size_t{14} * 16000);
    room.HearToTheEnd(talk);
    EXPECT_TRUE(clock.recognised.empty());
    ASSERT_GE(pad.recognised.size(), 2U);
    std::string written;
    for (std::size_t i = 0; i < pad.recognised.size(); ++i) {
        const auto phrase = pad.recognised[i]->PhraseInfo();
        EXPECT_EQ(phrase->Rule()->Name(), "");
        written += (i == 0 ? "" : " ") + phrase->GetText(0, -1, true);
        if (i > 0) {
            EXPECT_GT(pad.positions[i], pad.positions[i - 1]);
        }
    }
    EXPECT_TRUE(HasWordsOf(kTalk, written, 0.7));
    EXPECT_TRUE(HasWordsOf("to the station", written, 1.0)) << "its last words";
    EXPECT_FALSE(HasTwice("committee", written)) << written;
}

TEST_F(Dictating, CommandSaidInALongTalkIsTextAndOneSaidBehindItIsCarriedOut) {
    const Listening clock(*room.engine, time_file.Path());
    const Listening pad(*room.engine, months_file.Path());
    StartDictation(*pad.grammar);
    const Sound talk = Say(std::string(kTalk) + " what time is it", "rms");
    room.HearToTheEnd(testing::Joined(talk, Say("what time is it", "rms")));
    ASSERT_EQ(clock.recognised.size(), 1U);
    EXPECT_GE(clock.positions[0], static_cast<std::int64_t>(talk.size() * sizeof(talk[0])));
    ASSERT_FALSE(pad.recognised.empty());
    EXPECT_TRUE(Says(pad.recognised.back(), "time is it", 1.0));
}

TEST_F(Dictating, BegunBehindTheCutOfALongTalkItWritesTheRest) {
    const Listening pad(*room.engine, time_file.Path(), SRERecognition);
    const Sound talk = Say(kTalk, "rms");
    const std::ptrdiff_t most = std::ptrdiff_t{13} * 16000;
    room.microphone.Hear({talk.begin(), talk.begin() + most});
    for (int i = 0; i < 50; ++i) room.microphone.WaitUntilRead();
    StartDictation(*pad.grammar);
    room.HearToTheEnd({talk.begin() + most, talk.end()});
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_GT(pad.positions[0], 32000 * 9);
    EXPECT_TRUE(Says(pad.recognised[0], "to the station", 1.0));
    EXPECT_EQ(pad.recognised[0]->PhraseInfo()->Rule()->Name(), "");
}

TEST_F(Dictating, ContextThatComesDuringALongTalkLosesNothingOfIt) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    const Sound talk = Say(kTalk, "rms");
    const std::ptrdiff_t most = std::ptrdiff_t{13} * 16000;
    room.microphone.Hear({talk.begin(), talk.begin() + most});
    for (int i = 0; i < 50; ++i) room.microphone.WaitUntilRead();
    const Listening calendar(*room.engine, months_file.Path());
    room.HearToTheEnd({talk.begin() + most, talk.end()});
    EXPECT_TRUE(calendar.recognised.empty());
    std::string written;
    for (const auto& result : pad.recognised)
        written += (written.empty() ? "" : " ") + result->PhraseInfo()->GetText(0, -1, true);
    EXPECT_TRUE(HasWordsOf(kTalk, written, 0.7));
    EXPECT_TRUE(HasWordsOf("to the station", written, 1.0));
    EXPECT_FALSE(HasTwice("station", written)) << written;
}
}  // namespace
}  // namespace corvane::engine
