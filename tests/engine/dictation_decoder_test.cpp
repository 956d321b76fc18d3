// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/dictation_decoder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "engine/speech_engine.h"
#include "platform/error.h"
#include "support/error_of.h"
#include "support/speech.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

using testing::ErrorOf;
using testing::Say;
using testing::Sound;

DictationModel InstalledModel() {
    const SpeechEngineConfig config;
    return {.acoustic_model = config.acoustic_model,
            .dictionary = config.dictionary,
            .language_model = config.language_model};
}

std::string Joined(const DictatedText& text) {
    std::string joined;
    for (const DictatedText::Word& word : text.words)
        joined += (joined.empty() ? "" : " ") + word.text;
    return joined;
}

class DictationDecoding : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }
};

TEST_F(DictationDecoding, SameSoundIsTheSameTextWhateverWasHeardBefore) {
    DictationDecoder decoder(InstalledModel());
    const Sound thanks = Say("thank you very much for your help");
    const DictatedText first = decoder.Decode(thanks);
    const Sound other = Say("can you come on friday question mark", "rms");
    decoder.BeginLive();
    decoder.FeedLive(other);
    (void)decoder.LiveText();
    (void)decoder.Decode(other);
    const DictatedText second = decoder.Decode(thanks);
    EXPECT_FALSE(first.words.empty());
    EXPECT_EQ(Joined(first), Joined(second));
    EXPECT_EQ(first.certainty, second.certainty);
    EXPECT_EQ(first.acoustic, second.acoustic);
}

TEST_F(DictationDecoding, WordsHaveTheirPlacesOneBehindTheOther) {
    DictationDecoder decoder(InstalledModel());
    const Sound said = Say("i think so comma but i am not sure period", "rms");
    const DictatedText text = decoder.Decode(said);
    EXPECT_EQ(Joined(text), "i think so @comma but i am not sure @period");
    for (std::size_t i = 0; i < text.words.size(); ++i) {
        EXPECT_LE(text.words[i].first_frame, text.words[i].last_frame);
        if (i > 0) {
            EXPECT_GT(text.words[i].first_frame, text.words[i - 1].last_frame);
        }
    }
    EXPECT_LT(text.words.back().last_frame, static_cast<int>(said.size() / 160));
    EXPECT_GT(text.certainty, 0.0);
    EXPECT_LE(text.certainty, 1.0);
}

DictatedText LiveTextOf(DictationDecoder& decoder, const Sound& sound) {
    decoder.BeginLive();
    decoder.FeedLive(sound);
    return decoder.LiveText();
}

TEST_F(DictationDecoding, WordsOfOnesOwnAreFoundLiveAndInTheEndWithMarksBehindThem) {
    DictationModel model = InstalledModel();
    model.personal.words = {{"zorbel", {"Z AO R B EH L"}}};
    model.personal.sentences = {"open the zorbel"};
    DictationDecoder decoder(model);
    const Sound said = Say("please open the zorbel comma and then close it period");
    EXPECT_NE(Joined(LiveTextOf(decoder, said)).find("open the zorbel @comma"), std::string::npos)
        << Joined(LiveTextOf(decoder, said));
    EXPECT_EQ(Joined(decoder.Decode(said)),
              "please open the zorbel @comma and then close it @period");
}

TEST_F(DictationDecoding, TheVoiceThatIsExpectedIsSoLiveAndInTheEnd) {
    const Sound thanks = Say("thank you very much for your help");
    DictationDecoder usual(InstalledModel());
    DictationModel model = InstalledModel();
    // So far away that nobody has it.
    SpeakerTransform far = SpeakerTransform::Identity();
    for (std::size_t i = 0; i < kStreamSize; ++i) far.streams[0].a[i][i] = -1.0F;
    model.voice = std::make_shared<const SpeakerTransform>(far);
    DictationDecoder other(model);
    EXPECT_NE(Joined(LiveTextOf(other, thanks)), Joined(LiveTextOf(usual, thanks)));
    EXPECT_EQ(Joined(usual.Decode(thanks)), "thank you very much for your help");
    EXPECT_NE(Joined(other.Decode(thanks)), "thank you very much for your help");
}

TEST_F(DictationDecoding, StillnessIsNoText) {
    DictationDecoder decoder(InstalledModel());
    EXPECT_TRUE(decoder.Decode({}).words.empty());
    EXPECT_TRUE(decoder.Decode(Sound(160)).words.empty());
}

TEST(DictationModelCheck, InstalledModelPasses) {
    EXPECT_EQ(ErrorOf([] { CheckDictationModel(InstalledModel()); }), 0);
}

TEST(DictationModelCheck, MissingFileRaises) {
    for (std::string DictationModel::*file :
         {&DictationModel::acoustic_model, &DictationModel::dictionary,
          &DictationModel::language_model}) {
        DictationModel model = InstalledModel();
        model.*file = "/nowhere";
        EXPECT_EQ(ErrorOf([&] { CheckDictationModel(model); }), kAutomationError);
        EXPECT_EQ(ErrorOf([&] { const DictationDecoder decoder(model); }), kAutomationError);
    }
}

TEST(DictationModelCheck, FileThatHoldsNoNgramsRaises) {
    const testing::TemporaryFile rubbish("this is no language model");
    DictationModel model = InstalledModel();
    model.language_model = rubbish.Path();
    EXPECT_EQ(ErrorOf([&] { CheckDictationModel(model); }), kAutomationError);
    EXPECT_EQ(ErrorOf([&] { const DictationDecoder decoder(model); }), kAutomationError);
}

}  // namespace
}  // namespace corvane::engine
