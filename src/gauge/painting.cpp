// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "gauge/painting.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "gauge/scale.h"
#include "runtime/text.h"

namespace corvane {

GaugePainting::GaugePainting(const GaugeState& gauge, forms::UserControl& surface, IGdi32& gdi)
    : gauge_(gauge), control_(surface), pen_(surface.Surface()), gdi_(gdi) {}

void GaugePainting::Repaint() {
    if (gauge_.AutoMask) control_.SetPicture(control_.Host().LoadPicture(""));
    control_.Cls();
    ValueFraction =
        CSng(Divide((gauge_.Value - gauge_.Min).rep(), (gauge_.Max - gauge_.Min).rep()));
    ArcPenWidth = gauge_.Radius > 16 ? (gauge_.Radius / 48 + 2).rep() : 1;
    PreparePen();
    if (gauge_.Span != 360) ValueFraction = CSng(gauge_.Span.rep() / 360.0 * ValueFraction);

    DrawCircle();
    DrawArc();
    DrawBorder();
    DrawTicks();
    DrawNeedle();
    DrawText();

    if (gauge_.AutoMask) {
        // What no layer has drawn still has the background's colour, and so is cut out.
        control_.SetMaskPicture(control_.Image());
        control_.SetPicture(control_.Image());
    }
}

// The pen that a full dial's circle is outlined with.
void GaugePainting::PreparePen() {
    if (gauge_.ShowBorder) {
        pen_.SetForeColor(gauge_.BorderColor.rep());
        pen_.SetDrawWidth(gauge_.BorderWidth.rep());
        RimRadius = gauge_.Radius - (Long(gauge_.BorderWidth) + 1) / 2;
    } else {
        pen_.SetForeColor(gauge_.CircleColor.rep());
        pen_.SetDrawWidth(1);
        RimRadius = gauge_.Radius;
    }
}

void GaugePainting::DrawCircle() {
    // As stored: a system colour and its own RGB are two colours here.
    if (!gauge_.ShowCircle || gauge_.CircleColor == control_.BackColor()) return;
    if (gauge_.Span == 360) {
        pen_.SetFillColor(gauge_.CircleColor.rep());
        pen_.SetFillStyle(kSolidFill);
        EllipseOfDial();
        return;
    }
    pen_.SetDrawWidth(ArcPenWidth.rep());
    pen_.SetForeColor(gauge_.CircleColor.rep());
    // The part of the dial above the arc. Here, unlike at the arc, the product is held as a Single.
    const Long low = gauge_.ShowArc ? Round(CSng(double{ValueFraction} * 360)) : 0;
    for (Long i = gauge_.Span; i >= low; i -= 1) DrawSpoke(i);
}

void GaugePainting::DrawArc() {
    if (!gauge_.ShowArc) return;
    if (!(gauge_.Value > gauge_.Min || gauge_.ShowZeroLine)) return;
    pen_.SetDrawWidth(ArcPenWidth.rep());
    pen_.SetForeColor((gauge_.Fade ? ColourOfValue() : gauge_.StartColorRGB).rep());
    const Long top = Round(double{ValueFraction} * 360);
    for (Long i = 0; i <= top; i += 1) {
        const POINT p = GetCirclePoint(gauge_, RimRadius, i);
        if (gauge_.Gradient)
            pen_.SetForeColor(
                GetGaugeColor(gauge_, CSng(Divide(i.rep(), gauge_.Span.rep()))).rep());
        MoveTo({gauge_.XCenter.rep(), gauge_.YCenter.rep()});
        LineTo(p);
    }
}

void GaugePainting::DrawBorder() {
    if (!gauge_.ShowBorder) return;
    pen_.SetForeColor(gauge_.BorderColor.rep());
    pen_.SetDrawWidth(gauge_.BorderWidth.rep());
    if (gauge_.Span == 360) {
        pen_.SetFillStyle(kTransparentFill);
        EllipseOfDial();
        return;
    }
    // An arc runs counterclockwise, so on a clockwise dial it starts at the scale's high end.
    const POINT start = GetCirclePoint(gauge_, RimRadius, gauge_.Clockwise ? gauge_.Span : 0);
    const POINT end = GetCirclePoint(gauge_, RimRadius, gauge_.Clockwise ? 0 : gauge_.Span);
    const Long left = gauge_.XCenter - gauge_.Radius;
    const Long upper = gauge_.YCenter - gauge_.Radius;
    const Long right = gauge_.XCenter + gauge_.Radius + 1;
    const Long bottom = gauge_.YCenter + gauge_.Radius + 1;
    gdi_.Arc(control_.hDC(), left.rep(), upper.rep(), right.rep(), bottom.rep(), start.x, start.y,
             end.x, end.y);
}

void GaugePainting::DrawNeedle() {
    if (!gauge_.ShowNeedle) return;
    pen_.SetDrawWidth(ArcPenWidth.rep());
    // Without an arc the needle shows the value's colour.
    const bool shows_value = !gauge_.ShowArc && (gauge_.Fade || gauge_.Gradient);
    pen_.SetForeColor((shows_value ? ColourOfValue() : gauge_.NeedleColor).rep());
    DrawSpoke(Round(ValueFraction * 360.0));
}

void GaugePainting::DrawText() {
    if (!gauge_.ShowValue) return;
    const std::string text = TextOfValue();
    const Long w = Round(pen_.TextWidth(text)) / Round(control_.Host().TwipsPerPixelX());
    const Long h = Round(pen_.TextHeight(text)) / Round(control_.Host().TwipsPerPixelY());
    const Long x = gauge_.XCenter + gauge_.TextOffsetX - w / 2;
    const Long y = gauge_.YCenter + gauge_.TextOffsetY - h / 2;
    if (gauge_.TextShadow) {
        pen_.SetForeColor(gauge_.TextShadowColor.rep());
        TextOut(x + gauge_.TextShadowXOffset, y + gauge_.TextShadowYOffset, text);
    }
    pen_.SetForeColor(gauge_.TextColor.rep());
    TextOut(x, y, text);
}

std::string GaugePainting::TextOfValue() const {
    if (!gauge_.ShowValueAsPercent) return CStr(gauge_.Value);
    return FormatPercent(
        Divide((gauge_.Value - gauge_.Min).rep(), (gauge_.Max - gauge_.Min).rep()));
}

Long GaugePainting::ColourOfValue() const {
    return GetGaugeColor(gauge_, CSng(Divide(360.0, gauge_.Span.rep()) * ValueFraction));
}

void GaugePainting::DrawSpoke(Long angle) {
    const POINT p = GetCirclePoint(gauge_, RimRadius, angle);
    MoveTo({gauge_.XCenter.rep(), gauge_.YCenter.rep()});
    LineTo(p);
}

void GaugePainting::EllipseOfDial() {
    const Long left = gauge_.XCenter - gauge_.Radius;
    const Long upper = gauge_.YCenter - gauge_.Radius;
    const Long right = gauge_.XCenter + gauge_.Radius + 1;
    const Long bottom = gauge_.YCenter + gauge_.Radius + 1;
    gdi_.Ellipse(control_.hDC(), left.rep(), upper.rep(), right.rep(), bottom.rep());
}

void GaugePainting::MoveTo(POINT place) {
    gdi_.MoveToEx(control_.hDC(), place.x, place.y, nullptr);
}

void GaugePainting::LineTo(POINT place) {
    gdi_.LineTo(control_.hDC(), place.x, place.y);
}

void GaugePainting::TextOut(Long x, Long y, const std::string& text) {
    gdi_.TextOutA(control_.hDC(), x.rep(), y.rep(), text, Len(text).rep());
}

std::string FormatPercent(double number) {
    // A share may be larger than any Long: Value stays above a Max that has been lowered.
    const double whole = std::round(Finite(number * 100)) + 0.0;  // and 0 has no sign
    std::array<char, std::numeric_limits<double>::max_exponent10 + 3> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), whole,
                                       std::chars_format::fixed);
    return std::string(digits.data(), written.ptr) + "%";
}

}  // namespace corvane
