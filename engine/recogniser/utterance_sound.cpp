// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/utterance_sound.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <vector>

#include "engine/recogniser/endpointer.h"
#include "engine/recogniser/sound_level.h"

namespace corvane::engine {
namespace {

/// Some sound cards stop a little short of the largest sample.
constexpr int kFullScale = 32700;

bool Clipped(std::int16_t sample) {
    return std::abs(static_cast<int>(sample)) >= kFullScale;
}

}  // namespace

UtteranceSound MeasureUtterance(std::span<const std::int16_t> samples) {
    std::vector<double> levels;
    for (std::span<const std::int16_t> rest = samples; rest.size() >= Endpointer::kFrameSamples;
         rest = rest.subspan(Endpointer::kFrameSamples))
        levels.push_back(Decibels(rest.first(Endpointer::kFrameSamples)));
    if (levels.empty()) return {};

    const auto tenth = levels.begin() + std::ssize(levels) / 10;
    std::ranges::nth_element(levels, tenth, std::greater<>());
    return {.duration = std::chrono::milliseconds(1000 * std::ssize(samples) / kSampleRate),
            .level = *tenth,
            .clipped_share = static_cast<double>(std::ranges::count_if(samples, Clipped)) /
                             static_cast<double>(samples.size()),
            .phones = 0,
            .pace = 0.0};
}

void MeasurePace(UtteranceSound& sound, const Path& path, const WordGraph& graph) {
    int frames = 0;
    sound.phones = 0;
    for (const PathSegment& segment : path) {
        if (segment.word == PathSegment::kFiller) continue;
        const auto& ways = graph.words[static_cast<std::size_t>(segment.word)].pronunciations;
        if (ways.empty()) continue;
        sound.phones += 1 + static_cast<int>(std::ranges::count(ways.front(), ' '));
        frames += segment.last_frame - segment.first_frame + 1;
    }
    sound.pace = frames == 0 ? 0.0 : sound.phones * double{Endpointer::kFramesPerSecond} / frames;
}

}  // namespace corvane::engine
