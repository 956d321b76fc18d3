// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/grammar/word_graph.h"
#include "engine/recogniser/decoder.h"
#include "platform/speech_api.h"

namespace corvane::engine {

/// How well the sound fits the words of a path, from 0, not at all, to 1. It tells speech that is
/// in the grammar from other sounds; it can't tell two phrases that sound alike.
[[nodiscard]] double ConfidenceScore(const Path& path, const WordGraph& graph);

/// The level that a score earns; README.md beside this file has the measurement.
[[nodiscard]] SpeechEngineConfidence ConfidenceLevel(double score);

}  // namespace corvane::engine
