// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/gdi32.h"
#include "runtime/arithmetic.h"
#include "runtime/boolean.h"
#include "runtime/numbers.h"

namespace corvane {

enum GaugeTickStyle : std::int32_t {
    kNoTicks = 0,
    kLineTicks = 1,
    kSolidCircleTicks = 2,
    kHollowCircleTicks = 3,
    kSolidSquareTicks = 4,
    kHollowSquareTicks = 5,
};

enum GaugeTickPosition : std::int32_t { kInsideRim = 0, kOutsideRim = 1, kOnRim = 2 };

/// What a gauge is, apart from what its surfaces hold. The values given here are those of a new
/// one. Lengths are pixels, angles whole degrees; Value, Min, Max and TickFrequency are in the
/// units of whoever uses the gauge.
struct GaugeState {
    Boolean ShowBorder = true;     ///< Draw a border on the circle or arc
    Boolean ShowValue = false;     ///< Display value as text
    Boolean Gradient = true;       ///< Blend colors along the arc as a gradient
    Boolean ShowZeroLine = false;  ///< Show/Hide arc when value is at minimum value
    Boolean Clockwise = true;      ///< Clockwise/counterclockwise rotation
    Boolean Fade = false;          ///< Change solid color of arc as value changes
    Boolean Tricolor = true;       ///< Use/Don't use Midcolor in fades & gradients
    Boolean ShowNeedle = false;    ///< Draws a line of a different color at the top of the arc
    Boolean TextShadow = false;    ///< Show/Hide text shadow
    Boolean AutoSize = true;       ///< Center and size the circle as the control is resized
    Boolean ShowArc = true;     ///< Draw a colored arc from the minimum value to the current value
    Boolean ShowCircle = true;  ///< Fill in the area underneath the value arc or needle
    Boolean ShowValueAsPercent = false;  ///< Display Value as percentage between Min & Max values
    Boolean AutoMask = false;            ///< Makes the background color transparent.
    Long Radius;                         ///< Radius of circle or arc
    Long Min;                            ///< Lowest allowable value
    Long Max = 100;                      ///< Highest allowable value
    Long Value = 50;                     ///< Current value (between Min & Max)
    Long OffsetAngle;                    ///< Starting angle (for minimum value)
    Long XCenter;                        ///< Left/right center of circle
    Long YCenter;                        ///< Top/bottom center of circle
    Long Span = 360;                     ///< Arc in degrees of the meter (360 = full circle)
    Long TextOffsetX;                    ///< X-Position of text relative to center
    Long TextOffsetY;                    ///< Y-Position of text relative to center
    Long StartColorRGB = 192;  ///< the three colours that are blended, with system colours
    Long MidColorRGB = 65535;  ///< translated
    Long EndColorRGB = 49152;
    Single TickFrequency = 10.0F;   ///< Interval to draw ticks (relative to value, not angle)
    Integer BorderWidth = 1;        ///< Width of border, if shown
    Integer TickSize = 4;           ///< Size or length of tick
    Integer TickWidth = 1;          ///< Thickness of Tick (line-style)
    Integer TextShadowXOffset = 1;  ///< Left/right offset for text shadow
    Integer TextShadowYOffset = 1;  ///< Top/Bottom offset for text shadow
    Long BorderColor;               ///< Color of Border
    Long StartColor = 192;  ///< Solid color, or start color (low values) for gradients and fades
    Long EndColor = 49152;  ///< Ending color (high values) for gradients and fades
    Long MidColor = 65535;  ///< Middle color (50%) for tricolor gradients and fades
    Long TextColor = 0xFFFFFF;                           ///< Color of text display
    Long NeedleColor = static_cast<Colour>(0x80000012);  ///< Color of needle
    Long TickColor;                                      ///< Tick Color
    Long CircleColor = static_cast<Colour>(0x8000000F);  ///< Background color of circle
    Long TextShadowColor = 0x808080;                     ///< Text shadow color
    Long TickStyle;     ///< Tick shape: GaugeTickStyle; any other draws no tick
    Long TickPosition;  ///< Location of ticks: GaugeTickPosition; any other is the dial's centre
};

}  // namespace corvane
