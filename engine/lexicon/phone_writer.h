// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engine/adaptation/feature_extractor.h"
#include "engine/adaptation/gaussian_model.h"
#include "engine/adaptation/speaker_transform.h"
#include "engine/lexicon/user_words.h"
#include "engine/recogniser/model_definition.h"
#include "engine/recogniser/senone_scores.h"

namespace corvane::engine {

/// Writes down how a word was said. For one thread at a time; may be any, so that a window need not
/// wait for it.
class PhoneWriter {
public:
    /// voice: whose words they are; empty: one of the model's. To load takes part of a second;
    /// raises kAutomationError when the model can't be read, or is not of the kind whose sounds can
    /// be compared one by one.
    PhoneWriter(const std::string& acoustic_model,
                const std::shared_ptr<const SpeakerTransform>& voice);

    /// The phones of what is said there, parted by blanks; empty when nothing is, or too much for a
    /// word. Sounds alone are easily mistaken, so what lies near one of the guesses is read as it:
    /// they are left only where the sound is clearly another. sound: 16 kHz, with stillness around
    /// the word.
    [[nodiscard]] std::string Write(std::span<const std::int16_t> sound,
                                    const WaysToSay& guesses) const;

private:
    ModelDefinition definition_;
    GaussianModel model_;
    FeatureExtractor features_;
};

}  // namespace corvane::engine
