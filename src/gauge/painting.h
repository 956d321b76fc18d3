// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "gauge/gauge_state.h"
#include "runtime/forms/user_control.h"

namespace corvane {

/// One drawing of a gauge, from nothing, in layers: circle, arc, border, ticks, needle, text. What
/// fails raises, and leaves the surface as far as it has been drawn.
class GaugePainting {
public:
    GaugePainting(const GaugeState& gauge, forms::UserControl& surface, IGdi32& gdi);

    void Repaint();

private:
    void PreparePen();
    void DrawCircle();
    void DrawArc();
    void DrawBorder();
    void DrawTicks();
    void DrawNeedle();
    void DrawText();

    void PlaceTicks();
    void DrawTick(Long angle);
    /// From the centre to the rim.
    void DrawSpoke(Long angle);
    void EllipseOfDial();
    void MoveTo(POINT place);
    void LineTo(POINT place);
    void TextOut(Long x, Long y, const std::string& text);
    [[nodiscard]] std::string TextOfValue() const;
    /// The colour of the present value.
    [[nodiscard]] Long ColourOfValue() const;

    const GaugeState& gauge_;
    forms::UserControl& control_;
    ISurface& pen_;
    IGdi32& gdi_;

    Single ValueFraction = 0;  ///< of the full turn, whatever Span is
    Integer ArcPenWidth;
    Long RimRadius;
    Long TickRadiusA;
    Long TickRadiusB;
};

/// `number` as a whole percentage: 0.5 is "50%". A tie goes away from zero.
[[nodiscard]] std::string FormatPercent(double number);

}  // namespace corvane
