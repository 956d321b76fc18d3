// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/word_times.h"

#include <algorithm>
#include <optional>

namespace corvane::engine {
namespace {

/// The word that a character of the notation belongs to, or else the next one; words.size() where
/// nothing follows.
std::size_t WordAt(const Notation& notation, std::span<const Word> words, std::size_t character) {
    while (character < notation.origins.size() && notation.origins[character] == Notation::kNowhere)
        ++character;
    if (character >= notation.origins.size()) return words.size();
    const std::size_t origin = notation.origins[character];
    const auto word = std::ranges::find_if(
        words, [origin](const Word& w) { return w.position + w.length > origin; });
    return static_cast<std::size_t>(word - words.begin());
}

}  // namespace

std::vector<std::size_t> FindWordTimes(const Notation& notation, const Synthesis& synthesis,
                                       std::span<const Word> words) {
    if (synthesis.sound.empty() || words.empty()) return {};
    const std::size_t last_sample = synthesis.sound.size() - 1;

    std::vector<std::optional<std::size_t>> told(words.size());
    for (const Synthesis::Beginning& beginning : synthesis.beginnings) {
        const std::size_t word = WordAt(notation, words, beginning.character);
        if (word < words.size() && !told[word])
            told[word] = std::min(beginning.sample, last_sample);
    }

    std::vector<std::size_t> times(words.size());
    std::size_t next = 0;  // the first word without a time
    std::size_t known_position = words.front().position;
    std::size_t known_time = 0;
    const auto fill = [&](std::size_t until, std::size_t position, std::size_t time) {
        const double letters = static_cast<double>(position - known_position);
        for (; next < until; ++next) {
            const double share =
                static_cast<double>(words[next].position - known_position) / std::max(letters, 1.0);
            times[next] = known_time +
                          static_cast<std::size_t>(share * static_cast<double>(time - known_time));
        }
    };
    for (std::size_t word = 0; word < words.size(); ++word) {
        if (!told[word] || *told[word] < known_time) continue;
        fill(word, words[word].position, *told[word]);
        times[word] = known_time = *told[word];
        known_position = words[word].position;
        next = word + 1;
    }
    fill(words.size(), words.back().position + words.back().length, last_sample);
    return times;
}

}  // namespace corvane::engine
