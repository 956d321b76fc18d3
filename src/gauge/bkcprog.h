// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string_view>

#include "gauge/gauge_state.h"
#include "gauge/property_bag.h"
#include "platform/control_host.h"
#include "runtime/forms/picture_surface.h"
#include "runtime/forms/user_control.h"

namespace corvane {

/// The round gauge: shows one whole number as a filled dial, with ticks, needle, border, text,
/// background picture and a shaped outline as wanted. A property's getter gives what is stored; its
/// assignment stores, draws what has to be drawn, and tells the property's key by
/// `UserControl.PropertyChanged`. An error in the drawing reaches who assigned, when the value is
/// stored already and no key has been told.
class bkCProg {
public:
    /// `gdi` and `user32` must outlive it. Follow with InitProperties or ReadProperties, then size.
    bkCProg(std::unique_ptr<IControlHost> host, IGdi32& gdi, IUser32& user32);

    bkCProg(const bkCProg&) = delete;
    bkCProg& operator=(const bkCProg&) = delete;

private:
    std::unique_ptr<IControlHost> host_;

public:
    /// The surface that a person sees; its owner sizes it.
    forms::UserControl UserControl;

    /// Draws the whole gauge anew.
    void Repaint();
    [[nodiscard]] Boolean AutoMask() const { return state_.AutoMask; }
    void SetAutoMask(const Boolean& blnAutoMask);
    [[nodiscard]] Boolean AutoSize() const { return state_.AutoSize; }
    void SetAutoSize(Boolean blnAutoSize);
    /// Makes the control the size of the background picture; nothing without one.
    void AutoSizeToPicture();
    [[nodiscard]] Long BackColor() const { return UserControl.BackColor(); }
    void SetBackColor(Long lBackColor);
    [[nodiscard]] Long BorderColor() const { return state_.BorderColor; }
    void SetBorderColor(Long lBorderColor);
    [[nodiscard]] Integer BorderWidth() const { return state_.BorderWidth; }
    void SetBorderWidth(Long lBorderWidth);
    [[nodiscard]] Long CircleColor() const { return state_.CircleColor; }
    void SetCircleColor(Long lCircleColor);
    [[nodiscard]] Boolean Clockwise() const { return state_.Clockwise; }
    void SetClockwise(Boolean bClockwise);
    [[nodiscard]] Long EndColor() const { return state_.EndColor; }
    void SetEndColor(Long lEndColor);
    [[nodiscard]] Boolean Fade() const { return state_.Fade; }
    void SetFade(Boolean bFade);
    [[nodiscard]] const StdFont& Font() const { return UserControl.Font(); }
    void SetFont(const StdFont& oFont);
    [[nodiscard]] Boolean Gradient() const { return state_.Gradient; }
    void SetGradient(Boolean blnGradient);
    [[nodiscard]] Boolean Inset() const;
    void SetInset(Boolean blnInset);
    [[nodiscard]] HWND hwnd() const { return UserControl.hWnd(); }
    /// Of the background picture surface, not of the drawn gauge.
    [[nodiscard]] corvane::Picture Image() const { return picBack.Image(); }
    [[nodiscard]] Long MaskColor() const { return UserControl.MaskColor(); }
    void SetMaskColor(Long lMaskColor);
    [[nodiscard]] const corvane::Picture& MaskPicture() const { return picMask.Picture(); }
    void SetMaskPicture(const corvane::Picture& pMaskPicture);
    [[nodiscard]] Long Max() const { return state_.Max; }
    void SetMax(Long lMax);
    [[nodiscard]] Long MidColor() const { return state_.MidColor; }
    void SetMidColor(Long lMidColor);
    [[nodiscard]] Long Min() const { return state_.Min; }
    void SetMin(Long lMin);
    [[nodiscard]] Long NeedleColor() const { return state_.NeedleColor; }
    void SetNeedleColor(Long lNeedleColor);
    [[nodiscard]] Long OffsetAngle() const { return state_.OffsetAngle; }
    void SetOffsetAngle(Long lOffsetAngle);
    [[nodiscard]] const corvane::Picture& Picture() const { return picBack.Picture(); }
    void SetPicture(const corvane::Picture& pPicture);
    [[nodiscard]] Long Radius() const { return state_.Radius; }
    void SetRadius(Long lRadius);
    /// Translates the three blended colours anew; a host calls this when the system colours have
    /// changed. Draws nothing.
    void RecheckColors();
    [[nodiscard]] Boolean ShowArc() const { return state_.ShowArc; }
    void SetShowArc(Boolean blnShowArc);
    [[nodiscard]] Boolean ShowBorder() const { return state_.ShowBorder; }
    void SetShowBorder(Boolean bBorder);
    [[nodiscard]] Boolean ShowCircle() const { return state_.ShowCircle; }
    void SetShowCircle(Boolean blnShowCircle);
    [[nodiscard]] Boolean ShowNeedle() const { return state_.ShowNeedle; }
    void SetShowNeedle(Boolean blnShowNeedle);
    [[nodiscard]] Boolean ShowValue() const { return state_.ShowValue; }
    void SetShowValue(Boolean blnShowValue);
    [[nodiscard]] Boolean ShowValueAsPercent() const { return state_.ShowValueAsPercent; }
    void SetShowValueAsPercent(Boolean blnShowValueAsPercent);
    [[nodiscard]] Boolean ShowZeroLine() const { return state_.ShowZeroLine; }
    void SetShowZeroLine(Boolean bShowZeroLine);
    [[nodiscard]] Long Span() const { return state_.Span; }
    void SetSpan(Long lSpan);
    [[nodiscard]] Long StartColor() const { return state_.StartColor; }
    void SetStartColor(Long lStartColor);
    [[nodiscard]] Long TextColor() const { return state_.TextColor; }
    void SetTextColor(Long lTextColor);
    [[nodiscard]] Long TextOffsetX() const { return state_.TextOffsetX; }
    void SetTextOffsetX(Long lTextOffsetX);
    [[nodiscard]] Long TextOffsetY() const { return state_.TextOffsetY; }
    void SetTextOffsetY(Long lTextOffsetY);
    [[nodiscard]] Boolean TextShadow() const { return state_.TextShadow; }
    void SetTextShadow(Boolean blnTextShadow);
    [[nodiscard]] Long TextShadowColor() const { return state_.TextShadowColor; }
    void SetTextShadowColor(Long lTextShadowColor);
    [[nodiscard]] Integer TextShadowXOffset() const { return state_.TextShadowXOffset; }
    void SetTextShadowXOffset(Integer iTextShadowXOffset);
    [[nodiscard]] Integer TextShadowYOffset() const { return state_.TextShadowYOffset; }
    void SetTextShadowYOffset(Integer iTextShadowYOffset);
    [[nodiscard]] Long TickColor() const { return state_.TickColor; }
    void SetTickColor(Long lTickColor);
    [[nodiscard]] Single TickFrequency() const { return state_.TickFrequency; }
    void SetTickFrequency(Single sngTickFrequency);
    [[nodiscard]] Long TickPosition() const { return state_.TickPosition; }
    void SetTickPosition(Long nTickPosition);
    [[nodiscard]] Integer TickSize() const { return state_.TickSize; }
    void SetTickSize(Integer iTickSize);
    [[nodiscard]] Long TickStyle() const { return state_.TickStyle; }
    void SetTickStyle(Long nTickStyle);
    [[nodiscard]] Integer TickWidth() const { return state_.TickWidth; }
    void SetTickWidth(Integer iTickWidth);
    [[nodiscard]] Boolean Tricolor() const { return state_.Tricolor; }
    void SetTricolor(Boolean bTricolor);
    [[nodiscard]] Boolean UseMask() const;
    void SetUseMask(Boolean bUseMask);
    [[nodiscard]] Long Value() const { return state_.Value; }
    void SetValue(Long lValue);
    [[nodiscard]] Long XCenter() const { return state_.XCenter; }
    void SetXCenter(Long lXCenter);
    [[nodiscard]] Long YCenter() const { return state_.YCenter; }
    void SetYCenter(Long lYCenter);

    /// A gauge that is newly placed.
    void InitProperties();
    /// A gauge that was saved before. Nothing is clamped, and nothing drawn before the last step.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

private:
    void CalcAutoSize();
    void UserControl_Resize();
    [[nodiscard]] Long TranslateColor(Long color) const;
    void StretchPictures();

    void Stretch(const forms::PictureSurface& source);
    void RepaintIf(bool visible);
    void PropertyChanged(std::string_view key) const;
    [[nodiscard]] Twips TwipsPerPixelX() const { return host_->TwipsPerPixelX(); }
    [[nodiscard]] Twips TwipsPerPixelY() const { return host_->TwipsPerPixelY(); }

    IGdi32& gdi_;
    IUser32& user32_;
    GaugeState state_;
    forms::PictureSurface picStretch;  // passage of each stretching
    forms::PictureSurface picBack;     // background picture in its own size
    forms::PictureSurface picMask;     // mask in its own size
};

}  // namespace corvane
