// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// What dictated speech is written as: phrases that edit, marks, lines.
#include <string>
#include <utility>
#include <vector>

#include "support/dictating.h"

namespace corvane::engine {
namespace {

using testing::Dictating;
using testing::kThanks;
using testing::Listening;
using testing::Say;
using testing::Says;
using testing::Sound;
using testing::StartDictation;
using testing::TextOf;

class DictatingVoice : public Dictating, public ::testing::WithParamInterface<std::string> {};

TEST_P(DictatingVoice, EditingPhraseSaidAloneIsToldInItsWords) {
    const std::vector<std::string> phrases{"delete",           "train that",   "quit dictation",
                                           "clear everything", "scratch that", "print page"};
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    Sound sound;
    for (const std::string& phrase : phrases)
        sound = testing::Joined(std::move(sound), Say(phrase, GetParam()));
    room.HearToTheEnd(sound);
    std::vector<std::string> told;
    for (const auto& result : pad.recognised) {
        told.push_back(TextOf(result));
        EXPECT_EQ(result->PhraseInfo()->Rule()->Name(), "");
    }
    EXPECT_EQ(told, phrases);
}

INSTANTIATE_TEST_SUITE_P(OfFlite, DictatingVoice, ::testing::Values("slt", "rms", "awb"),
                         [](const auto& voice) { return voice.param; });

TEST_F(Dictating, EditingPhraseWithinASentenceIsText) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say("he told me to print page three of the letter", "rms"),
                                      Say("we will never quit dictation", "rms")));
    ASSERT_EQ(pad.recognised.size(), 2U);
    EXPECT_TRUE(Says(pad.recognised[0], "he told me to page three of the letter", 0.6));
    EXPECT_TRUE(Says(pad.recognised[1], "we will never", 1.0));
}

TEST_F(Dictating, TextThatBeginsLikeAnEditingPhraseIsText) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(Say("clear everything up", "rms"));
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_EQ(TextOf(pad.recognised[0]), "Clear everything up");
}

TEST_F(Dictating, EditingPhraseIsToldBehindTheTextBeforeIt) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say(kThanks, "rms"), Say("scratch that", "rms")));
    ASSERT_EQ(pad.recognised.size(), 2U);
    EXPECT_TRUE(Says(pad.recognised[0], kThanks));
    EXPECT_EQ(TextOf(pad.recognised[1]), "scratch that");
    EXPECT_LT(pad.positions[0], pad.positions[1]);
}

TEST_F(Dictating, SupposesNoPhraseOfItsOwn) {
    const Listening pad(*room.engine, time_file.Path(), SREHypothesis);
    pad.grammar->CmdSetRuleIdState(0, SGDSInactive);
    pad.grammar->DictationLoad("", SLOStatic);
    pad.grammar->DictationSetState(SGDSActive);
    room.microphone.Hear(Say("clear everything", "rms"));
    room.HearToTheEnd(Say("quit dictation", "rms"));
    for (const auto& result : pad.supposed) EXPECT_NE(TextOf(result), "quit dictation");
}

TEST_F(Dictating, MarksAreWrittenAtTheirWords) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say("i think so comma but i am not sure period", "rms"),
                                      Say("can you come on friday question mark", "rms")));
    ASSERT_EQ(pad.recognised.size(), 2U);
    EXPECT_EQ(TextOf(pad.recognised[0]), "I think so, but I am not sure.");
    EXPECT_EQ(TextOf(pad.recognised[1]), "Can you come on Friday?");
}

TEST_F(Dictating, MarkSaidAloneIsItsSign) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say("comma", "rms"), Say("exclamation mark", "slt")));
    ASSERT_EQ(pad.recognised.size(), 2U);
    EXPECT_EQ(TextOf(pad.recognised[0]), ",");
    EXPECT_EQ(TextOf(pad.recognised[1]), "!");
}

TEST_F(Dictating, PeriodOfTimeIsNoMark) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(Say("it was a long period of time", "rms"));
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_EQ(TextOf(pad.recognised[0]), "It was a long period of time");
}

TEST_F(Dictating, NewLineIsACarriageReturnAndNothingElse) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say("new line", "rms"), Say("new line", "slt")));
    ASSERT_EQ(pad.recognised.size(), 2U);
    EXPECT_EQ(TextOf(pad.recognised[0]), "\r");
    EXPECT_EQ(TextOf(pad.recognised[1]), "\r");
}

TEST_F(Dictating, ParagraphWithinSpeechIsTwoLineBreaksBetweenTwoTexts) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(
        Say("this is the end period new paragraph the committee will meet again", "rms"));
    ASSERT_EQ(pad.recognised.size(), 4U);
    EXPECT_EQ(TextOf(pad.recognised[0]), "This is the end.");
    EXPECT_EQ(TextOf(pad.recognised[1]), "\r");
    EXPECT_EQ(TextOf(pad.recognised[2]), "\r");
    EXPECT_TRUE(TextOf(pad.recognised[3]).starts_with("The committee"));
    EXPECT_LT(pad.positions[0], pad.positions[1]);
    EXPECT_LE(pad.positions[2], pad.positions[3]);
}
}  // namespace
}  // namespace corvane::engine
