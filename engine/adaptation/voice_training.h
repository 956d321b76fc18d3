// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/adaptation/feature_extractor.h"
#include "engine/adaptation/gaussian_model.h"
#include "engine/adaptation/speaker_transform.h"
#include "engine/adaptation/transform_estimate.h"
#include "engine/grammar/lexicon.h"
#include "engine/recogniser/decoder.h"
#include "engine/recogniser/model_definition.h"

namespace corvane::engine {

/// Whether somebody read what was to be read.
enum class ReadingVerdict : std::uint8_t {
    good,      ///< it is kept for the training
    other,     ///< something else, or not all of it, was said
    nothing,   ///< there was no sound
    no_words,  ///< the sentence has no word that can be said
};

/// What a training has come to.
struct TrainingResult {
    /// How far the sentences stand out of any string of phones, mean over their frames, in the
    /// decoder's unit by a hundred, 0 at best: as this voice is heard until now, and as it would be
    /// with a transform made of other sentences of it.
    double before = 0.0;
    double after = 0.0;
    /// Made of all sentences; nothing if on sentences held back it does not help.
    std::optional<SpeakerTransform> transform;
};

/// Learns one person's voice from sentences that were read aloud. For one thread at a time; may be
/// any, so that a window need not wait for it.
class VoiceTraining {
public:
    /// What is good of fewer sentences than this, or shorter, tells more of the words than of the
    /// voice.
    static constexpr std::size_t kFewestSentences = 5;

    using GoOn = std::function<bool(double done)>;

    /// voice: of an earlier training, which this one must surpass; empty: one of the model's.
    /// Raises kAutomationError when the model can't be read, or is not of the kind that can be
    /// trained.
    VoiceTraining(const std::string& acoustic_model, const std::string& dictionary,
                  const std::map<std::string, std::vector<std::string>>& user_words = {},
                  const std::shared_ptr<const SpeakerTransform>& voice = {});

    /// sound: 16 kHz, with stillness around the words.
    [[nodiscard]] ReadingVerdict Read(const std::string& sentence,
                                      std::span<const std::int16_t> sound);

    /// Takes the last sentence that was read well for not read.
    void Forget();

    /// Sentences that were read well.
    [[nodiscard]] std::size_t Sentences() const { return readings_.size(); }

    /// Fits a transform to all that was read well. Each sentence is also judged by a transform that
    /// was made without it, which tells whether to keep it. Nothing below kFewestSentences.
    /// go_on: told again and again which share is done, 0 to 1; once it returns false, this
    /// returns soon and with nothing.
    [[nodiscard]] TrainingResult Train(const GoOn& go_on = [](double) { return true; }) const;

private:
    struct Reading {
        std::vector<FeatureFrame> frames;
        std::vector<PathSegment> segments;
    };
    struct Heard;

    [[nodiscard]] std::optional<Heard> Hear(const Reading& reading,
                                            const GaussianModel& model) const;

    ModelDefinition definition_;
    GaussianModel model_;
    std::optional<GaussianModel> present_;  ///< as the voice is heard until now, if that is known
    FeatureExtractor features_;
    Decoder decoder_;
    Lexicon lexicon_;
    std::vector<Reading> readings_;
};

}  // namespace corvane::engine
