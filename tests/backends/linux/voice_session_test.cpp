// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/voice_session.h"

#include <gtest/gtest.h>

#include <QTest>
#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/speech_engine.h"
#include "support/generated_sound.h"
#include "support/room.h"
#include "support/temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

using Advice = VoiceSession::Advice;
using Outcome = VoiceSession::Outcome;
using Stage = VoiceSession::Stage;
using engine::testing::Joined;
using engine::testing::Say;
using engine::testing::SayAsSomebodySmall;
using engine::testing::Sound;
using engine::testing::Stillness;
using std::chrono_literals::operator""s;

const std::vector<std::string> kSentences{"The yellow boat slowly turned towards the harbour wall.",
                                          "Please bring a thick blanket and five warm pillows.",
                                          "Joyce could hear the church bells ring at noon.",
                                          "We usually measure the garden before the spring.",
                                          "My uncle enjoys good coffee after a long walk.",
                                          "The judge asked the witness about the strange noise."};
const std::string kSomethingElse = "Nobody knew how the fire in the kitchen had begun.";

Sound Louder(Sound sound, double factor) {
    for (std::int16_t& sample : sound)
        sample = static_cast<std::int16_t>(std::clamp(factor * sample, -32'767.0, 32'767.0));
    return sound;
}

class VoiceSessionTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!engine::testing::CanSpeak())
            GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }

    void Begin(std::vector<std::string> sentences = kSentences) {
        if (!profile) MakeProfile();
        session = std::make_unique<VoiceSession>(
            *profile, std::move(sentences), microphone.Source(),
            VoiceSession::Events{.Changed = [] {},
                                 .Level =
                                     [this](int to) {
                                         level = to;
                                         loudest = std::max(loudest, to);
                                     },
                                 .Leave = [this] { left = true; },
                                 .Anew = [this] { anew = true; }});
    }
    void MakeProfile() {
        const SpeechEngineConfig config;
        profile = std::make_unique<engine::UserProfile>(
            engine::UserProfile::Places{.folder = folder.Path() + "/user",
                                        .acoustic_model = config.acoustic_model,
                                        .dictionary = config.dictionary},
            engine::Complain());
    }
    const VoiceSession::State& Now() { return session->Now(); }

    /// Reads it aloud and takes breath.
    void Hear(const Sound& sound) { microphone.Hear(Joined(sound, Stillness(1s))); }
    static bool Await(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, 60'000);
    }
    bool AwaitAdvice(Advice advice) {
        return Await([&] { return Now().advice == advice; });
    }
    bool AwaitSentence(std::size_t number) {
        return Await([&] { return Now().number == number; });
    }
    /// Whether that sentence, now shown, is read and followed by another or the training.
    bool ReadsWell(const Sound& sound) {
        const std::size_t number = Now().number;
        Hear(sound);
        return Await([&] { return Now().number != number || Now().stage > Stage::reading; });
    }
    void ReadAll() {
        session->Start();
        for (std::size_t i = 0; i < kSentences.size(); ++i)
            ASSERT_TRUE(ReadsWell(SayAsSomebodySmall(Now().sentence))) << i;
    }
    bool AwaitEnd() {
        return Await([&] { return Now().stage == Stage::over; });
    }
    [[nodiscard]] bool AnythingIsKept() const {
        return profile->Voice() || std::filesystem::exists(folder.Path() + "/user/voice.mllr");
    }

    engine::testing::TemporaryFolder folder;
    std::unique_ptr<engine::UserProfile> profile;
    engine::testing::Microphone microphone;
    int level = 0;
    int loudest = 0;
    bool left = false;
    bool anew = false;
    std::unique_ptr<VoiceSession> session;
};

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
