// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace corvane::engine {

/// What every senone (tied state of the acoustic model) cost in each frame of an utterance: how far
/// its log likelihood lies below the best one's, in the decoder's own small unit, 0 and up.
struct SenoneScores {
    std::size_t senones = 0;
    std::vector<std::int16_t> costs;  ///< frame after frame, `senones` of them each

    [[nodiscard]] std::size_t Frames() const { return senones == 0 ? 0 : costs.size() / senones; }
    [[nodiscard]] std::span<const std::int16_t> Frame(std::size_t frame) const {
        return std::span(costs).subspan(frame * senones, senones);
    }
};

}  // namespace corvane::engine
