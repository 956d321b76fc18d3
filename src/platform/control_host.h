// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/gdi32.h"
#include "platform/user32.h"

/// What a window gives to a control that draws itself.
namespace corvane {

/// A surface that keeps what is drawn on it. A new one is 1 pixel wide and high, its pen 1 pixel
/// wide and black, its fill black and transparent. Colours may be system colours.
class ISurface {
public:
    virtual ~ISurface() = default;

    /// What IGdi32 draws on; for the life of the surface.
    [[nodiscard]] virtual HDC hDC() const = 0;
    /// At least 1 by 1. What was drawn stays as far as it fits; new pixels have the colour of the
    /// last Cls.
    virtual void SetSize(PixelSize size) = 0;
    /// Clears to `background`, with the surface's picture, if it has one, laid over it at 0, 0.
    virtual void Cls(Colour background) = 0;
    virtual void SetForeColor(Colour colour) = 0;        ///< of the pen and of text
    virtual void SetDrawWidth(std::int32_t pixels) = 0;  ///< 1 or more
    virtual void SetFillColor(Colour colour) = 0;
    virtual void SetFillStyle(FillStyle style) = 0;
    virtual void SetFont(const StdFont& font) = 0;
    [[nodiscard]] virtual Twips TextWidth(const std::string& text) const = 0;
    [[nodiscard]] virtual Twips TextHeight(const std::string& text) const = 0;
    /// The picture is shown at once in place of what was drawn; none or an empty one shows the
    /// colour of the last Cls.
    virtual void SetPicture(const Picture& picture) = 0;
    /// A copy of what the surface shows now.
    [[nodiscard]] virtual Picture Image() const = 0;
};

/// The place of one control in a window, and what it may ask of its surroundings.
class IControlHost {
public:
    virtual ~IControlHost() = default;

    /// What a person sees of the control; for the life of the host.
    [[nodiscard]] virtual ISurface& Visible() = 0;
    /// A surface that nobody sees. It must not outlive the host.
    [[nodiscard]] virtual std::unique_ptr<ISurface> CreateHidden() = 0;

    /// The outer size. The visible surface is sized apart from it.
    virtual void SetSize(PixelSize outer) = 0;
    /// A sunken frame, 1 pixel on each side of the visible surface.
    virtual void SetFrame(bool sunken) = 0;
    /// See-through wherever `mask` has the colour `seeThrough`; without a mask nothing is.
    virtual void SetShape(const Picture& mask, Colour seeThrough) = 0;
    /// All of the surface is shown.
    virtual void SetOpaque() = 0;
    [[nodiscard]] virtual HWND hWnd() const = 0;

    /// The empty path gives an empty picture; a file that is missing raises kFileNotFound, one that
    /// is no picture kInvalidPicture.
    [[nodiscard]] virtual Picture LoadPicture(const std::string& path) = 0;
    /// The font of the window around the control.
    [[nodiscard]] virtual StdFont AmbientFont() const = 0;
    [[nodiscard]] virtual Twips TwipsPerPixelX() const = 0;
    [[nodiscard]] virtual Twips TwipsPerPixelY() const = 0;
};

}  // namespace corvane
