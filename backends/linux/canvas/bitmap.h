// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/gdi32.h"

namespace corvane::linux_desktop {

/// Pixels of 32 bits each that somebody else owns. What lies outside is not drawn.
struct Bitmap {
    std::uint32_t* pixels = nullptr;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t stride = 0;  ///< from row to row, in pixels

    [[nodiscard]] std::uint32_t* Row(std::int64_t y) const { return pixels + y * stride; }

    void Set(std::int64_t x, std::int64_t y, std::uint32_t colour) const {
        if (x >= 0 && y >= 0 && x < width && y < height) Row(y)[x] = colour;
    }
    /// Pixels from left up to, and without, right.
    void Span(std::int64_t left, std::int64_t right, std::int64_t y, std::uint32_t colour) const {
        if (y < 0 || y >= height) return;
        left = std::max<std::int64_t>(left, 0);
        right = std::min<std::int64_t>(right, width);
        if (left < right) std::fill(Row(y) + left, Row(y) + right, colour);
    }
    void Fill(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom,
              std::uint32_t colour) const {
        top = std::max<std::int64_t>(top, 0);
        bottom = std::min<std::int64_t>(bottom, height);
        for (std::int64_t y = top; y < bottom; ++y) Span(left, right, y, colour);
    }
};

/// Right and bottom are exclusive.
struct Box {
    std::int64_t left = 0, top = 0, right = 0, bottom = 0;

    [[nodiscard]] bool Empty() const { return left >= right || top >= bottom; }
};

struct Pen {
    std::uint32_t colour = 0;
    std::int32_t width = 1;
};

/// Places beyond this are taken for it: far outside of every surface, and still exact to reckon
/// with.
inline constexpr std::int32_t kFarthest = 1 << 27;

[[nodiscard]] inline POINT Within(POINT place) {
    return {std::clamp(place.x, -kFarthest, kFarthest), std::clamp(place.y, -kFarthest, kFarthest)};
}

}  // namespace corvane::linux_desktop
