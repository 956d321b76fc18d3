// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QRect>
#include <QString>
#include <cmath>
#include <string_view>

#include "platform/controls.h"

/// How the system's own measures look on the screen.
namespace corvane::linux_desktop {

[[nodiscard]] constexpr int Pixels(int twips) {
    return twips / kTwipsPerPixel;
}

/// To the nearest pixel.
[[nodiscard]] inline int Pixels(float twips) {
    return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}

[[nodiscard]] constexpr int ToTwips(int pixels) {
    return pixels * kTwipsPerPixel;
}

[[nodiscard]] QRect PixelPlace(const ComputedPlace& place);

/// Where a control stands in its holder, in pixels. A line is one pixel thick.
[[nodiscard]] QRect PixelPlace(const ControlDescription& control);

/// The font of windows and their controls: 8.25 points at 96 dots an inch.
[[nodiscard]] QFont DialogFont();

/// At 96 dots an inch; where the family is missing, one that is as wide.
[[nodiscard]] QFont FontOf(const FontDescription& description);

[[nodiscard]] inline QString Words(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace corvane::linux_desktop
