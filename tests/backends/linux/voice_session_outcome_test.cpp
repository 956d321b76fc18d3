// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// What comes of the sentences that were read: a voice that is kept or not, and what fails.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "voice_session_fixture.h"

namespace corvane::linux_desktop {
namespace {

using engine::testing::Say;
using engine::testing::SayAsSomebodySmall;
using engine::testing::Sound;

TEST_F(VoiceSessionTest, SentencesReadOneAfterTheOtherTrainTheVoice) {
    Begin();
    ReadAll();
    EXPECT_EQ(Now().stage, Stage::training);
    ASSERT_TRUE(AwaitEnd());
    EXPECT_EQ(Now().outcome, Outcome::learnt);
    EXPECT_GT(Now().improvement, 0.01);
    EXPECT_LE(Now().improvement, 1.0);
    EXPECT_GT(Now().trained, 0.5);
    EXPECT_TRUE(profile->Voice());
    EXPECT_TRUE(AnythingIsKept());

    EXPECT_TRUE(Now().can_undo);
    session->UndoTraining();
    EXPECT_EQ(Now().outcome, Outcome::undone);
    EXPECT_FALSE(Now().can_undo);
    EXPECT_FALSE(AnythingIsKept());
}

TEST_F(VoiceSessionTest, WithTooFewSentencesNothingIsTrained) {
    Begin();
    ASSERT_TRUE(ReadsWell(Say(kSentences[0])));
    for (std::size_t i = 1; i < kSentences.size(); ++i) {
        EXPECT_EQ(Now().sentence, kSentences[i]);
        session->Skip();
    }
    EXPECT_EQ(Now().outcome, Outcome::too_few);
    EXPECT_FALSE(AnythingIsKept());
}

TEST_F(VoiceSessionTest, GivenUpAtAnyMomentItChangesNothing) {
    Begin();
    session.reset();

    microphone = {};
    Begin();
    const Sound sound = SayAsSomebodySmall(kSentences[0]);
    microphone.Hear({sound.begin(), sound.begin() + std::ssize(sound) / 2});
    ASSERT_TRUE(AwaitAdvice(Advice::hearing));
    session.reset();

    microphone = {};
    Begin();
    Hear(sound);
    ASSERT_TRUE(AwaitAdvice(Advice::checking));
    session.reset();

    microphone = {};
    Begin();
    ReadAll();
    ASSERT_TRUE(Await([&] { return Now().trained > 0.1; }));
    session.reset();
    EXPECT_FALSE(AnythingIsKept());
}

TEST_F(VoiceSessionTest, WhatDoesNotHelpIsNotKept) {
    // Four people, so that what is learnt of three says nothing of the fourth.
    constexpr std::array kSizes{0.85, 1.3, 1.0, 1.15};
    std::vector<std::string> sentences = kSentences;
    sentences.emplace_back("He threw the heavy ball over the fence with both hands.");
    sentences.emplace_back("A cold wind blew across the empty beach all night.");
    Begin(sentences);
    session->Start();
    for (std::size_t i = 0; i < sentences.size(); ++i) {
        const Sound sound = Say(sentences[i], i % 2 == 0 ? "rms" : "slt");
        Hear(engine::testing::Smaller(sound, kSizes.at(i % kSizes.size())));
        ASSERT_TRUE(Await([&] {
            return Now().number != i + 1 || Now().stage > Stage::reading ||
                   Now().advice == Advice::other;
        }));
        if (Now().advice == Advice::other) session->Skip();
    }
    ASSERT_TRUE(AwaitEnd());
    EXPECT_EQ(Now().outcome, Outcome::no_help);
    EXPECT_FALSE(AnythingIsKept());
}

TEST_F(VoiceSessionTest, AnEarlierTrainingCanBeUndoneBeforeAnythingIsRead) {
    MakeProfile();
    profile->KeepVoice(engine::SpeakerTransform::Identity());
    Begin();
    EXPECT_TRUE(Now().can_undo);
    session->UndoTraining();
    EXPECT_EQ(Now().advice, Advice::undone);
    EXPECT_EQ(Now().stage, Stage::introduction);
    EXPECT_FALSE(Now().can_undo);
    EXPECT_FALSE(AnythingIsKept());
}

TEST_F(VoiceSessionTest, WhatCannotBeUndoneIsSaid) {
    MakeProfile();
    profile->KeepVoice(engine::SpeakerTransform::Identity());
    profile->KeepVoice(engine::SpeakerTransform::Identity());
    std::filesystem::remove_all(folder.Path() + "/user");
    Begin();
    session->UndoTraining();
    EXPECT_NE(Now().failure.find("can't be undone"), std::string::npos) << Now().failure;
    EXPECT_TRUE(Now().can_undo);
}

TEST_F(VoiceSessionTest, AFailureIsSaidUntilSomethingElseIsToBeSaid) {
    MakeProfile();
    profile->KeepVoice(engine::SpeakerTransform::Identity());
    profile->KeepVoice(engine::SpeakerTransform::Identity());
    std::filesystem::remove_all(folder.Path() + "/user");
    Begin();
    session->Start();
    session->UndoTraining();
    EXPECT_FALSE(Now().failure.empty());
    session->Skip();
    EXPECT_TRUE(Now().failure.empty());

    session->UndoTraining();
    EXPECT_FALSE(Now().failure.empty());
    session->Again();
    EXPECT_TRUE(Now().failure.empty());

    session->UndoTraining();
    EXPECT_FALSE(Now().failure.empty());
    while (Now().stage != Stage::over) session->Skip();
    EXPECT_EQ(Now().outcome, Outcome::too_few);
    EXPECT_TRUE(Now().failure.empty());
}

TEST_F(VoiceSessionTest, WhatCannotBeKeptIsSaid) {
    std::ofstream(folder.Path() + "/user") << "no folder";
    Begin();
    ReadAll();
    ASSERT_TRUE(AwaitEnd());
    EXPECT_EQ(Now().outcome, Outcome::failed);
    EXPECT_NE(Now().failure.find("can't be kept"), std::string::npos) << Now().failure;
    EXPECT_FALSE(profile->Voice());
}

TEST_F(VoiceSessionTest, WhatCouldNotBeKeptIsKeptOnceThereIsRoom) {
    std::ofstream(folder.Path() + "/user") << "no folder";
    Begin();
    ReadAll();
    ASSERT_TRUE(AwaitEnd());
    EXPECT_TRUE(Now().can_save);
    session->Save();
    EXPECT_EQ(Now().outcome, Outcome::failed);
    EXPECT_TRUE(Now().can_save);

    std::filesystem::remove(folder.Path() + "/user");
    Hear(Say("try to save again"));
    ASSERT_TRUE(Await([&] { return Now().outcome == Outcome::learnt; }));
    EXPECT_FALSE(Now().can_save);
    EXPECT_TRUE(std::filesystem::exists(folder.Path() + "/user/voice.mllr"));
    EXPECT_TRUE(profile->Voice());
    EXPECT_TRUE(Now().can_undo);
    session->Save();
    EXPECT_EQ(Now().outcome, Outcome::learnt) << "there is nothing more to keep";
}

TEST_F(VoiceSessionTest, AModelThatCannotBeReadIsToldOf) {
    const SpeechEngineConfig config;
    profile = std::make_unique<engine::UserProfile>(
        engine::UserProfile::Places{
            .folder = {}, .acoustic_model = folder.Path(), .dictionary = config.dictionary},
        engine::Complain());
    Begin();
    ASSERT_TRUE(AwaitEnd());
    EXPECT_EQ(Now().outcome, Outcome::failed);
    EXPECT_NE(Now().failure.find(folder.Path()), std::string::npos) << Now().failure;
    session->Again();
    session->Skip();
    EXPECT_EQ(Now().stage, Stage::over);
}

TEST_F(VoiceSessionTest, WhatIsReadToAModelThatCannotBeReadIsJustNotHeard) {
    // All that is said is there already when the model turns out to be none.
    const SpeechEngineConfig config;
    profile = std::make_unique<engine::UserProfile>(
        engine::UserProfile::Places{
            .folder = {}, .acoustic_model = folder.Path(), .dictionary = config.dictionary},
        engine::Complain());
    for (int i = 0; i < 3; ++i) Hear(Say(kSentences[0]));
    Begin();
    microphone.WaitUntilRead();
    ASSERT_TRUE(AwaitEnd());
    Hear(Say("close the window"));
    EXPECT_TRUE(AwaitAdvice(Advice::checking)) << "nor does it wait for what was heard before";
    EXPECT_EQ(Now().outcome, Outcome::failed);
}

}  // namespace
}  // namespace corvane::linux_desktop
