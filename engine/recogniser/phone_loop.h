// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "engine/recogniser/model_definition.h"
#include "engine/recogniser/senone_scores.h"

namespace corvane::engine {

/// How well the utterance fits the best string of phones, whatever words they make or don't: the
/// rival of every command.
struct PhoneLoop {
    double score = 0.0;          ///< of all frames, in the unit of the senones; at best 0
    std::vector<double> frames;  ///< each frame's share of it
};

[[nodiscard]] PhoneLoop RunPhoneLoop(const SenoneScores& scores, const ModelDefinition& model);

}  // namespace corvane::engine
