// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <thread>

#include "support/dictating.h"
#include "support/generated_sound.h"
#include "support/memory.h"

namespace corvane::engine {
namespace {

using testing::Dictating;
using testing::kThanks;
using testing::Listening;
using testing::Say;
using testing::Says;
using testing::Sound;
using testing::StartDictation;
using testing::Told;

constexpr const char* kCommittee = "the committee will meet again on monday morning";

TEST_F(Dictating, WhatIsSaidIsTextThatBelongsToNoRule) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(Say(kCommittee));
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_TRUE(Says(pad.recognised[0], kCommittee));
    EXPECT_EQ(pad.recognised[0]->PhraseInfo()->Rule()->Name(), "");
    EXPECT_GE(pad.recognised[0]->PhraseInfo()->Rule()->Confidence(), SECNormalConfidence);
    EXPECT_EQ(pad.recognised[0]->PhraseInfo()->GetText(1, 2, true), "committee will");
}

TEST_F(Dictating, PhrasesAreToldInTheirOrderEachWithItsPlace) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say(kThanks, "rms"), Say(kCommittee)));
    ASSERT_EQ(pad.recognised.size(), 2U);
    EXPECT_TRUE(Says(pad.recognised[0], kThanks));
    EXPECT_TRUE(Says(pad.recognised[1], kCommittee));
    EXPECT_LT(pad.positions[0], 32000);
    EXPECT_GT(pad.positions[1], 32000 * 2);
}

TEST_F(Dictating, SurelyHeardCommandOfAnotherContextIsNoText) {
    const Listening clock(*room.engine, time_file.Path());
    const Listening pad(*room.engine, months_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say("what time is it", "rms"), Say(kThanks, "rms")));
    ASSERT_EQ(clock.recognised.size(), 1U);
    EXPECT_EQ(Told(clock.recognised[0]), "the time: what time is it");
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_TRUE(Says(pad.recognised[0], kThanks));
}

TEST_F(Dictating, WordOfAnotherContextWithinASentenceIsTextAndNothingElse) {
    const Listening calendar(*room.engine, months_file.Path());
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say("the school will be closed in march and april", "rms"),
                                      Say("march", "rms")));
    ASSERT_EQ(calendar.recognised.size(), 1U);
    EXPECT_EQ(Told(calendar.recognised[0]), "March: March");
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_TRUE(Says(pad.recognised[0], "be closed in march and april", 0.8));
}

TEST_F(Dictating, HumThatIsSwitchedOnIsNotWritten) {
    using std::chrono_literals::operator""s;
    testing::GeneratedSound make;
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(
        make.Noise(2s, 20.0), testing::Mixed(make.Noise(11s, 20.0), make.Hum(11s, 500.0, 100.0))));
    EXPECT_TRUE(pad.recognised.empty());
}

TEST_F(Dictating, OfTwoThatDictateTheNewerContextIsTold) {
    const Listening older(*room.engine, time_file.Path());
    const Listening newer(*room.engine, months_file.Path());
    StartDictation(*newer.grammar);
    StartDictation(*older.grammar);
    room.HearToTheEnd(Say(kThanks, "rms"));
    EXPECT_TRUE(older.recognised.empty());
    EXPECT_EQ(newer.recognised.size(), 1U);
}

TEST_F(Dictating, TextIsSupposedWhileItIsSaid) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    const Sound speech = Say(kThanks, "rms");
    const auto most = static_cast<std::ptrdiff_t>(speech.size() - 16000);
    room.microphone.Hear({speech.begin(), speech.begin() + most});
    ASSERT_TRUE(room.messages.WaitForOne());
    room.messages.Run();
    ASSERT_FALSE(pad.supposed.empty());
    EXPECT_EQ(pad.supposed[0]->PhraseInfo()->Rule()->Name(), "");
    EXPECT_LT(pad.supposed[0]->PhraseInfo()->Rule()->Confidence(), SECHighConfidence);
    EXPECT_TRUE(pad.recognised.empty());
    room.HearToTheEnd({speech.begin() + most, speech.end()});
    EXPECT_EQ(pad.recognised.size(), 1U);
}

TEST_F(Dictating, NothingIsSupposedThatNobodyWantsToKnow) {
    const Listening pad(*room.engine, time_file.Path(), SRERecognition);
    StartDictation(*pad.grammar);
    room.HearToTheEnd(Say(kThanks, "rms"));
    EXPECT_TRUE(pad.supposed.empty());
    EXPECT_EQ(pad.recognised.size(), 1U);
}

TEST_F(Dictating, BegunInTheMiddleOfSpeechItWritesAllOfIt) {
    const Listening pad(*room.engine, time_file.Path());
    const Sound speech = Say(kThanks, "rms");
    const auto half = static_cast<std::ptrdiff_t>(speech.size() / 2);
    room.microphone.Hear({speech.begin(), speech.begin() + half});
    room.microphone.WaitUntilRead();
    StartDictation(*pad.grammar);
    room.HearToTheEnd({speech.begin() + half, speech.end()});
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_TRUE(Says(pad.recognised[0], kThanks));
}

TEST_F(Dictating, LoadedButNotActiveItWritesNothing) {
    const Listening pad(*room.engine, time_file.Path());
    pad.grammar->DictationLoad("", SLOStatic);
    room.HearToTheEnd(testing::Joined(Say(kThanks, "rms"), Say("what time is it", "rms")));
    std::string told;
    for (const auto& result : pad.recognised)
        if (result->PhraseInfo()->Rule()->Confidence() == SECHighConfidence) told += Told(result);
    EXPECT_EQ(told, "the time: what time is it");
}

TEST_F(Dictating, EndsWithItsContext) {
    auto pad = std::make_unique<Listening>(*room.engine, time_file.Path());
    StartDictation(*pad->grammar);
    room.microphone.Hear(Say(kThanks, "rms"));
    room.microphone.WaitUntilRead();
    pad->context.reset();
    const Listening commands(*room.engine, time_file.Path());
    room.HearToTheEnd(Say("what time is it", "rms"));
    EXPECT_TRUE(pad->recognised.empty());
    ASSERT_FALSE(commands.recognised.empty());
    EXPECT_EQ(Told(commands.recognised.back()), "the time: what time is it");
}

TEST_F(Dictating, EngineMayEndWhileTextIsWritten) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.microphone.Hear(Say(kThanks, "rms"));
    room.microphone.WaitUntilRead();
    room.engine.reset();
    pad.grammar->DictationSetState(SGDSInactive);
    pad.grammar->DictationUnload();
    pad.grammar->DictationLoad("", SLOStatic);
}

TEST_F(Dictating, UnloadedItGivesItsMemoryBack) {
    if (!testing::kMemoryCounts) GTEST_SKIP() << "a sanitizer keeps what was freed";
    constexpr long kMegabyte = 1024;
    const Listening pad(*room.engine, time_file.Path());
    const long before = testing::ResidentKilobytes();
    StartDictation(*pad.grammar);
    room.microphone.Hear(Say(kThanks, "rms"));
    while (pad.recognised.empty()) {
        ASSERT_TRUE(room.messages.WaitForOne());
        room.messages.Run();
    }
    const long dictating = testing::ResidentKilobytes();
    EXPECT_GT(dictating, before + 50 * kMegabyte);
    EXPECT_LT(dictating, 350 * kMegabyte);
    pad.grammar->DictationUnload();
    const long enough = before + 25 * kMegabyte;
    for (int i = 0; i < 400 && testing::ResidentKilobytes() > enough; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_LE(testing::ResidentKilobytes(), enough);
}
}  // namespace
}  // namespace corvane::engine
