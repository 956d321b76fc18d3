// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gauge/gauge_state.h"

namespace corvane {

/// The pixel at that distance from the gauge's centre, at that angle of its scale. The scale begins
/// straight up, turned by OffsetAngle; Clockwise says which way it runs. Coordinates are truncated.
[[nodiscard]] POINT GetCirclePoint(const GaugeState& gauge, Long radius, Long angle);

/// The colour of the gauge's scale at that share of it: 0 is its low end, 1 its high one.
[[nodiscard]] Long GetGaugeColor(const GaugeState& gauge, Single fraction);

/// `fraction` of the high colour, the rest of the low one. A colour with bit 24 set raises
/// kOverflow, whatever the fraction.
[[nodiscard]] Long BlendColors(Single fraction, Long highColor, Long lowColor);

}  // namespace corvane
