// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/recogniser/decoder.h"
#include "engine/recogniser/model_definition.h"
#include "engine/recogniser/senone_scores.h"

namespace corvane::engine {

/// Where one phone of a path lies in the utterance.
struct AlignedPhone {
    std::size_t phone = 0;
    std::size_t word = 0;  ///< how many words of the path come before its own
    std::size_t first_frame = 0;
    std::vector<std::uint8_t> states;    ///< 0 to 2, one for each of its frames
    std::vector<std::uint16_t> senones;  ///< one for each of its frames
    double score = 0.0;                  ///< sum over its frames, in the unit of the senones
};

/// Finds the phones of a path's words, each word's inside its own frames, by the triphones'
/// senones. Nothing if a word is too short for its phones or has one that the model lacks.
[[nodiscard]] std::optional<std::vector<AlignedPhone>> Align(
    const std::vector<PathSegment>& segments, const SenoneScores& scores,
    const ModelDefinition& model);

}  // namespace corvane::engine
