// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string_view>

#include "platform/control_host.h"
#include "runtime/boolean.h"

namespace corvane::forms {

enum class Backing { Transparent = 0, Opaque = 1 };
enum class ControlBorder { None = 0, Sunken = 1 };

/// The surface of a control that draws itself, as the control sees it: it holds its values, and
/// takes the shape of its mask. Sizes are in twips; a new one is 1005 by 1005.
class UserControl {
public:
    /// `host` must outlive it.
    explicit UserControl(IControlHost& host);

    UserControl(const UserControl&) = delete;
    UserControl& operator=(const UserControl&) = delete;

    /// Raised by every change of the outer size, and by the first size that it is given, whatever
    /// that is.
    std::function<void()> Resize;
    /// Raised when a property of the control has been assigned; tells the property's key.
    std::function<void(std::string_view key)> PropertyChanged;

    [[nodiscard]] Twips Width() const { return width_; }
    [[nodiscard]] Twips Height() const { return height_; }
    void SetWidth(Twips width);
    void SetHeight(Twips height);
    void SetSize(Twips width, Twips height);
    /// The inner size, which a border makes smaller.
    [[nodiscard]] Twips ScaleWidth() const;
    [[nodiscard]] Twips ScaleHeight() const;

    [[nodiscard]] Colour BackColor() const { return back_color_; }
    void SetBackColor(Colour colour) { back_color_ = colour; }
    [[nodiscard]] Colour MaskColor() const { return mask_color_; }
    void SetMaskColor(Colour colour);
    [[nodiscard]] Backing BackStyle() const { return back_style_; }
    void SetBackStyle(Backing style);
    [[nodiscard]] ControlBorder BorderStyle() const { return border_; }
    void SetBorderStyle(ControlBorder border);
    [[nodiscard]] const StdFont& Font() const { return font_; }
    void SetFont(const StdFont& font);
    [[nodiscard]] const corvane::Picture& Picture() const { return picture_; }
    void SetPicture(const corvane::Picture& picture);
    [[nodiscard]] const corvane::Picture& MaskPicture() const { return mask_picture_; }
    void SetMaskPicture(const corvane::Picture& mask);

    /// Clears to BackColor, with Picture laid over it.
    void Cls() { host_.Visible().Cls(back_color_); }
    [[nodiscard]] corvane::Picture Image() const { return host_.Visible().Image(); }
    [[nodiscard]] HDC hDC() const { return host_.Visible().hDC(); }
    [[nodiscard]] HWND hWnd() const { return host_.hWnd(); }
    /// Pen, fill and measure of texts.
    [[nodiscard]] ISurface& Surface() { return host_.Visible(); }
    [[nodiscard]] IControlHost& Host() { return host_; }

private:
    void FitSurface();
    void ShowShape();

    IControlHost& host_;
    Twips width_ = 1005;
    Twips height_ = 1005;
    bool sized_ = false;
    Colour back_color_;
    Colour mask_color_;
    Backing back_style_ = Backing::Opaque;
    ControlBorder border_ = ControlBorder::None;
    StdFont font_;
    corvane::Picture picture_;
    corvane::Picture mask_picture_;
};

}  // namespace corvane::forms
