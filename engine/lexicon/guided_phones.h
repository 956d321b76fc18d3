// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

#include "engine/recogniser/model_definition.h"
#include "engine/recogniser/senone_scores.h"

namespace corvane::engine {

using PhoneString = std::vector<std::size_t>;  ///< phones of the model by their number

struct HeardPhones {
    PhoneString phones;
    double score = 0.0;  ///< in the unit of the senones, at best 0
};

/// The phones that fit the utterance best, stillness before and behind them left out. Each phone
/// that is added to the guess, or stands in another's place, or is missing costs something; with
/// an empty guess, so does each phone there is. No phones where there are no frames.
[[nodiscard]] HeardPhones HearPhones(const SenoneScores& scores, const ModelDefinition& model,
                                     const PhoneString& guess);

}  // namespace corvane::engine
