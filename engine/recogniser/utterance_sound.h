// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <span>

#include "engine/grammar/word_graph.h"
#include "engine/recogniser/decoder.h"

namespace corvane::engine {

/// How something was said, whatever it was.
struct UtteranceSound {
    std::chrono::milliseconds duration{};  ///< with the room before it, without that behind it
    double level = 0.0;                    ///< dB that a tenth of its frames exceed
    double clipped_share = 0.0;            ///< of its samples, at full scale
    /// Phones of the words heard, and their number a second without the pauses; 0 when it is not
    /// known what was said.
    int phones = 0;
    double pace = 0.0;
};

/// samples: the utterance without the stillness behind it.
[[nodiscard]] UtteranceSound MeasureUtterance(std::span<const std::int16_t> samples);

/// Adds the pace of a path that is to be trusted.
void MeasurePace(UtteranceSound& sound, const Path& path, const WordGraph& graph);

}  // namespace corvane::engine
