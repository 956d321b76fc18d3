// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/phone_evidence.h"

#include <gtest/gtest.h>

#include <fstream>
#include <numeric>
#include <string>
#include <vector>

#include "engine/recogniser/alignment.h"
#include "engine/recogniser/phone_loop.h"
#include "engine/speech_engine.h"

namespace corvane::engine {
namespace {

constexpr std::int16_t kPoor = 200;

/// Makes utterances in which given phones fit perfectly and everything else poorly.
class PhoneEvidenceTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(model_); }

    [[nodiscard]] std::size_t Phone(const char* name) const { return *model_->Phone(name); }

    void Sound(const ModelDefinition::States& states, std::size_t frames_a_state) {
        scores_.senones = model_->Senones();
        for (const std::uint16_t senone : states) {
            for (std::size_t i = 0; i < frames_a_state; ++i) {
                scores_.costs.resize(scores_.costs.size() + scores_.senones, kPoor);
                scores_.costs[scores_.costs.size() - scores_.senones + senone] = 0;
            }
        }
    }

    /// "no" between silences, as it should sound.
    void SoundNo() {
        const std::size_t silence = model_->Silence();
        Sound(model_->Between(silence, Phone("N"), Phone("OW"), ModelDefinition::Position::first),
              2);
        Sound(model_->Between(Phone("N"), Phone("OW"), silence, ModelDefinition::Position::last),
              3);
    }

    std::optional<ModelDefinition> model_ =
        ModelDefinition::Load(SpeechEngineConfig().acoustic_model);
    SenoneScores scores_;
    std::vector<PathSegment> no_{
        {.word = 0, .first_frame = 0, .last_frame = 14, .acoustic = 0.0, .phones = "N OW"}};
};

TEST_F(PhoneEvidenceTest, TheModelTellsThePhonesOfAWordByTheirNeighbours) {
    EXPECT_EQ(model_->Phones(), 42U);
    EXPECT_EQ(model_->Silence(), Phone("SIL"));
    EXPECT_FALSE(model_->Phone("XX"));
    const auto alone = model_->Alone(Phone("OW"));
    EXPECT_EQ(alone[1], alone[0] + 1);
    EXPECT_NE(alone, model_->Between(Phone("N"), Phone("OW"), model_->Silence(),
                                     ModelDefinition::Position::last));
}

TEST_F(PhoneEvidenceTest, ATriphoneThatTheModelLacksIsItsPhoneAlone) {
    EXPECT_EQ(model_->Between(Phone("SIL"), Phone("SIL"), Phone("SIL"),
                              ModelDefinition::Position::inside),
              model_->Alone(Phone("SIL")));
}

TEST_F(PhoneEvidenceTest, WhatIsNoDefinitionIsNotLoaded) {
    EXPECT_FALSE(ModelDefinition::Load(::testing::TempDir() + "/no-such-model"));
    std::ofstream(::testing::TempDir() + "/mdef") << "BMDF and then nothing that fits";
    EXPECT_FALSE(ModelDefinition::Load(::testing::TempDir()));
}

TEST_F(PhoneEvidenceTest, PhonesAreFoundWhereTheyLie) {
    SoundNo();
    const auto phones = Align(no_, scores_, *model_);
    ASSERT_TRUE(phones);
    ASSERT_EQ(phones->size(), 2U);
    EXPECT_EQ((*phones)[0].states.size(), 6U);
    EXPECT_EQ((*phones)[1].first_frame, 6U);
    EXPECT_EQ((*phones)[1].score, 0.0);
}

TEST_F(PhoneEvidenceTest, AWordTooShortForItsPhonesHasNoEvidence) {
    SoundNo();
    no_[0].last_frame = 2;
    EXPECT_FALSE(EvidenceOf(no_, scores_, *model_));
}

TEST_F(PhoneEvidenceTest, APathThatReachesBeyondTheScoresHasNoEvidence) {
    SoundNo();
    no_[0].last_frame = 15;
    EXPECT_FALSE(EvidenceOf(no_, scores_, *model_));
}

TEST_F(PhoneEvidenceTest, AWordThatFitsStandsAboveTheLoop) {
    SoundNo();
    const auto evidence = EvidenceOf(no_, scores_, *model_);
    ASSERT_TRUE(evidence);
    EXPECT_EQ(evidence->phones, 2.0);
    EXPECT_EQ(evidence->mean_fit, 0.0);
    EXPECT_EQ(evidence->worst_quarter, 0.0);
    EXPECT_EQ(evidence->short_share, 0.0);
    EXPECT_GT(evidence->over_loop, 0.0);
    EXPECT_EQ(evidence->worst_phone, 0.0);
}

TEST_F(PhoneEvidenceTest, ThePhoneThatAnotherWasSaidInsteadOfIsTheWorst) {
    for (const char* name : {"N", "ZH"}) Sound(model_->Alone(Phone(name)), 3);
    no_[0].last_frame = 17;
    const auto evidence = EvidenceOf(no_, scores_, *model_);
    ASSERT_TRUE(evidence);
    EXPECT_LT(evidence->worst_phone, -5.0);
}

TEST_F(PhoneEvidenceTest, PhonesLieCloserTogetherInNoise) {
    SoundNo();
    const auto clear = EvidenceOf(no_, scores_, *model_);
    for (std::int16_t& cost : scores_.costs) cost = static_cast<std::int16_t>(cost / 2);
    const auto noisy = EvidenceOf(no_, scores_, *model_);
    ASSERT_TRUE(clear && noisy);
    EXPECT_NEAR(noisy->spread, clear->spread / 2, 1e-9);
}

TEST_F(PhoneEvidenceTest, AnotherWordsPhonesAreBeatenByThoseThatWereSaid) {
    for (const char* name : {"N", "OW"}) Sound(model_->Alone(Phone(name)), 3);
    no_[0].last_frame = 17;
    const auto right = EvidenceOf(no_, scores_, *model_);
    no_[0].phones = "G OW";
    const auto wrong = EvidenceOf(no_, scores_, *model_);
    ASSERT_TRUE(right && wrong);
    EXPECT_GT(wrong->mean_rank, right->mean_rank);
    EXPECT_GT(wrong->worst_word_rank, right->worst_word_rank);
}

TEST_F(PhoneEvidenceTest, TheLoopFollowsAnyPhonesAndPaysForEachButTheFirst) {
    for (const char* name : {"N", "OW", "ZH"}) Sound(model_->Alone(Phone(name)), 2);
    const PhoneLoop loop = RunPhoneLoop(scores_, *model_);
    EXPECT_EQ(loop.score, -240.0);
    EXPECT_EQ(std::accumulate(loop.frames.begin(), loop.frames.end(), 0.0), loop.score);
}

}  // namespace
}  // namespace corvane::engine
