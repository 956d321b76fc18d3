// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/user_control.h"

#include <algorithm>

#include "runtime/arithmetic.h"

namespace corvane::forms {
namespace {

constexpr Colour kButtonFace = static_cast<Colour>(0x8000000F);
constexpr float kFrame = 2;  // pixels of both sides

}  // namespace

UserControl::UserControl(IControlHost& host)
    : host_(host), back_color_(kButtonFace), mask_color_(kButtonFace), font_(host.AmbientFont()) {
    host_.Visible().SetFont(font_);
    FitSurface();
    Cls();
}

void UserControl::SetWidth(Twips width) {
    SetSize(width, height_);
}

void UserControl::SetHeight(Twips height) {
    SetSize(width_, height);
}

void UserControl::SetSize(Twips width, Twips height) {
    if (sized_ && width == width_ && height == height_) return;
    sized_ = true;
    width_ = width;
    height_ = height;
    FitSurface();
    if (const auto handler = Resize) handler();
}

Twips UserControl::ScaleWidth() const {
    return border_ == ControlBorder::None ? width_ : width_ - kFrame * host_.TwipsPerPixelX();
}

Twips UserControl::ScaleHeight() const {
    return border_ == ControlBorder::None ? height_ : height_ - kFrame * host_.TwipsPerPixelY();
}

void UserControl::SetMaskColor(Colour colour) {
    mask_color_ = colour;
    ShowShape();
}

void UserControl::SetBackStyle(Backing style) {
    back_style_ = style;
    ShowShape();
}

void UserControl::SetBorderStyle(ControlBorder border) {
    border_ = border;
    host_.SetFrame(border == ControlBorder::Sunken);
    FitSurface();
}

void UserControl::SetFont(const StdFont& font) {
    font_ = font;
    host_.Visible().SetFont(font);
}

void UserControl::SetPicture(const corvane::Picture& picture) {
    picture_ = picture;
    host_.Visible().SetPicture(picture);
}

void UserControl::SetMaskPicture(const corvane::Picture& mask) {
    mask_picture_ = mask;
    ShowShape();
}

void UserControl::FitSurface() {
    const auto pixels = [](Twips twips, Twips pitch) {
        return std::max(1, Round(Divide(twips, pitch)).rep());
    };
    const Twips x = host_.TwipsPerPixelX();
    const Twips y = host_.TwipsPerPixelY();
    host_.SetSize({pixels(width_, x), pixels(height_, y)});
    host_.Visible().SetSize({pixels(ScaleWidth(), x), pixels(ScaleHeight(), y)});
}

void UserControl::ShowShape() {
    if (back_style_ == Backing::Opaque)
        host_.SetOpaque();
    else
        host_.SetShape(mask_picture_, mask_color_);
}

}  // namespace corvane::forms
