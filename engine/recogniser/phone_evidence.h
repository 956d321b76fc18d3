// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "engine/recogniser/decoder.h"
#include "engine/recogniser/model_definition.h"
#include "engine/recogniser/senone_scores.h"

namespace corvane::engine {

/// How the phones of a path hold against the utterance; nothing if they can't be laid out in it.
[[nodiscard]] std::optional<PhoneEvidence> EvidenceOf(const std::vector<PathSegment>& segments,
                                                      const SenoneScores& scores,
                                                      const ModelDefinition& model);

}  // namespace corvane::engine
