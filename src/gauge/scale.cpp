// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "gauge/scale.h"

#include <cmath>

namespace corvane {
namespace {

struct Components {
    Integer red, green, blue;
};

Components Split(Long colour) {
    // The mask of green has bit 24 in it, deliberately: with that bit set green is no Integer.
    const auto bits = static_cast<std::uint32_t>(colour.rep());
    return {(bits & 0xFFU), Round((bits & 0x100FF00U) / 256.0).rep(),
            Round((bits & 0xFF0000U) / 65536.0).rep()};
}

Long Mix(Single fraction, Integer high, Integer low) {
    const auto high_part = static_cast<Single>(high.rep());
    const auto low_part = static_cast<Single>(low.rep());
    return Round((1.0 - fraction) * low_part + double{high_part} * fraction);
}

}  // namespace

POINT GetCirclePoint(const GaugeState& gauge, Long radius, Long angle) {
    const Long a = gauge.Clockwise ? Mod(gauge.OffsetAngle + angle, 360)
                                   : Mod(Long(360) - gauge.OffsetAngle + angle, 360);
    // The short constant is deliberate: a quarter turn ends just short of its axis, and truncation
    // makes that a pixel.
    constexpr double k = 3.14159 / 180.0;
    const Single s = CSng(std::sin(a.rep() * k));
    const Single c = CSng(std::cos(a.rep() * k));
    const double across = double{s} * radius.rep();
    const double down = -double{c} * radius.rep();
    return {Fix((gauge.Clockwise ? across : -across) + gauge.XCenter.rep()).rep(),
            Fix(down + gauge.YCenter.rep()).rep()};
}

Long GetGaugeColor(const GaugeState& gauge, Single fraction) {
    if (!gauge.Tricolor) return BlendColors(fraction, gauge.EndColorRGB, gauge.StartColorRGB);
    if (fraction >= 0.5F)
        return BlendColors(CSng((fraction * 100.0 - 50.0) / 50.0), gauge.EndColorRGB,
                           gauge.MidColorRGB);
    return BlendColors(CSng(fraction * 100.0 / 50.0), gauge.MidColorRGB, gauge.StartColorRGB);
}

Long BlendColors(Single fraction, Long highColor, Long lowColor) {
    const Components high = Split(highColor);
    const Components low = Split(lowColor);
    if (fraction >= 1.0F) return highColor;
    if (fraction <= 0.0F) return lowColor;
    const Long red = Mix(fraction, high.red, low.red);
    const Long green = Mix(fraction, high.green, low.green);
    const Long blue = Mix(fraction, high.blue, low.blue);
    return red + Long(256) * green + Long(65536) * blue;
}

}  // namespace corvane
