// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/recogniser/model_definition.h"
#include "engine/recogniser/senone_scores.h"

namespace corvane::engine {

/// How well the utterance fits the best string of phones, whatever words they make or don't: the
/// rival of every command. A sum over all frames in the unit of the senones, 0 at the very best and
/// else below.
[[nodiscard]] double PhoneLoopScore(const SenoneScores& scores, const ModelDefinition& model);

}  // namespace corvane::engine
