// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/canvas/ellipses.h"

#include <cmath>
#include <numbers>
#include <numeric>
#include <tuple>
#include <utility>
#include <vector>

#include "linux/canvas/strokes.h"

namespace corvane::linux_desktop {
namespace {

struct Place {
    std::int64_t x = 0, y = 0;
    // The linter takes the compiler's own comparison with 0 for a pointer.
    friend auto operator<=>(const Place&, const Place&) = default;  // NOLINT
};
using Outline = std::vector<Place>;

/// All pixels of the edge, stepping from the sides to the top and bottom; each step goes where the
/// ellipse's equation is missed least.
Outline StepAlong(const Box& box) {
    Outline outline;
    std::int64_t x0 = box.left;
    std::int64_t x1 = box.right - 1;
    const std::int64_t a = x1 - x0;
    const std::int64_t b = box.bottom - 1 - box.top;
    const std::int64_t odd = b & 1;
    const auto square = [](std::int64_t n) {
        return static_cast<double>(n) * static_cast<double>(n);
    };
    double dx = 4.0 * static_cast<double>(1 - a) * square(b);
    double dy = 4.0 * static_cast<double>(odd + 1) * square(a);
    double error = dx + dy + static_cast<double>(odd) * square(a);
    std::int64_t y0 = box.top + (b + 1) / 2;
    std::int64_t y1 = y0 - odd;
    const auto mirrored = [&] {
        outline.insert(outline.end(), {{x1, y0}, {x0, y0}, {x0, y1}, {x1, y1}});
    };
    do {
        mirrored();
        const double twice = 2 * error;
        if (twice <= dy) {
            ++y0;
            --y1;
            error += dy += 8.0 * square(a);
        }
        if (twice >= dx || 2 * error > dy) {
            ++x0;
            --x1;
            error += dx += 8.0 * square(b);
        }
    } while (x0 <= x1);
    --x0;
    ++x1;
    for (; y0 - y1 <= b; ++y0, --y1) mirrored();  // the tips of a narrow one
    return outline;
}

/// The pixels of the edge in the rows and columns of the bitmap alone, for an ellipse that is much
/// larger.
Outline Reckon(const Box& box, const Bitmap& bitmap, std::int64_t margin) {
    Outline outline;
    const double a = static_cast<double>(box.right - 1 - box.left) / 2;
    const double b = static_cast<double>(box.bottom - 1 - box.top) / 2;
    const double cx = static_cast<double>(box.left) + a;
    const double cy = static_cast<double>(box.top) + b;
    const auto half = [](double radius, double other, double off) {
        const double part = other > 0 ? off / other : 0;
        return radius * std::sqrt(std::max(0.0, 1 - part * part));
    };
    const auto whole = [](double value) { return std::llround(value); };
    const std::int64_t last_row = std::min<std::int64_t>(box.bottom, bitmap.height + margin);
    for (std::int64_t y = std::max(box.top, -margin); y < last_row; ++y) {
        const double h = half(a, b, static_cast<double>(y) - cy);
        outline.insert(outline.end(), {{whole(cx - h), y}, {whole(cx + h), y}});
    }
    const std::int64_t last_column = std::min<std::int64_t>(box.right, bitmap.width + margin);
    for (std::int64_t x = std::max(box.left, -margin); x < last_column; ++x) {
        const double h = half(b, a, static_cast<double>(x) - cx);
        outline.insert(outline.end(), {{x, whole(cy - h)}, {x, whole(cy + h)}});
    }
    return outline;
}

Outline OutlineOf(const Box& box, const Bitmap& bitmap, const Pen& pen) {
    constexpr std::int64_t kLarge = 8192;
    const bool large = box.right - box.left > kLarge || box.bottom - box.top > kLarge;
    Outline outline = large ? Reckon(box, bitmap, pen.width) : StepAlong(box);
    std::sort(outline.begin(), outline.end());
    outline.erase(std::unique(outline.begin(), outline.end()), outline.end());
    return outline;
}

void Stroke(const Bitmap& bitmap, const Pen& pen, const Outline& outline) {
    for (const Place& place : outline) {
        const bool near = place.x > -kFarthest && place.x < kFarthest && place.y > -kFarthest &&
                          place.y < kFarthest;
        if (near)
            DrawSpot(bitmap, pen,
                     {static_cast<std::int32_t>(place.x), static_cast<std::int32_t>(place.y)});
    }
}

void FillInside(const Bitmap& bitmap, std::uint32_t colour, const Outline& outline) {
    const auto rows = static_cast<std::size_t>(bitmap.height);
    std::vector<std::pair<std::int64_t, std::int64_t>> spans(rows, {1, 0});
    for (const Place& place : outline) {
        if (place.y < 0 || place.y >= bitmap.height) continue;
        auto& [left, right] = spans[static_cast<std::size_t>(place.y)];
        if (left > right) left = right = place.x;
        left = std::min(left, place.x);
        right = std::max(right, place.x);
    }
    for (std::size_t y = 0; y < rows; ++y)
        if (spans[y].first <= spans[y].second)
            bitmap.Span(spans[y].first, spans[y].second + 1, static_cast<std::int64_t>(y), colour);
}

}  // namespace

void DrawEllipse(const Bitmap& bitmap, const Pen& pen, std::optional<std::uint32_t> fill,
                 const Box& box) {
    if (box.Empty()) return;
    const Outline outline = OutlineOf(box, bitmap, pen);
    if (fill) FillInside(bitmap, *fill, outline);
    Stroke(bitmap, pen, outline);
}

void DrawArc(const Bitmap& bitmap, const Pen& pen, const Box& box, POINT start, POINT end) {
    if (box.Empty()) return;
    constexpr double kTurn = 2 * std::numbers::pi;
    // The ends are seen from the whole pixel in the middle. A place of the edge that lies exactly
    // in their direction comes behind it in the upper half, and before it in the lower: so the
    // reference drawings have it.
    constexpr double kHardly = 1e-9;
    const auto direction = [&](POINT end_point) {
        const std::int64_t x = end_point.x - std::midpoint(box.left, box.right);
        const std::int64_t y = std::midpoint(box.top, box.bottom) - end_point.y;
        const double angle = std::atan2(static_cast<double>(y), static_cast<double>(x));
        return angle < 0 ? angle + kHardly : angle - kHardly;
    };
    const auto around = [&](double angle) { return angle < 0 ? angle + kTurn : angle; };
    const double from = direction(start);
    const double turned = std::remainder(direction(end) - from, kTurn);
    const double length = std::fabs(turned) < kHardly ? kTurn : around(turned);

    struct Part {
        double at;     // how far behind the start
        double aside;  // of two that are counted as one direction, which comes first
        Place place;
    };
    std::vector<Part> parts;
    for (const Place& place : OutlineOf(box, bitmap, pen)) {
        // Counted in whole pixels from the axes: of an even side, the two in the middle both lie on
        // the axis.
        const std::int64_t twice_x = 2 * place.x - (box.left + box.right - 1);
        const std::int64_t twice_y = box.top + box.bottom - 1 - 2 * place.y;
        const double counted =
            std::atan2(static_cast<double>(twice_y / 2), static_cast<double>(twice_x / 2));
        const double exact = std::atan2(static_cast<double>(twice_y), static_cast<double>(twice_x));
        const double at = around(std::remainder(counted - from, kTurn));
        if (at <= length) parts.push_back({at, std::remainder(exact - counted, kTurn), place});
    }
    std::sort(parts.begin(), parts.end(), [](const Part& a, const Part& b) {
        return std::tie(a.at, a.aside, a.place) < std::tie(b.at, b.aside, b.place);
    });
    const bool flat = box.right - box.left <= 2 || box.bottom - box.top <= 2;
    if (!parts.empty() && !flat) parts.pop_back();
    Outline outline;
    for (const Part& part : parts) outline.push_back(part.place);
    Stroke(bitmap, pen, outline);
}

}  // namespace corvane::linux_desktop
