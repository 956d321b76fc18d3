// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/spoken_choice.h"

#include <gtest/gtest.h>

#include "engine/adaptation/reading_sentences.h"
#include "engine/speech_engine.h"
#include "support/speech.h"

namespace corvane::engine {
namespace {

using testing::Say;

class SpokenChoiceTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }
    const std::vector<std::string> phrases{"skip this sentence", "cancel the training",
                                           "close the window"};
    const SpeechEngineConfig config;
    SpokenChoice choice{config.acoustic_model, config.dictionary, phrases};
};

TEST_F(SpokenChoiceTest, EachPhraseIsHeard) {
    for (const char* voice : {"slt", "rms"})
        for (std::size_t i = 0; i < phrases.size(); ++i)
            EXPECT_EQ(choice.Heard(Say(phrases[i], voice)), i) << voice << " " << phrases[i];
}

TEST_F(SpokenChoiceTest, NoneOfTheSentencesToReadIsTakenForOne) {
    for (const char* voice : {"slt", "awb"})
        for (const std::string_view sentence : kReadingSentences)
            EXPECT_EQ(choice.Heard(Say(std::string(sentence), voice)), std::nullopt) << sentence;
}

TEST_F(SpokenChoiceTest, AnotherPhraseAndStillnessAreNone) {
    EXPECT_EQ(choice.Heard(Say("run notepad please")), std::nullopt);
    EXPECT_EQ(choice.Heard(Say("this sentence")), std::nullopt);
    EXPECT_EQ(choice.Heard(testing::Stillness(std::chrono::seconds(2))), std::nullopt);
    EXPECT_EQ(choice.Heard({}), std::nullopt);
}

}  // namespace
}  // namespace corvane::engine
