// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cmath>
#include <csignal>

#include "engine/grammar/grammar_loader.h"
#include "engine/recogniser/confidence.h"
#include "engine/recogniser/decoder.h"
#include "engine/speech_engine.h"
#include "support/room.h"
#include "support/speech.h"

namespace corvane::engine {
namespace {

/// No file may grow beyond this, as if memory for the log had run out.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before_);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit less{.rlim_cur = bytes, .rlim_max = before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &less);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

class DecoderLog : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
        const SpeechEngineConfig config;
        grammar_ = ParseGrammar(testing::GrammarOf(testing::RuleOf("the time", "what time is it")));
        Lexicon lexicon{Dictionary(config.dictionary)};
        lexicon.Learn(grammar_);
        const GrammarRule* rule = &grammar_.rules.front();
        graph_ = CompileGraph({&rule, 1}, lexicon);
        decoder_ = std::make_unique<Decoder>(config.acoustic_model);
        decoder_->SetGraph(graph_);
        said_ = testing::Say("what time is it");
    }

    Grammar grammar_;
    WordGraph graph_;
    std::unique_ptr<Decoder> decoder_;
    testing::Sound said_;
};

/// The sound's scores, summed.
double AcousticOf(const Path& path) {
    double sum = 0.0;
    for (const PathSegment& segment : path) sum += segment.acoustic;
    return sum;
}

TEST_F(DecoderLog, WholeUtteranceIsNormalisedByItselfAlsoBehindALivePass) {
    const double before = AcousticOf(decoder_->Decode(said_));
    decoder_->BeginLive();
    decoder_->FeedLive(testing::Say("what time is it", "rms"));
    decoder_->EndLive();
    // Dither moves it by some thousandths.
    EXPECT_NEAR(AcousticOf(decoder_->Decode(said_)), before, 0.02 * std::abs(before));
}

TEST_F(DecoderLog, AWholeUtteranceHasEvidenceOfItsPhones) {
    const Path path = decoder_->Decode(said_);
    ASSERT_TRUE(path.evidence);
    EXPECT_EQ(path.evidence->phones, 10.0);
    EXPECT_EQ(ConfidenceLevel(ConfidenceScore(path, graph_)), SECHighConfidence);
}

TEST_F(DecoderLog, ALiveUtteranceHasNoneAndTheNextWholeOneHas) {
    decoder_->BeginLive();
    decoder_->FeedLive(said_);
    EXPECT_FALSE(decoder_->LivePath().segments.empty());
    EXPECT_FALSE(decoder_->LivePath().evidence);
    EXPECT_TRUE(decoder_->Decode(said_).evidence);
}

TEST_F(DecoderLog, WithoutRoomForTheLogThePhraseIsHeardAllTheSame) {
    Path path;
    {
        const FileSizeLimit limit(100'000);
        path = decoder_->Decode(said_);
    }
    EXPECT_FALSE(path.evidence);
    EXPECT_FALSE(path.segments.empty());
    EXPECT_FALSE(decoder_->Decode(said_).segments.empty());
}

TEST_F(DecoderLog, WithoutRoomForTheLogHypothesesGoOn) {
    const FileSizeLimit limit(0);
    decoder_->BeginLive();
    decoder_->FeedLive(said_);
    EXPECT_FALSE(decoder_->LivePath().segments.empty());
}

}  // namespace
}  // namespace corvane::engine
