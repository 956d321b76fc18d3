// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// Reading sentences aloud: what is heard, what is said of it and what is asked for next.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "support/generated_sound.h"
#include "voice_session_fixture.h"

namespace corvane::linux_desktop {
namespace {

using engine::testing::Joined;
using engine::testing::Say;
using engine::testing::Sound;
using engine::testing::Stillness;
using std::chrono_literals::operator""s;

const std::string kSomethingElse = "Nobody knew how the fire in the kitchen had begun.";

Sound Louder(Sound sound, double factor) {
    for (std::int16_t& sample : sound)
        sample = static_cast<std::int16_t>(std::clamp(factor * sample, -32'767.0, 32'767.0));
    return sound;
}

TEST_F(VoiceSessionTest, ItBeginsByItselfWhenTheFirstSentenceIsRead) {
    Begin();
    EXPECT_EQ(Now().stage, Stage::introduction);
    Hear(Say(kSomethingElse));
    ASSERT_TRUE(AwaitAdvice(Advice::other));
    EXPECT_EQ(Now().stage, Stage::introduction);
    Hear(Say(kSentences[0]));
    ASSERT_TRUE(AwaitAdvice(Advice::good));
    EXPECT_EQ(Now().stage, Stage::reading);
    EXPECT_EQ(Now().number, 2U);
}

TEST_F(VoiceSessionTest, SomethingElseIsAskedForAgainAndLeftOutAtTheThirdTime) {
    Begin();
    session->Start();
    for (int i = 0; i < 2; ++i) {
        Hear(Say(kSomethingElse));
        ASSERT_TRUE(AwaitAdvice(Advice::checking));
        ASSERT_TRUE(AwaitAdvice(Advice::other));
        EXPECT_EQ(Now().sentence, kSentences[0]);
    }
    Hear(Say(kSomethingElse));
    ASSERT_TRUE(AwaitAdvice(Advice::given_up));
    EXPECT_EQ(Now().sentence, kSentences[1]);
}

TEST_F(VoiceSessionTest, ASentenceMayBeReadWithABreathInIt) {
    Begin();
    session->Start();
    Sound first = Say("The yellow boat slowly turned");
    first.resize(first.size() - 4'800);
    EXPECT_TRUE(ReadsWell(Joined(first, Say("towards the harbour wall."))));
}

TEST_F(VoiceSessionTest, WhatIsBeingCheckedCountsNoMoreOnceItIsToBeReadAgain) {
    Begin();
    session->Start();
    Hear(Say(kSentences[0]));
    ASSERT_TRUE(AwaitAdvice(Advice::checking));
    session->Again();
    Hear(Say(kSomethingElse));
    ASSERT_TRUE(AwaitAdvice(Advice::other));
    EXPECT_EQ(Now().number, 1U);
}

TEST_F(VoiceSessionTest, WhatIsReadWhileTheOneBeforeIsCheckedIsHeard) {
    Begin();
    session->Start();
    Hear(Say(kSentences[0]));
    ASSERT_TRUE(AwaitAdvice(Advice::checking));
    session->Skip();
    Hear(Say(kSentences[1]));
    EXPECT_TRUE(AwaitSentence(3));
}

TEST_F(VoiceSessionTest, WhatIsBeingReadCountsNoMoreOnceTheSentenceIsSkipped) {
    Begin();
    session->Start();
    const Sound sound = Say(kSentences[0]);
    const auto half = sound.begin() + std::ssize(sound) / 2;
    microphone.Hear({sound.begin(), half});
    ASSERT_TRUE(AwaitAdvice(Advice::hearing));
    session->Skip();
    microphone.Hear({half, sound.end()});
    EXPECT_TRUE(ReadsWell(Joined(Stillness(1s), Say(kSentences[1]))));
    EXPECT_EQ(Now().number, 3U);
}

TEST_F(VoiceSessionTest, WithoutAnySoundItAsksForTheMicrophoneUntilThereIsSome) {
    Begin();
    microphone.Hear(Stillness(4s));
    ASSERT_TRUE(AwaitAdvice(Advice::no_signal));
    session->Start();
    EXPECT_EQ(Now().advice, Advice::no_signal);
    microphone.Hear(engine::testing::GeneratedSound().Noise(1s, 10.0));
    ASSERT_TRUE(AwaitAdvice(Advice::read));
    EXPECT_TRUE(ReadsWell(Say(kSentences[0])));
}

TEST_F(VoiceSessionTest, AMicrophoneThatIsGoneIsToldOf) {
    Begin();
    microphone.HangUp();
    EXPECT_TRUE(AwaitAdvice(Advice::no_signal));
}

TEST_F(VoiceSessionTest, WhoSaysNothingForLongIsTold) {
    Begin();
    session->Start();
    engine::testing::GeneratedSound make;
    microphone.Hear(make.Noise(9s, 10.0));
    microphone.Hear(make.Noise(2s, 10.0));
    ASSERT_TRUE(AwaitAdvice(Advice::unheard));
    EXPECT_EQ(Now().number, 1U);
}

TEST_F(VoiceSessionTest, WhoIsTooLoudOrTooQuietIsTold) {
    Begin();
    session->Start();
    Hear(Louder(Say(kSomethingElse), 30.0));
    EXPECT_TRUE(AwaitAdvice(Advice::too_loud));
    Hear(Louder(Say(kSomethingElse), 0.01));
    EXPECT_TRUE(AwaitAdvice(Advice::too_quiet));
    Hear(Louder(Say(kSentences[0]), 0.01));
    EXPECT_TRUE(AwaitAdvice(Advice::good_but_quiet));
}

TEST_F(VoiceSessionTest, TheLevelIsToldWhileSomebodySpeaks) {
    Begin();
    microphone.Hear(engine::testing::GeneratedSound().Voice(2s, 1500.0));
    EXPECT_TRUE(Await([&] { return loudest > 30; }));
}

TEST_F(VoiceSessionTest, AFirstSentenceWithoutWordsIsLeftOut) {
    std::vector<std::string> sentences = kSentences;
    sentences.insert(sentences.begin(), "?! ...");
    Begin(sentences);
    ASSERT_TRUE(AwaitAdvice(Advice::unreadable));
    EXPECT_EQ(Now().sentence, kSentences[0]);
    EXPECT_EQ(Now().number, 1U);
    EXPECT_EQ(Now().count, kSentences.size());
    EXPECT_TRUE(ReadsWell(Say(kSentences[0])));
}

TEST_F(VoiceSessionTest, WhoRestsIsNotHeard) {
    Begin();
    session->Start();
    session->Rest();
    Hear(Say(kSentences[0]));
    ASSERT_TRUE(Await([&] { return loudest > 30 && level == 0; }));
    session->GoOn();
    EXPECT_EQ(Now().advice, Advice::read);
    EXPECT_TRUE(ReadsWell(Say(kSentences[0])));
    EXPECT_EQ(Now().number, 2U);
}

TEST_F(VoiceSessionTest, WhatTheButtonsDoCanBeSaid) {
    MakeProfile();
    profile->KeepVoice(engine::SpeakerTransform::Identity());
    Begin({kSentences[0], kSentences[1]});
    Hear(Say("skip this sentence"));
    ASSERT_TRUE(AwaitSentence(2));
    EXPECT_EQ(Now().advice, Advice::skipped);
    Hear(Say("train once more"));
    ASSERT_TRUE(AwaitAdvice(Advice::other)) << "there is nothing to do anew";
    Hear(Say("cancel the training"));
    EXPECT_TRUE(Await([this] { return std::exchange(left, false); }));

    Hear(Say("skip this sentence"));
    ASSERT_TRUE(AwaitEnd());
    Hear(Say("undo the last training"));
    EXPECT_TRUE(Await([this] { return Now().outcome == Outcome::undone; }));
    EXPECT_FALSE(AnythingIsKept());
    Hear(Say("train once more"));
    EXPECT_TRUE(Await([this] { return anew; }));
    EXPECT_FALSE(left);
    Hear(Say("close the window"));
    EXPECT_TRUE(Await([this] { return left; }));
}

}  // namespace
}  // namespace corvane::linux_desktop
