// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/alignment.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string>

namespace corvane::engine {
namespace {

using Position = ModelDefinition::Position;

// A phone may be too short for its middle state, at a price.
constexpr double kSkipCost = 10.0;
constexpr double kImpossible = -1e12;

std::optional<std::vector<std::size_t>> PhonesOf(const PathSegment& segment,
                                                 const ModelDefinition& model) {
    std::vector<std::size_t> phones;
    std::istringstream names(segment.phones);
    for (std::string name; names >> name;) {
        const auto phone = model.Phone(name);
        if (!phone) return std::nullopt;
        phones.push_back(*phone);
    }
    return phones;
}

Position PositionOf(std::size_t index, std::size_t count) {
    if (count == 1) return Position::only;
    if (index == 0) return Position::first;
    return index + 1 == count ? Position::last : Position::inside;
}

/// The senones of a word's phones, one after the other.
std::vector<std::uint16_t> SenonesOf(const std::vector<std::size_t>& phones, std::size_t before,
                                     std::size_t after, const ModelDefinition& model) {
    std::vector<std::uint16_t> senones;
    for (std::size_t i = 0; i < phones.size(); ++i) {
        const auto states = model.Between(i == 0 ? before : phones[i - 1], phones[i],
                                          i + 1 == phones.size() ? after : phones[i + 1],
                                          PositionOf(i, phones.size()));
        senones.insert(senones.end(), states.begin(), states.end());
    }
    return senones;
}

/// The best state of each frame: Viterbi from the first state to the last.
std::optional<std::vector<std::size_t>> BestStates(const std::vector<std::uint16_t>& senones,
                                                   const SenoneScores& scores, std::size_t first,
                                                   std::size_t frames) {
    const std::size_t states = senones.size();
    std::vector<double> best(states, kImpossible);
    std::vector<std::uint8_t> steps(states * frames, 0);  // how many states each frame moves on
    for (std::size_t frame = 0; frame < frames; ++frame) {
        const auto costs = scores.Frame(first + frame);
        for (std::size_t state = states; state-- > 0;) {
            double from = frame == 0 && state > 0 ? kImpossible : best[state];
            if (frame == 0 && state == 0) from = 0.0;
            std::uint8_t step = 0;
            if (frame > 0 && state >= 1 && best[state - 1] > from) {
                from = best[state - 1];
                step = 1;
            }
            if (frame > 0 && state % ModelDefinition::kStates == 2 &&
                best[state - 2] - kSkipCost > from) {
                from = best[state - 2] - kSkipCost;
                step = 2;
            }
            best[state] = from - costs[senones[state]];
            steps[frame * states + state] = step;
        }
    }
    if (best.back() < kImpossible / 2) return std::nullopt;
    std::vector<std::size_t> way(frames);
    std::size_t state = states - 1;
    for (std::size_t frame = frames; frame-- > 0;) {
        way[frame] = state;
        state -= steps[frame * states + state];
    }
    return way;
}

}  // namespace

std::optional<std::vector<AlignedPhone>> Align(const std::vector<PathSegment>& segments,
                                               const SenoneScores& scores,
                                               const ModelDefinition& model) {
    std::vector<std::vector<std::size_t>> phones;  // of each segment; a filler's none
    for (const PathSegment& segment : segments) {
        auto found = PhonesOf(segment, model);
        if (!found || (found->empty() && segment.word != PathSegment::kFiller) ||
            segment.first_frame < 0 || segment.last_frame < segment.first_frame ||
            static_cast<std::size_t>(segment.last_frame) >= scores.Frames())
            return std::nullopt;
        phones.push_back(*std::move(found));
    }

    std::vector<AlignedPhone> aligned;
    std::size_t word = 0;
    for (std::size_t i = 0; i < segments.size(); ++i) {
        if (segments[i].word == PathSegment::kFiller) continue;
        const auto first = static_cast<std::size_t>(segments[i].first_frame);
        const std::size_t frames = static_cast<std::size_t>(segments[i].last_frame) - first + 1;
        const std::size_t before =
            i == 0 || phones[i - 1].empty() ? model.Silence() : phones[i - 1].back();
        const std::size_t after = i + 1 == phones.size() || phones[i + 1].empty()
                                      ? model.Silence()
                                      : phones[i + 1].front();
        const auto senones = SenonesOf(phones[i], before, after, model);
        const auto way = BestStates(senones, scores, first, frames);
        if (!way) return std::nullopt;
        const std::size_t before_word = aligned.size();
        for (const std::size_t phone : phones[i])
            aligned.push_back(
                {.phone = phone, .word = word, .first_frame = 0, .states = {}, .senones = {}});
        for (std::size_t frame = 0; frame < frames; ++frame) {
            const std::size_t state = (*way)[frame];
            AlignedPhone& phone = aligned[before_word + state / ModelDefinition::kStates];
            if (phone.states.empty()) phone.first_frame = first + frame;
            phone.states.push_back(static_cast<std::uint8_t>(state % ModelDefinition::kStates));
            phone.senones.push_back(senones[state]);
            phone.score -= scores.Frame(first + frame)[senones[state]];
        }
        ++word;
    }
    return aligned;
}

}  // namespace corvane::engine
