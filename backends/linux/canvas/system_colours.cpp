// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/canvas/system_colours.h"

#include <QApplication>
#include <QPalette>
#include <algorithm>
#include <array>

namespace corvane::linux_desktop {
namespace {

struct Part {
    std::int32_t index;
    QPalette::ColorRole role;
    QPalette::ColorGroup group = QPalette::Active;
};

constexpr std::array<Part, 24> kParts{{
    {0, QPalette::Mid},         // scroll bar
    {1, QPalette::Dark},        // desktop
    {2, QPalette::Highlight},   // title bar of the active window
    {3, QPalette::Mid},         // title bar of the others
    {4, QPalette::Button},      // menu
    {5, QPalette::Base},        // window
    {6, QPalette::Shadow},      // frame of windows
    {7, QPalette::ButtonText},  // menu text
    {8, QPalette::Text},        // window text
    {9, QPalette::HighlightedText},
    {10, QPalette::Button},
    {11, QPalette::Button, QPalette::Inactive},
    {12, QPalette::Mid},  // background of applications
    {13, QPalette::Highlight},
    {14, QPalette::HighlightedText},
    {15, QPalette::Button},                    // button face
    {16, QPalette::Dark},                      // button shadow
    {17, QPalette::Text, QPalette::Disabled},  // greyed text
    {18, QPalette::ButtonText},                // button text
    {19, QPalette::Text, QPalette::Inactive},  // title of the others
    {20, QPalette::Light},                     // button highlight
    {21, QPalette::Shadow},                    // dark shadow
    {22, QPalette::Midlight},                  // light
    {23, QPalette::ToolTipText},
}};

Colour AsColour(const QColor& colour) {
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

}  // namespace

Colour SystemColour(std::int32_t index) {
    const auto* const part = std::find_if(kParts.begin(), kParts.end(),
                                          [&](const Part& row) { return row.index == index; });
    const QPalette palette = QApplication::palette();
    if (part != kParts.end()) return AsColour(palette.color(part->group, part->role));
    constexpr std::int32_t kToolTip = 24;
    return index == kToolTip ? AsColour(palette.color(QPalette::ToolTipBase)) : 0;
}

QRgb PixelOf(Colour colour) {
    const Colour rgb = colour < 0 ? SystemColour(colour & 0xFFFFFF) : colour;
    return qRgb(rgb & 0xFF, rgb >> 8 & 0xFF, rgb >> 16 & 0xFF);
}

}  // namespace corvane::linux_desktop
