// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>

namespace corvane::linux_desktop {

/// A font of the screen, whose size is in pixels at 96 dots an inch, in its true size on paper.
[[nodiscard]] inline QFont PaperFont(QFont font) {
    constexpr double kPointsAPixel = 72.0 / 96.0;
    if (font.pixelSize() > 0) font.setPointSizeF(font.pixelSize() * kPointsAPixel);
    return font;
}

}  // namespace corvane::linux_desktop
