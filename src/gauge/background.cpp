// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "gauge/bkcprog.h"

/// What depends on the surface's size and on what lies behind the gauge.
namespace corvane {

void bkCProg::UserControl_Resize() {
    if (state_.AutoSize) CalcAutoSize();
    Long w = Round(UserControl.Width());
    Long h = Round(UserControl.Height());
    if (Inset()) {
        w = Round(w.rep() - 2.0 * TwipsPerPixelX());
        h = Round(h.rep() - 2.0 * TwipsPerPixelY());
    }
    picStretch.SetWidth(static_cast<Twips>(w.rep()));
    picStretch.SetHeight(static_cast<Twips>(h.rep()));
    if (picBack.HoldsPicture() || picMask.HoldsPicture()) StretchPictures();
    Repaint();
}

void bkCProg::CalcAutoSize() {
    state_.YCenter = Round(UserControl.ScaleHeight()) / Round(TwipsPerPixelY()) / 2;
    state_.XCenter = Round(UserControl.ScaleWidth()) / Round(TwipsPerPixelX()) / 2;
    // The outer sizes are compared, though the centres come from the inner one.
    Long radius = UserControl.Width() > UserControl.Height() ? state_.YCenter : state_.XCenter;
    // Room for the border, whether it is shown or not, or for ticks where they need more.
    const Long half = Fix(state_.BorderWidth.rep() / 2.0 + 0.5);
    const Long t = state_.TickSize;
    const bool has_ticks = state_.TickStyle != kNoTicks;
    if (has_ticks && state_.TickPosition == kOutsideRim && t > half)
        radius -= t;
    else if (has_ticks && state_.TickPosition == kOnRim && t.rep() / 2.0 > half.rep())
        radius = Round(radius.rep() - t.rep() / 2.0);
    else
        radius -= half;
    state_.Radius = radius;
}

void bkCProg::AutoSizeToPicture() {
    if (!picBack.HoldsPicture()) return;
    Long h = Round(picBack.Height());
    Long w = Round(picBack.Width());
    if (Inset()) {
        h = Round(2.0 * TwipsPerPixelY() + h.rep());
        w = Round(2.0 * TwipsPerPixelX() + w.rep());
    }
    UserControl.SetHeight(static_cast<Twips>(h.rep()));
    UserControl.SetWidth(static_cast<Twips>(w.rep()));
}

void bkCProg::StretchPictures() {
    if (picBack.HoldsPicture()) {
        Stretch(picBack);
        UserControl.SetPicture(picStretch.Image());
    }
    if (picMask.HoldsPicture()) {
        Stretch(picMask);
        UserControl.SetMaskPicture(picStretch.Image());
    }
}

void bkCProg::Stretch(const forms::PictureSurface& source) {
    if (gdi_.GetStretchBltMode(picStretch.hDC()) != HALFTONE)
        gdi_.SetStretchBltMode(picStretch.hDC(), HALFTONE);
    gdi_.StretchBlt(picStretch.hDC(), 0, 0, Round(picStretch.ScaleWidth()).rep(),
                    Round(picStretch.ScaleHeight()).rep(), source.hDC(), 0, 0,
                    Round(source.ScaleWidth()).rep(), Round(source.ScaleHeight()).rep(), SRCCOPY);
}

void bkCProg::RecheckColors() {
    state_.StartColorRGB = TranslateColor(state_.StartColor);
    state_.MidColorRGB = TranslateColor(state_.MidColor);
    state_.EndColorRGB = TranslateColor(state_.EndColor);
}

Long bkCProg::TranslateColor(Long color) const {
    if (color >= 0) return color;
    return user32_.GetSysColor(color.rep() & 0xFFFFFF);
}

}  // namespace corvane
