// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>
#include <string>

#include "simulated/drawn_surfaces.h"

namespace corvane::simulated {

/// What is seen of a control that draws itself, and the screen that it is on.
struct ShownControl {
    std::unique_ptr<DrawnSurface> surface;
    PixelSize outer;
    bool framed = false;
    bool see_through = false;
    Picture mask;
    Colour mask_colour = 0;
    Twips twips_per_pixel_x = 15;
    Twips twips_per_pixel_y = 15;
};

/// The place of a control in a window in memory.
class ControlPlace final : public IControlHost {
public:
    ControlPlace(SimulatedGdi& gdi, std::shared_ptr<ShownControl> shown, HWND window);

    ISurface& Visible() override { return *shown_->surface; }
    std::unique_ptr<ISurface> CreateHidden() override;
    void SetSize(PixelSize outer) override;
    void SetFrame(bool sunken) override;
    void SetShape(const Picture& mask, Colour seeThrough) override;
    void SetOpaque() override;
    HWND hWnd() const override { return window_; }
    /// Every path names a picture of 64 by 48 pixels.
    Picture LoadPicture(const std::string& path) override;
    StdFont AmbientFont() const override { return {.Name = "MS Sans Serif"}; }
    Twips TwipsPerPixelX() const override { return shown_->twips_per_pixel_x; }
    Twips TwipsPerPixelY() const override { return shown_->twips_per_pixel_y; }

private:
    SimulatedGdi& gdi_;
    std::shared_ptr<ShownControl> shown_;
    HWND window_;
};

/// A control on a screen of those pitches, with nothing around it.
[[nodiscard]] std::shared_ptr<ShownControl> MakeShownControl(SimulatedGdi& gdi, Twips across = 15,
                                                             Twips down = 15);

}  // namespace corvane::simulated
