// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "platform/control_host.h"

namespace corvane::forms {

/// A hidden surface with no border that holds a picture, or serves as the target of a copy.
class PictureSurface {
public:
    enum class Sizing {
        ByPicture,  ///< as large as the picture that it holds
        ByOwner
    };

    PictureSurface(IControlHost& host, Sizing sizing);

    [[nodiscard]] const corvane::Picture& Picture() const { return picture_; }
    void SetPicture(const corvane::Picture& picture);
    [[nodiscard]] bool HoldsPicture() const { return picture_ && picture_->Handle() != 0; }
    [[nodiscard]] corvane::Picture Image() const { return surface_->Image(); }
    [[nodiscard]] HDC hDC() const { return surface_->hDC(); }

    /// In twips.
    [[nodiscard]] Twips Width() const { return width_; }
    [[nodiscard]] Twips Height() const { return height_; }
    void SetWidth(Twips width);
    void SetHeight(Twips height);
    /// In pixels.
    [[nodiscard]] float ScaleWidth() const { return width_ / host_.TwipsPerPixelX(); }
    [[nodiscard]] float ScaleHeight() const { return height_ / host_.TwipsPerPixelY(); }

private:
    void FitSurface();

    IControlHost& host_;
    std::unique_ptr<ISurface> surface_;
    Sizing sizing_;
    corvane::Picture picture_;
    Twips width_;
    Twips height_;
};

}  // namespace corvane::forms
