// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "gauge/bkcprog.h"

/// How a gauge is made, loaded and saved.
namespace corvane {
namespace {

constexpr Colour kButtonFace = static_cast<Colour>(0x8000000F);
constexpr Colour kButtonText = static_cast<Colour>(0x80000012);

/// Stored twips as pixels: both are rounded first, and the quotient is truncated.
Long PixelsOf(const PropertyValue& stored, Twips pitch) {
    return CLng(stored) / Round(pitch);
}

PropertyValue Colours(Colour colour) {
    return Long(colour);
}

}  // namespace

void bkCProg::InitProperties() {
    state_ = GaugeState();
    UserControl.SetFont(host_->AmbientFont());
    StretchPictures();
}

// Values go into the fields as they are stored: nothing is clamped, nothing drawn before the last
// line.
void bkCProg::ReadProperties(const PropertyBag& bag) {
    const auto read = [&bag](std::string_view key, const PropertyValue& defaultValue) {
        return bag.ReadProperty(key, defaultValue);
    };
    GaugeState& s = state_;
    s.Max = CLng(read("Max", Long(100)));
    s.Min = CLng(read("Min", Long(0)));
    s.Value = CLng(read("Value", Long(50)));
    UserControl.SetBackColor(CLng(read("BackColor", Colours(kButtonFace))).rep());
    s.StartColor = CLng(read("StartColor", Long(192)));
    s.MidColor = CLng(read("MidColor", Long(65535)));
    s.EndColor = CLng(read("EndColor", Long(49152)));
    s.CircleColor = CLng(read("CircleColor", Colours(kButtonFace)));
    s.BorderColor = CLng(read("BorderColor", Long(0)));
    s.TextColor = CLng(read("TextColor", Long(0xFFFFFF)));
    s.NeedleColor = CLng(read("NeedleColor", Colours(kButtonText)));
    s.TextShadowColor = CLng(read("TextShadowColor", Long(0x808080)));
    s.TickColor = CLng(read("TickColor", Long(0)));
    UserControl.SetMaskColor(CLng(read("MaskColor", Colours(kButtonFace))).rep());
    RecheckColors();
    s.Tricolor = CBool(read("Tricolor", Boolean(true)));
    s.Fade = CBool(read("Fade", Boolean(false)));
    s.ShowBorder = CBool(read("Border", Boolean(true)));
    s.Clockwise = CBool(read("Clockwise", Boolean(true)));
    s.ShowZeroLine = CBool(read("ShowZeroLine", Boolean(false)));
    s.Gradient = CBool(read("Gradient", Boolean(true)));
    s.ShowValue = CBool(read("ShowValue", Boolean(false)));
    s.TextShadow = CBool(read("TextShadow", Boolean(false)));
    s.AutoSize = CBool(read("AutoSize", Boolean(true)));
    s.ShowNeedle = CBool(read("ShowNeedle", Boolean(false)));
    s.ShowArc = CBool(read("ShowArc", Boolean(true)));
    s.ShowCircle = CBool(read("ShowCircle", Boolean(true)));
    s.ShowValueAsPercent = CBool(read("ShowValueAsPercent", Boolean(false)));
    s.OffsetAngle = CLng(read("OffsetAngle", Long(0)));
    s.Span = CLng(read("Span", Long(360)));
    s.BorderWidth = CInt(read("BorderWidth", Integer(1)));
    s.TickSize = CInt(read("TickSize", Integer(4)));
    s.TickFrequency = CSng(read("TickFrequency", Single(10.0F)));
    s.TickWidth = CInt(read("TickWidth", Integer(1)));
    const Twips across = TwipsPerPixelX();
    const Twips down = TwipsPerPixelY();
    s.XCenter = PixelsOf(read("XCenter", across * 50.0), across);
    s.YCenter = PixelsOf(read("YCenter", down * 50.0), down);
    s.Radius = PixelsOf(read("Radius", across * 25.0), across);
    s.TextOffsetX = PixelsOf(read("TextOffsetX", Long(0)), across);
    s.TextOffsetY = PixelsOf(read("TextOffsetY", Long(0)), down);
    s.TextShadowXOffset = PixelsOf(read("TextShadowXOffset", across), across).rep();
    s.TextShadowYOffset = PixelsOf(read("TextShadowYOffset", down), down).rep();
    s.TickStyle = CLng(read("TickStyle", Long(0)));
    s.TickPosition = CLng(read("TickPosition", Long(0)));
    UserControl.SetFont(AsFont(read("Font", host_->AmbientFont())));
    picBack.SetPicture(AsPicture(read("Picture", {})));
    picMask.SetPicture(AsPicture(read("MaskPicture", {})));
    StretchPictures();
    UserControl.SetBorderStyle(CBool(read("Inset", Boolean(false))) ? forms::ControlBorder::Sunken
                                                                    : forms::ControlBorder::None);
    UserControl.SetBackStyle(CBool(read("UseMask", Boolean(false))) ? forms::Backing::Transparent
                                                                    : forms::Backing::Opaque);
    SetAutoMask(CBool(read("AutoMask", Boolean(false))));
}

// Four things here do not match what ReadProperties does, and are to stay so: "Border" is the key
// of ShowBorder, ShowZeroLine is not written, the default of YCenter is reckoned with the pitch
// across, and TextOffsetY is multiplied by it.
void bkCProg::WriteProperties(PropertyBag& bag) const {
    const auto write = [&bag](std::string_view key, const PropertyValue& value,
                              const PropertyValue& defaultValue) {
        bag.WriteProperty(key, value, defaultValue);
    };
    const GaugeState& s = state_;
    write("Min", s.Min, Long(0));
    write("Max", s.Max, Long(100));
    write("Value", s.Value, Long(50));
    write("BackColor", Colours(UserControl.BackColor()), Colours(kButtonFace));
    write("StartColor", s.StartColor, Long(192));
    write("MidColor", s.MidColor, Long(65535));
    write("EndColor", s.EndColor, Long(49152));
    write("CircleColor", s.CircleColor, Colours(kButtonFace));
    write("BorderColor", s.BorderColor, Long(0));
    write("TextColor", s.TextColor, Long(0xFFFFFF));
    write("NeedleColor", s.NeedleColor, Colours(kButtonText));
    write("TextShadowColor", s.TextShadowColor, Long(0x808080));
    write("TickColor", s.TickColor, Long(0));
    write("MaskColor", Colours(UserControl.MaskColor()), Colours(kButtonFace));
    write("Tricolor", s.Tricolor, Boolean(true));
    write("Fade", s.Fade, Boolean(false));
    write("Border", s.ShowBorder, Boolean(true));
    write("Clockwise", s.Clockwise, Boolean(true));
    write("Gradient", s.Gradient, Boolean(true));
    write("ShowValue", s.ShowValue, Boolean(false));
    write("TextShadow", s.TextShadow, Boolean(false));
    write("AutoSize", s.AutoSize, Boolean(true));
    write("ShowNeedle", s.ShowNeedle, Boolean(false));
    write("ShowArc", s.ShowArc, Boolean(true));
    write("ShowCircle", s.ShowCircle, Boolean(true));
    write("ShowValueAsPercent", s.ShowValueAsPercent, Boolean(false));
    write("AutoMask", s.AutoMask, Boolean(false));
    write("OffsetAngle", s.OffsetAngle, Long(0));
    write("Span", s.Span, Long(360));
    write("BorderWidth", s.BorderWidth, Integer(1));
    write("TickSize", s.TickSize, Integer(4));
    write("TickFrequency", s.TickFrequency, Single(10.0F));
    write("TickWidth", s.TickWidth, Integer(1));
    const Twips across = TwipsPerPixelX();
    const Twips down = TwipsPerPixelY();
    write("XCenter", double{across} * s.XCenter.rep(), across * 50.0);
    write("YCenter", double{down} * s.YCenter.rep(), across * 50.0);
    write("Radius", double{across} * s.Radius.rep(), across * 25.0);
    write("TextOffsetX", double{across} * s.TextOffsetX.rep(), Long(0));
    write("TextOffsetY", double{across} * s.TextOffsetY.rep(), Long(0));
    write("TextShadowXOffset", CSng(double{across} * s.TextShadowXOffset.rep()), across);
    write("TextShadowYOffset", CSng(double{down} * s.TextShadowYOffset.rep()), down);
    write("Font", UserControl.Font(), host_->AmbientFont());
    write("Picture", picBack.Picture(), {});
    write("MaskPicture", picMask.Picture(), {});
    write("TickStyle", s.TickStyle, Long(0));
    write("TickPosition", s.TickPosition, Long(0));
    write("Inset", Inset(), Boolean(false));
    write("UseMask", UseMask(), Boolean(false));
}

}  // namespace corvane
