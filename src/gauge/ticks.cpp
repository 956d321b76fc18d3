// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "gauge/painting.h"
#include "gauge/scale.h"

namespace corvane {

void GaugePainting::DrawTicks() {
    if (gauge_.TickStyle == kNoTicks) return;
    pen_.SetDrawWidth(gauge_.TickWidth.rep());
    pen_.SetForeColor(gauge_.TickColor.rep());
    pen_.SetFillColor(gauge_.TickColor.rep());
    PlaceTicks();

    // A full dial ends before its start, which would be marked twice otherwise.
    const Single limit = CSng(gauge_.Span == 360 ? 359 : gauge_.Span.rep());
    // TickFrequency counts in the units of Value. A step of 0 never gets to the end, deliberately.
    const Single step = CSng(
        Finite(Divide(gauge_.TickFrequency, (gauge_.Max - gauge_.Min).rep()) * gauge_.Span.rep()));
    for (Single c = 0; step < 0 ? c >= limit : c <= limit; c = CSng(double{c} + step))
        DrawTick(Fix(c + 0.5));
}

void GaugePainting::PlaceTicks() {
    const Long t = gauge_.TickSize;
    const double half = t.rep() / 2.0;
    TickRadiusA = TickRadiusB = 0;
    if (gauge_.TickStyle == kLineTicks) {
        if (gauge_.TickPosition == kInsideRim) {
            TickRadiusA = RimRadius;
            TickRadiusB = RimRadius - t;
        } else if (gauge_.TickPosition == kOutsideRim) {
            TickRadiusA = RimRadius;
            TickRadiusB = RimRadius + t;
        } else if (gauge_.TickPosition == kOnRim) {
            TickRadiusA = Round(RimRadius.rep() - half);
            TickRadiusB = Round(RimRadius.rep() + half);
        }
        return;
    }
    if (gauge_.TickPosition == kInsideRim)
        TickRadiusA = Round(RimRadius.rep() - half);
    else if (gauge_.TickPosition == kOutsideRim)
        TickRadiusA = Round(RimRadius.rep() + half);
    else if (gauge_.TickPosition == kOnRim)
        TickRadiusA = RimRadius;
    const bool solid =
        gauge_.TickStyle == kSolidCircleTicks || gauge_.TickStyle == kSolidSquareTicks;
    pen_.SetFillStyle(solid ? kSolidFill : kTransparentFill);
}

void GaugePainting::DrawTick(Long angle) {
    const POINT p = GetCirclePoint(gauge_, TickRadiusA, angle);
    const std::int32_t style = gauge_.TickStyle.rep();
    if (style == kLineTicks) {
        const POINT q = GetCirclePoint(gauge_, TickRadiusB, angle);
        MoveTo(p);
        LineTo(q);
        return;
    }
    const double half = gauge_.TickSize.rep() / 2.0;
    const Long left = Fix(p.x - half + 0.5);
    const Long upper = Fix(p.y - half + 0.5);
    const Long right = Fix(p.x + half + 0.5);
    const Long bottom = Fix(p.y + half + 0.5);
    if (style == kSolidCircleTicks || style == kHollowCircleTicks)
        gdi_.Ellipse(control_.hDC(), left.rep(), upper.rep(), right.rep(), bottom.rep());
    else if (style == kSolidSquareTicks || style == kHollowSquareTicks)
        gdi_.Rectangle(control_.hDC(), left.rep(), upper.rep(), right.rep(), bottom.rep());
}

}  // namespace corvane
