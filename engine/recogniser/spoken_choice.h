// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/adaptation/speaker_transform.h"
#include "engine/grammar/word_graph.h"
#include "engine/recogniser/decoder.h"

namespace corvane::engine {

/// Hears which of a few phrases was said, as surely as a command must be heard. For one thread at a
/// time.
class SpokenChoice {
public:
    /// voice: of the one who speaks; empty: one of the model's. Raises kAutomationError when model
    /// or dictionary can't be read.
    SpokenChoice(const std::string& acoustic_model, const std::string& dictionary,
                 const std::vector<std::string>& phrases,
                 std::shared_ptr<const SpeakerTransform> voice = {});

    /// sound: 16 kHz, one utterance with stillness around it. Nothing if it was none of them.
    [[nodiscard]] std::optional<std::size_t> Heard(std::span<const std::int16_t> sound);

private:
    WordGraph graph_;
    Decoder decoder_;
};

}  // namespace corvane::engine
