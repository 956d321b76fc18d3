// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "linux/canvas/bitmap.h"

namespace corvane::linux_desktop {

/// The ellipse that fills the box. A wide pen runs along the middle of its edge.
void DrawEllipse(const Bitmap& bitmap, const Pen& pen, std::optional<std::uint32_t> fill,
                 const Box& box);

/// Its edge from the radial through `start` counterclockwise to the radial through `end`, without
/// the last pixel. Both in the same direction is the whole ellipse.
void DrawArc(const Bitmap& bitmap, const Pen& pen, const Box& box, POINT start, POINT end);

}  // namespace corvane::linux_desktop
