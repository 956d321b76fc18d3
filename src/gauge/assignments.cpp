// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "gauge/bkcprog.h"

/// What each assignment does, by the property's name: it stores, works through what follows from
/// it, and tells the property's key.
namespace corvane {

void bkCProg::SetAutoMask(const Boolean& blnAutoMask) {
    state_.AutoMask = blnAutoMask;
    if (state_.AutoMask) {
        UserControl.SetMaskColor(UserControl.BackColor());
        UserControl.SetBackStyle(forms::Backing::Transparent);
    }
    Repaint();
    PropertyChanged("AutoMask");
}

void bkCProg::SetAutoSize(Boolean blnAutoSize) {
    state_.AutoSize = blnAutoSize;
    if (state_.AutoSize) {
        CalcAutoSize();
        Repaint();
    }
    PropertyChanged("AutoSize");
}

void bkCProg::SetBorderColor(Long lBorderColor) {
    state_.BorderColor = lBorderColor;
    RepaintIf(state_.ShowBorder);
    PropertyChanged("BorderColor");
}

void bkCProg::SetBorderWidth(Long lBorderWidth) {
    // The upper limit is applied without a second look at the lower, deliberately.
    if (lBorderWidth < 1)
        lBorderWidth = 1;
    else if (lBorderWidth >= state_.Radius)
        lBorderWidth = state_.Radius - 1;
    state_.BorderWidth = lBorderWidth.rep();
    if (state_.AutoSize) CalcAutoSize();
    RepaintIf(state_.ShowBorder);
    PropertyChanged("BorderWidth");
}

void bkCProg::SetCircleColor(Long lCircleColor) {
    state_.CircleColor = lCircleColor;
    RepaintIf(state_.ShowCircle);
    PropertyChanged("CircleColor");
}

void bkCProg::SetClockwise(Boolean bClockwise) {
    state_.Clockwise = bClockwise;
    Repaint();
    PropertyChanged("Clockwise");
}

void bkCProg::SetEndColor(Long lEndColor) {
    state_.EndColor = lEndColor;
    state_.EndColorRGB = TranslateColor(lEndColor);
    RepaintIf(state_.Gradient || state_.Fade);
    PropertyChanged("EndColor");
}

void bkCProg::SetFade(Boolean bFade) {
    state_.Fade = bFade;
    Repaint();
    PropertyChanged("Fade");
}

void bkCProg::SetGradient(Boolean blnGradient) {
    state_.Gradient = blnGradient;
    Repaint();
    PropertyChanged("Gradient");
}

void bkCProg::SetMax(Long lMax) {
    state_.Max = lMax;
    Repaint();
    PropertyChanged("Max");
}

void bkCProg::SetMidColor(Long lMidColor) {
    state_.MidColor = lMidColor;
    state_.MidColorRGB = TranslateColor(lMidColor);
    RepaintIf(state_.Tricolor && (state_.Fade || state_.Gradient));
    PropertyChanged("MidColor");
}

void bkCProg::SetMin(Long lMin) {
    state_.Min = lMin < 0 ? Long(0) : lMin;
    Repaint();
    PropertyChanged("Min");
}

void bkCProg::SetNeedleColor(Long lNeedleColor) {
    state_.NeedleColor = lNeedleColor;
    RepaintIf(state_.ShowNeedle);
    PropertyChanged("NeedleColor");
}

void bkCProg::SetOffsetAngle(Long lOffsetAngle) {
    while (lOffsetAngle < 0) lOffsetAngle += 360;
    while (lOffsetAngle >= 360) lOffsetAngle -= 360;
    state_.OffsetAngle = lOffsetAngle;
    Repaint();
    PropertyChanged("OffsetAngle");
}

void bkCProg::SetRadius(Long lRadius) {
    state_.Radius = lRadius;
    Repaint();
    PropertyChanged("Radius");
}

void bkCProg::SetShowArc(Boolean blnShowArc) {
    state_.ShowArc = blnShowArc;
    if (state_.ShowArc)
        Repaint();
    else
        SetShowNeedle(true);  // which repaints, and tells its own key first
    PropertyChanged("ShowArc");
}

void bkCProg::SetShowBorder(Boolean bBorder) {
    state_.ShowBorder = bBorder;
    Repaint();
    PropertyChanged("Border");
}

void bkCProg::SetShowCircle(Boolean blnShowCircle) {
    state_.ShowCircle = blnShowCircle;
    Repaint();
    PropertyChanged("ShowCircle");
}

void bkCProg::SetShowNeedle(Boolean blnShowNeedle) {
    state_.ShowNeedle = blnShowNeedle;
    if (state_.ShowNeedle)
        Repaint();
    else
        SetShowArc(true);
    PropertyChanged("ShowNeedle");
}

void bkCProg::SetShowValue(Boolean blnShowValue) {
    state_.ShowValue = blnShowValue;
    Repaint();
    PropertyChanged("ShowValue");
}

void bkCProg::SetShowValueAsPercent(Boolean blnShowValueAsPercent) {
    state_.ShowValueAsPercent = blnShowValueAsPercent;
    if (state_.ShowValueAsPercent) state_.ShowValue = true;  // tells no key of its own
    RepaintIf(state_.ShowValue);
    PropertyChanged("ShowValueAsPercent");
}

void bkCProg::SetShowZeroLine(Boolean bShowZeroLine) {
    state_.ShowZeroLine = bShowZeroLine;
    RepaintIf(state_.Value == state_.Min);
    PropertyChanged("ShowZeroLine");
}

void bkCProg::SetSpan(Long lSpan) {
    while (lSpan < 0) lSpan += 360;
    while (lSpan > 360) lSpan -= 360;
    if (lSpan < 45) lSpan = 45;
    state_.Span = lSpan;
    Repaint();
    PropertyChanged("Span");
}

void bkCProg::SetStartColor(Long lStartColor) {
    state_.StartColor = lStartColor;
    state_.StartColorRGB = TranslateColor(lStartColor);
    Repaint();
    PropertyChanged("StartColor");
}

// The key is that of another property, deliberately.
void bkCProg::SetTextColor(Long lTextColor) {
    state_.TextColor = lTextColor;
    RepaintIf(state_.ShowValue);
    PropertyChanged("EndColor");
}

void bkCProg::SetTextOffsetX(Long lTextOffsetX) {
    state_.TextOffsetX = lTextOffsetX;
    RepaintIf(state_.ShowValue);
    PropertyChanged("TextOffsetX");
}

void bkCProg::SetTextOffsetY(Long lTextOffsetY) {
    state_.TextOffsetY = lTextOffsetY;
    RepaintIf(state_.ShowValue);
    PropertyChanged("TextOffsetY");
}

void bkCProg::SetTextShadow(Boolean blnTextShadow) {
    state_.TextShadow = blnTextShadow;
    RepaintIf(state_.ShowValue);
    PropertyChanged("TextShadow");
}

void bkCProg::SetTextShadowColor(Long lTextShadowColor) {
    state_.TextShadowColor = lTextShadowColor;
    RepaintIf(state_.ShowValue && state_.TextShadow);
    PropertyChanged("TextShadowColor");
}

void bkCProg::SetTextShadowXOffset(Integer iTextShadowXOffset) {
    state_.TextShadowXOffset = iTextShadowXOffset;
    RepaintIf(state_.ShowValue && state_.TextShadow);
    PropertyChanged("TextShadowXOffset");
}

void bkCProg::SetTextShadowYOffset(Integer iTextShadowYOffset) {
    state_.TextShadowYOffset = iTextShadowYOffset;
    RepaintIf(state_.ShowValue && state_.TextShadow);
    PropertyChanged("TextShadowYOffset");
}

void bkCProg::SetTickColor(Long lTickColor) {
    state_.TickColor = lTickColor;
    RepaintIf(state_.TickStyle != kNoTicks);
    PropertyChanged("TickColor");
}

void bkCProg::SetTickFrequency(Single sngTickFrequency) {
    state_.TickFrequency = sngTickFrequency;
    RepaintIf(state_.TickStyle != kNoTicks);
    PropertyChanged("TickFrequency");
}

void bkCProg::SetTickPosition(Long nTickPosition) {
    state_.TickPosition = nTickPosition;
    if (state_.AutoSize) CalcAutoSize();
    RepaintIf(state_.TickStyle != kNoTicks);
    PropertyChanged("TickPosition");
}

void bkCProg::SetTickSize(Integer iTickSize) {
    state_.TickSize = iTickSize;
    if (state_.AutoSize) CalcAutoSize();
    RepaintIf(state_.TickStyle != kNoTicks);
    PropertyChanged("TickSize");
}

void bkCProg::SetTickStyle(Long nTickStyle) {
    state_.TickStyle = nTickStyle;
    if (state_.AutoSize) CalcAutoSize();
    Repaint();
    PropertyChanged("TickStyle");
}

void bkCProg::SetTickWidth(Integer iTickWidth) {
    state_.TickWidth = iTickWidth < 1 ? Integer(1) : iTickWidth;
    RepaintIf(state_.TickStyle != kNoTicks);
    PropertyChanged("TickWidth");
}

void bkCProg::SetTricolor(Boolean bTricolor) {
    state_.Tricolor = bTricolor;
    RepaintIf(state_.Fade || state_.Gradient);
    PropertyChanged("Tricolor");
}

void bkCProg::SetValue(Long lValue) {
    if (lValue < state_.Min)
        lValue = state_.Min;
    else if (lValue > state_.Max)
        lValue = state_.Max;
    state_.Value = lValue;
    Repaint();  // also when the value is the same
    PropertyChanged("Value");
}

void bkCProg::SetXCenter(Long lXCenter) {
    state_.XCenter = lXCenter;
    Repaint();
    PropertyChanged("XCenter");
}

void bkCProg::SetYCenter(Long lYCenter) {
    state_.YCenter = lYCenter;
    Repaint();
    PropertyChanged("YCenter");
}

}  // namespace corvane
