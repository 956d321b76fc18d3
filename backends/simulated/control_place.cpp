// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/control_place.h"

#include <utility>

namespace corvane::simulated {

ControlPlace::ControlPlace(SimulatedGdi& gdi, std::shared_ptr<ShownControl> shown, HWND window)
    : gdi_(gdi), shown_(std::move(shown)), window_(window) {}

std::unique_ptr<ISurface> ControlPlace::CreateHidden() {
    auto surface = gdi_.CreateSurface();
    surface->SetPitch(shown_->twips_per_pixel_x, shown_->twips_per_pixel_y);
    return surface;
}

void ControlPlace::SetSize(PixelSize outer) {
    shown_->outer = outer;
}

void ControlPlace::SetFrame(bool sunken) {
    shown_->framed = sunken;
}

void ControlPlace::SetShape(const Picture& mask, Colour seeThrough) {
    shown_->see_through = true;
    shown_->mask = mask;
    shown_->mask_colour = seeThrough;
}

void ControlPlace::SetOpaque() {
    shown_->see_through = false;
    shown_->mask = nullptr;
}

Picture ControlPlace::LoadPicture(const std::string& path) {
    if (path.empty()) return std::make_shared<DrawnPicture>(0, PixelSize{});
    return std::make_shared<DrawnPicture>(gdi_.NewHandle(), PixelSize{64, 48}, path + "\n");
}

std::shared_ptr<ShownControl> MakeShownControl(SimulatedGdi& gdi, Twips across, Twips down) {
    auto shown = std::make_shared<ShownControl>();
    shown->surface = gdi.CreateSurface();
    shown->surface->SetPitch(across, down);
    shown->twips_per_pixel_x = across;
    shown->twips_per_pixel_y = down;
    return shown;
}

}  // namespace corvane::simulated
