// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/canvas/strokes.h"

#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace corvane::linux_desktop {
namespace {

/// Whether a line that comes to lie between two pixels has already stepped aside, by its direction:
/// bit 0 steep, bit 1 to the left, bit 2 upward. Forth and back then meet the same pixels.
constexpr std::array<bool, 8> kStepsEarly{false, false, false, true, true, false, true, true};

void DrawThinLine(const Bitmap& bitmap, std::uint32_t colour, POINT from, POINT to) {
    const std::int64_t dx = std::int64_t{to.x} - from.x;
    const std::int64_t dy = std::int64_t{to.y} - from.y;
    const bool steep = std::abs(dx) < std::abs(dy);
    const std::int64_t length = std::max(std::abs(dx), std::abs(dy));
    const std::int64_t aside = std::min(std::abs(dx), std::abs(dy));
    const std::int64_t step_x = dx < 0 ? -1 : 1;
    const std::int64_t step_y = dy < 0 ? -1 : 1;
    const auto direction = (steep ? 1U : 0U) | (dx < 0 ? 2U : 0U) | (dy < 0 ? 4U : 0U);
    const std::int64_t early = kStepsEarly.at(direction) ? 0 : 1;

    // Only the part within the bitmap is gone through.
    const std::int64_t start = steep ? from.y : from.x;
    const std::int64_t step = steep ? step_y : step_x;
    const std::int64_t room = steep ? bitmap.height : bitmap.width;
    const std::int64_t first = std::max<std::int64_t>(0, step > 0 ? -start : start - (room - 1));
    const std::int64_t last = std::min(length, step > 0 ? room - start : start + 1);
    for (std::int64_t k = first; k < last; ++k) {
        const std::int64_t off = (2 * aside * k + length - early) / (2 * length);
        if (steep)
            bitmap.Set(from.x + step_x * off, from.y + step_y * k, colour);
        else
            bitmap.Set(from.x + step_x * k, from.y + step_y * off, colour);
    }
}

/// A convex shape of four corners. A pixel belongs to it when its own top left corner does.
void FillQuad(const Bitmap& bitmap, std::uint32_t colour, const std::array<POINT, 4>& corners) {
    std::int64_t top = corners[0].y;
    std::int64_t bottom = top;
    for (const POINT& corner : corners) {
        top = std::min<std::int64_t>(top, corner.y);
        bottom = std::max<std::int64_t>(bottom, corner.y);
    }
    constexpr double kRoundingError = 1e-9;
    for (std::int64_t y = std::max<std::int64_t>(0, top);
         y < std::min<std::int64_t>(bottom, bitmap.height); ++y) {
        double left = std::numeric_limits<double>::max();
        double right = std::numeric_limits<double>::lowest();
        for (std::size_t i = 0; i < corners.size(); ++i) {
            POINT a = corners.at(i);
            POINT b = corners.at((i + 1) % corners.size());
            if (a.y > b.y) std::swap(a, b);
            if (y < a.y || y >= b.y) continue;
            const double slope = (double{0} + b.x - a.x) / (double{0} + b.y - a.y);
            const double x = a.x + slope * static_cast<double>(y - a.y);
            left = std::min(left, x);
            right = std::max(right, x);
        }
        bitmap.Span(static_cast<std::int64_t>(std::ceil(left - kRoundingError)),
                    static_cast<std::int64_t>(std::ceil(right - kRoundingError)), y, colour);
    }
}

/// How far the two long sides of a wide line are apart, in whole pixels, one of them never in the
/// sense that would turn the line's sides about.
POINT Across(POINT from, POINT to, std::int32_t width) {
    const double dx = double{0} + to.x - from.x;
    const double dy = double{0} + to.y - from.y;
    if (dx == 0) return {width, 0};
    if (dy == 0) return {0, width};
    const double length = std::hypot(dx, dy);
    constexpr double kRoundingError = 1e-9;
    const auto part = [&](double side) {
        return static_cast<std::int32_t>(
            std::ceil(std::fabs(width * side / length) - kRoundingError));
    };
    const bool falling = (dx > 0) == (dy > 0);
    return {part(dy), falling ? -part(dx) : part(dx)};
}

void DrawWideLine(const Bitmap& bitmap, const Pen& pen, POINT from, POINT to) {
    DrawSpot(bitmap, pen, from);
    if (from == to) return;
    DrawSpot(bitmap, pen, to);
    const POINT across = Across(from, to, pen.width);
    const POINT back{across.x / 2, across.y / 2};
    const auto side = [&](POINT end, bool far) {
        return POINT{end.x - back.x + (far ? across.x : 0), end.y - back.y + (far ? across.y : 0)};
    };
    FillQuad(bitmap, pen.colour,
             {side(from, false), side(from, true), side(to, true), side(to, false)});
}

}  // namespace

void DrawSpot(const Bitmap& bitmap, const Pen& pen, POINT place) {
    if (pen.width <= 1) return bitmap.Set(place.x, place.y, pen.colour);
    // Slightly less than half of the width: a spot is to look round also where it is small.
    const double radius = pen.width / 2.0 - 0.25;
    const double middle =
        pen.width % 2 == 0 ? 0.5 : 0;  // an even one has its centre between pixels
    const std::int64_t reach = pen.width / 2;
    const std::int64_t first = std::max<std::int64_t>(-reach, -std::int64_t{place.y});
    const std::int64_t last = std::min<std::int64_t>(reach, bitmap.height - 1 - place.y);
    for (std::int64_t j = first; j <= last; ++j) {
        const double up = static_cast<double>(j) + middle;
        const double rest = radius * radius - up * up;
        if (rest < 0) continue;
        const double half = std::sqrt(rest);
        bitmap.Span(place.x + static_cast<std::int64_t>(std::ceil(-half - middle)),
                    place.x + static_cast<std::int64_t>(std::floor(half - middle)) + 1, place.y + j,
                    pen.colour);
    }
}

void DrawLine(const Bitmap& bitmap, const Pen& pen, POINT from, POINT to) {
    from = Within(from);
    to = Within(to);
    if (pen.width <= 1)
        DrawThinLine(bitmap, pen.colour, from, to);
    else
        DrawWideLine(bitmap, pen, from, to);
}

void DrawRectangle(const Bitmap& bitmap, const Pen& pen, std::optional<std::uint32_t> fill,
                   const Box& box) {
    if (box.Empty()) return;
    if (fill) bitmap.Fill(box.left, box.top, box.right, box.bottom, *fill);
    const std::int64_t before = pen.width / 2;
    const std::int64_t behind = std::max(1, pen.width) - before;
    const std::int64_t right = box.right - 1;
    const std::int64_t bottom = box.bottom - 1;
    const auto edge = [&](std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2) {
        bitmap.Fill(x1 - before, y1 - before, x2 + behind, y2 + behind, pen.colour);
    };
    edge(box.left, box.top, right, box.top);
    edge(box.left, bottom, right, bottom);
    edge(box.left, box.top, box.left, bottom);
    edge(right, box.top, right, bottom);
}

}  // namespace corvane::linux_desktop
