// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/picture_surface.h"

#include <algorithm>

#include "runtime/arithmetic.h"

namespace corvane::forms {

PictureSurface::PictureSurface(IControlHost& host, Sizing sizing)
    : host_(host),
      surface_(host.CreateHidden()),
      sizing_(sizing),
      width_(host.TwipsPerPixelX()),
      height_(host.TwipsPerPixelY()) {}

void PictureSurface::SetPicture(const corvane::Picture& picture) {
    picture_ = picture;
    if (sizing_ == Sizing::ByPicture && HoldsPicture()) {
        const PixelSize size = picture_->Size();
        width_ = static_cast<float>(size.width) * host_.TwipsPerPixelX();
        height_ = static_cast<float>(size.height) * host_.TwipsPerPixelY();
        FitSurface();
    }
    surface_->SetPicture(picture_);
}

void PictureSurface::SetWidth(Twips width) {
    width_ = width;
    FitSurface();
}

void PictureSurface::SetHeight(Twips height) {
    height_ = height;
    FitSurface();
}

void PictureSurface::FitSurface() {
    surface_->SetSize(
        {std::max(1, Round(ScaleWidth()).rep()), std::max(1, Round(ScaleHeight()).rep())});
}

}  // namespace corvane::forms
