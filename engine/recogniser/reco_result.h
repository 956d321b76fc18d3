// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "engine/recogniser/confidence.h"
#include "platform/speech_api.h"

namespace corvane::engine {

/// What was heard, and what only the engine's own tools ask for.
struct RecognisedPhrase {
    std::vector<std::string> words;  ///< in the grammar's own spelling
    std::string rule;                ///< empty for dictated text
    SpeechEngineConfidence confidence = SECLowConfidence;
    double score = 0.0;             ///< what the confidence was decided by, 0 to 1
    std::vector<Feature> features;  ///< what the score was made of
    /// Place in the stream, from the first word to the end of the last.
    std::chrono::milliseconds begin{};
    std::chrono::milliseconds end{};
    /// Where its utterance fell silent; 0 for a hypothesis.
    std::chrono::milliseconds spoken_until{};
    /// From the end of speech to the event: sound waited for and time spent on it. Of a hypothesis
    /// the time spent alone.
    std::chrono::duration<double, std::milli> latency{};
};

class RecoResult final : public ISpeechRecoResult {
public:
    explicit RecoResult(RecognisedPhrase phrase);

    [[nodiscard]] std::shared_ptr<ISpeechPhraseInfo> PhraseInfo() const override;
    /// The sound of a phrase is not kept, so that there is nothing to drop.
    void DiscardResultInfo(std::int32_t ValueTypes) override;

    [[nodiscard]] const RecognisedPhrase& Phrase() const { return *phrase_; }

private:
    std::shared_ptr<const RecognisedPhrase> phrase_;
};

}  // namespace corvane::engine
