// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "engine/grammar/word_graph.h"
#include "engine/recogniser/decoder.h"
#include "platform/speech_api.h"

namespace corvane::engine {

/// Something about a path by which its confidence is judged; docs/confidence.md tells what each
/// name means.
struct Feature {
    const char* name;
    double value;
};

/// All of them, always in the same order. A path without phone evidence or rivals has fewer.
[[nodiscard]] std::vector<Feature> FeaturesOf(const Path& path, const WordGraph& graph);

/// How likely it is, from 0 to 1, that the path's words are what was said: that it was a command,
/// and this one. Where commands are as frequent as other sounds, nine in ten of those with 0.9 are.
[[nodiscard]] double ConfidenceScore(const Path& path, const WordGraph& graph);

/// The level that a score earns; docs/confidence.md has what each threshold costs.
[[nodiscard]] SpeechEngineConfidence ConfidenceLevel(double score);

/// Whether there is any sense in telling of what has that score. Less is noise in which the search,
/// which can't but find something, has found some words.
[[nodiscard]] bool IsWorthTelling(double score);

}  // namespace corvane::engine
