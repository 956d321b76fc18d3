// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/voice_training.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "engine/adaptation/reading_sentences.h"
#include "engine/grammar/dictionary.h"
#include "engine/recogniser/phone_evidence.h"
#include "engine/speech_engine.h"
#include "platform/error.h"
#include "support/generated_sound.h"
#include "support/speech.h"
#include "support/temporary_folder.h"

namespace corvane::engine {
namespace {

using testing::Say;
using testing::Sound;

const std::vector<std::string> kSentences{"The yellow boat slowly turned towards the harbour wall.",
                                          "Please bring a thick blanket and five warm pillows.",
                                          "Joyce could hear the church bells ring at noon.",
                                          "We usually measure the garden before the spring.",
                                          "My uncle enjoys good coffee after a long walk.",
                                          "The judge asked the witness about the strange noise.",
                                          "He threw the heavy ball over the fence with both hands.",
                                          "A cold wind blew across the empty beach all night."};

class ModelTest : public ::testing::Test {
protected:
    SpeechEngineConfig config;
    ModelDefinition definition = *ModelDefinition::Load(config.acoustic_model);
    GaussianModel model = *GaussianModel::Load(config.acoustic_model, definition);
};

TEST_F(ModelTest, AModelOfAnotherKindHasNoGaussiansForUs) {
    const testing::TemporaryFolder empty;
    EXPECT_FALSE(GaussianModel::Load(empty.Path(), definition));
    EXPECT_THROW(VoiceTraining(empty.Path(), config.dictionary), RuntimeError);
}

TEST_F(ModelTest, TheSentencesToReadHoldEverySound) {
    std::set<std::string> words;
    for (const std::string_view sentence : kReadingSentences) {
        std::istringstream rest{std::string(sentence)};
        for (std::string word; rest >> word;) {
            std::erase_if(word,
                          [](char sign) { return sign == '.' || sign == ',' || sign == '?'; });
            words.insert(word);
        }
    }
    std::set<std::string> sounds;
    for (const auto& [word, ways] : Dictionary(config.dictionary).Find(words)) {
        std::istringstream phones(ways.front());
        for (std::string phone; phones >> phone;) sounds.insert(phone);
    }
    EXPECT_EQ(sounds.size(), 39U);
}

TEST_F(ModelTest, WhoHasReadNothingIsTakenForAVoiceOfTheModel) {
    const SpeakerTransform transform = VoiceStatistics(model).Estimate(model, 100.0);
    for (const auto& stream : transform.streams) {
        for (std::size_t row = 0; row < kStreamSize; ++row) {
            EXPECT_NEAR(stream.b[row], 0.0, 1e-4);
            for (std::size_t i = 0; i < kStreamSize; ++i)
                EXPECT_NEAR(stream.a[row][i], row == i ? 1.0 : 0.0, 1e-4);
        }
    }
}

TEST_F(ModelTest, AVoiceThatIsAKnownTransformIsFound) {
    SpeakerTransform known = SpeakerTransform::Identity();
    known.streams[0].b[0] = 5.0F;
    known.streams[0].a[1][1] = 0.9F;
    known.streams[1].a[2][3] = 0.1F;
    const GaussianModel adapted = model.Adapted(known);

    std::mt19937 random(1);
    std::vector<FeatureFrame> frames;
    std::vector<SaidSenone> said;
    for (std::size_t frame = 0; frame < 4000; ++frame) {
        const auto senone = static_cast<std::uint16_t>(random() % definition.Senones());
        FeatureFrame features{};
        for (std::size_t stream = 0; stream < kStreams; ++stream) {
            const auto& gaussians = adapted.Gaussians(model.CodebookOf(senone), stream);
            std::array<double, GaussianModel::kDensities> weights{};
            for (std::size_t density = 0; density < weights.size(); ++density)
                weights[density] = model.Weight(senone, stream, density);
            const std::size_t density =
                std::discrete_distribution<std::size_t>(weights.begin(), weights.end())(random);
            for (std::size_t i = 0; i < kStreamSize; ++i)
                features[stream][i] = std::normal_distribution<float>(
                    gaussians.means[i][density],
                    1.0F / std::sqrt(gaussians.precisions[i][density]))(random);
        }
        frames.push_back(features);
        said.push_back({.frame = frame, .senone = senone});
    }
    VoiceStatistics statistics(model);
    statistics.Add(frames, said, adapted);
    EXPECT_EQ(statistics.Frames(), 4000.0);
    const SpeakerTransform found = statistics.Estimate(model, 0.0);
    EXPECT_NEAR(found.streams[0].b[0], 5.0F, 0.5);
    EXPECT_NEAR(found.streams[0].a[1][1], 0.9F, 0.04);
    EXPECT_NEAR(found.streams[1].a[2][3], 0.1F, 0.04);
    EXPECT_NEAR(found.streams[2].a[5][5], 1.0F, 0.04);
}

class VoiceTrainingTest : public ModelTest {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }
    VoiceTraining training{config.acoustic_model, config.dictionary};
};

TEST_F(VoiceTrainingTest, SenonesCostWhatTheDecoderReckons) {
    const Sound sound = Say("the date today", "slt");
    Lexicon lexicon{Dictionary(config.dictionary)};
    const Grammar grammar{
        .rules = {{.name = "r",
                   .id = 0,
                   .marked_active = true,
                   .elements = {{.optional = false, .choices = {{"the", "date", "today"}}}}}}};
    lexicon.Learn(grammar);
    const std::vector<const GrammarRule*> rules{grammar.rules.data()};
    Decoder decoder(config.acoustic_model);
    decoder.SetGraph(CompileGraph(rules, lexicon));
    const Path path = decoder.Decode(sound);
    ASSERT_TRUE(path.evidence);

    const auto frames = FeatureExtractor(config.acoustic_model).Extract(sound);
    const auto own = EvidenceOf(path.segments, model.Score(frames), definition);
    ASSERT_TRUE(own);
    EXPECT_NEAR(own->mean_fit, path.evidence->mean_fit, 0.1);
    EXPECT_NEAR(own->over_loop, path.evidence->over_loop, 0.1);
}

TEST_F(VoiceTrainingTest, SomethingElseThanTheSentenceIsNoReading) {
    EXPECT_EQ(training.Read(kSentences[0], Say(kSentences[1])), ReadingVerdict::other);
    EXPECT_EQ(training.Read(kSentences[0], Say("the yellow boat")), ReadingVerdict::other);
    EXPECT_EQ(training.Read(kSentences[0], testing::Stillness(std::chrono::seconds(3))),
              ReadingVerdict::other);
    EXPECT_EQ(training.Read(kSentences[0], {}), ReadingVerdict::nothing);
    EXPECT_EQ(training.Read(" ... ", Say(kSentences[0])), ReadingVerdict::no_words);
    EXPECT_EQ(training.Sentences(), 0U);
    EXPECT_EQ(training.Read(kSentences[0], Say(kSentences[0])), ReadingVerdict::good);
    EXPECT_EQ(training.Sentences(), 1U);
}

TEST_F(VoiceTrainingTest, PrintedSignsAreReadAsTypedOnes) {
    const Sound sound = Say("Don't say that the boat isn't ours, it's not true.");
    EXPECT_EQ(
        training.Read("\u201cDon\u2019t say that the boat isn\u2019t ours \u2014 it\u2019s not "
                      "true\u2026\u201d",
                      sound),
        ReadingVerdict::good);
    EXPECT_EQ(training.Read(" \u2018\u2026\u2019 \u2014 ", sound), ReadingVerdict::no_words);
}

TEST_F(VoiceTrainingTest, AFewSentencesTrainNothing) {
    for (std::size_t i = 0; i + 1 < VoiceTraining::kFewestSentences; ++i)
        ASSERT_EQ(training.Read(kSentences[i], Say(kSentences[i])), ReadingVerdict::good);
    EXPECT_FALSE(training.Train().transform);
}

TEST_F(VoiceTrainingTest, AVoiceUnlikeTheModelsIsLearnt) {
    for (const std::string& sentence : kSentences)
        EXPECT_EQ(training.Read(sentence, testing::SayAsSomebodySmall(sentence)),
                  ReadingVerdict::good);
    const TrainingResult result = training.Train();
    EXPECT_TRUE(result.transform);
    EXPECT_GT(result.after, result.before + 0.02);
}

TEST_F(VoiceTrainingTest, AForgottenReadingIsNoneOfTheTraining) {
    ASSERT_EQ(training.Read(kSentences[0], Say(kSentences[0])), ReadingVerdict::good);
    training.Forget();
    EXPECT_EQ(training.Sentences(), 0U);
    training.Forget();
    EXPECT_EQ(training.Sentences(), 0U);
}

TEST_F(VoiceTrainingTest, TrainingTellsHowFarItIsAndStopsWhenItIsTold) {
    for (std::size_t i = 0; i < VoiceTraining::kFewestSentences; ++i)
        ASSERT_EQ(training.Read(kSentences[i], testing::SayAsSomebodySmall(kSentences[i])),
                  ReadingVerdict::good);
    std::vector<double> told;
    const TrainingResult all = training.Train([&](double done) {
        told.push_back(done);
        return true;
    });
    EXPECT_TRUE(all.transform);
    EXPECT_TRUE(std::ranges::is_sorted(told));
    EXPECT_EQ(told.front(), 0.0);
    EXPECT_EQ(told.back(), 1.0);

    for (const std::size_t last : {std::size_t{0}, told.size() / 2, told.size() - 1}) {
        std::size_t times = 0;
        EXPECT_FALSE(training.Train([&](double) { return times++ < last; }).transform);
        EXPECT_EQ(times, last + 1);
    }
}

TEST_F(VoiceTrainingTest, WhatDoesNotHelpOnSentencesHeldBackIsNotKept) {
    // Four people, so that what is learnt of three says nothing of the fourth.
    constexpr std::array kSizes{0.85, 1.3, 1.0, 1.15};
    for (std::size_t i = 0; i < kSentences.size(); ++i)
        (void)training.Read(kSentences[i],
                            testing::Smaller(Say(kSentences[i], i % 2 == 0 ? "rms" : "slt"),
                                             kSizes.at(i % kSizes.size())));
    ASSERT_GE(training.Sentences(), VoiceTraining::kFewestSentences);
    const TrainingResult result = training.Train();
    EXPECT_FALSE(result.transform) << result.before << " to " << result.after;
}

TEST_F(VoiceTrainingTest, WhatIsLearntMustSurpassTheVoiceThatThereIs) {
    // A thorough training first, then a hasty one.
    for (const std::string& sentence : kSentences)
        ASSERT_EQ(training.Read(sentence, testing::SayAsSomebodySmall(sentence)),
                  ReadingVerdict::good);
    const TrainingResult thorough = training.Train();
    ASSERT_TRUE(thorough.transform);

    const auto train_hastily = [&](std::shared_ptr<const SpeakerTransform> voice) {
        VoiceTraining hasty(config.acoustic_model, config.dictionary, {}, voice);
        for (std::size_t i = 0; i < VoiceTraining::kFewestSentences; ++i)
            (void)hasty.Read(kSentences[i], testing::SayAsSomebodySmall(kSentences[i]));
        EXPECT_EQ(hasty.Sentences(), VoiceTraining::kFewestSentences);
        return hasty.Train();
    };
    EXPECT_TRUE(train_hastily({}).transform) << "better than nothing";
    const TrainingResult hasty =
        train_hastily(std::make_shared<const SpeakerTransform>(*thorough.transform));
    EXPECT_FALSE(hasty.transform) << hasty.before << " to " << hasty.after;
    EXPECT_GT(hasty.before, thorough.before) << "the voice is known already";
}

}  // namespace
}  // namespace corvane::engine
