// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/contrast.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace corvane::linux_desktop {
namespace {

constexpr double kReadable = 4.5;
// Greyed texts are meant to stand back, edges to be thin.
constexpr double kGreyedStillSeen = 1.5;
constexpr double kEdgeStillSeen = 1.2;

double Linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

struct Text {
    QPalette::ColorRole text;
    QPalette::ColorRole background;
};
constexpr std::array<Text, 3> kTexts{{{QPalette::WindowText, QPalette::Window},
                                      {QPalette::Text, QPalette::Base},
                                      {QPalette::ButtonText, QPalette::Button}}};

void ShowGreyedTexts(QPalette& colours) {
    for (const auto& [text, background] : kTexts) {
        const QColor below = colours.color(QPalette::Disabled, background);
        if (Contrast(colours.color(QPalette::Disabled, text), below) < kGreyedStillSeen)
            colours.setColor(QPalette::Disabled, text,
                             Blend(below, colours.color(QPalette::Active, text), 0.5));
    }
}

void ShowEdges(QPalette& colours) {
    const QColor window = colours.color(QPalette::Window);
    const auto vanishes = [&](QPalette::ColorRole role) {
        return Contrast(colours.color(role), window) < kEdgeStillSeen;
    };
    if (!vanishes(QPalette::Light) || !vanishes(QPalette::Dark)) return;
    const QColor edge = Blend(window, colours.color(QPalette::WindowText), 0.6);
    for (const auto role : {QPalette::Light, QPalette::Midlight, QPalette::Mid, QPalette::Dark})
        colours.setColor(role, edge);
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor Blend(const QColor& first, const QColor& second, double share) {
    const auto mixed = [share](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * share));
    };
    return {mixed(first.red(), second.red()), mixed(first.green(), second.green()),
            mixed(first.blue(), second.blue())};
}

QColor Readable(const QColor& wanted, const QColor& background, const QColor& other) {
    return Contrast(wanted, background) >= kReadable ? wanted : other;
}

QPalette WithoutVanishing(QPalette colours) {
    ShowGreyedTexts(colours);
    ShowEdges(colours);
    return colours;
}

}  // namespace corvane::linux_desktop
