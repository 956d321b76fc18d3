// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "linux/canvas/bitmap.h"

/// What is drawn with a pen. A pen of width 1 leaves exact pixels; a wider one is round, and leaves
/// whole pixels too: nothing is smoothed, so a colour that is drawn is the colour that is there.
namespace corvane::linux_desktop {

/// A round spot of the pen's width around a place.
void DrawSpot(const Bitmap& bitmap, const Pen& pen, POINT place);

/// Without the end pixel; a wide pen's round end reaches beyond it.
void DrawLine(const Bitmap& bitmap, const Pen& pen, POINT from, POINT to);

/// A wide pen runs along the middle of the edges.
void DrawRectangle(const Bitmap& bitmap, const Pen& pen, std::optional<std::uint32_t> fill,
                   const Box& box);

}  // namespace corvane::linux_desktop
