// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/drawn_surfaces.h"

#include <array>
#include <cstdio>
#include <utility>

namespace corvane::simulated {
namespace {

constexpr std::int32_t kEndless = 1'000'000;
constexpr float kCellWidth = 6;
constexpr float kCellHeight = 13;

template <class... Numbers>
std::string Line(const std::string& operation, Numbers... numbers) {
    std::string line = operation;
    ((line += " " + std::to_string(numbers)), ...);
    return line;
}

}  // namespace

std::string Hex(Colour colour) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%06X", static_cast<unsigned>(colour));
    return text.data();
}

bool SimulatedGdi::Draw(HDC hdc, const std::string& call) {
    const auto surface = surfaces_.find(hdc);
    if (surface == surfaces_.end()) return false;
    surface->second->Note(call);
    return true;
}

bool SimulatedGdi::MoveToEx(HDC hdc, std::int32_t x, std::int32_t y, POINT* previous) {
    if (!Draw(hdc, Line("MoveToEx", x, y))) return false;
    const POINT before = std::exchange(surfaces_[hdc]->position_, {x, y});
    if (previous != nullptr) *previous = before;
    return true;
}

bool SimulatedGdi::LineTo(HDC hdc, std::int32_t x, std::int32_t y) {
    if (!Draw(hdc, Line("LineTo", x, y))) return false;
    surfaces_[hdc]->position_ = {x, y};
    return true;
}

bool SimulatedGdi::Ellipse(HDC hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                           std::int32_t bottom) {
    return Draw(hdc, Line("Ellipse", left, top, right, bottom));
}

bool SimulatedGdi::Rectangle(HDC hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                             std::int32_t bottom) {
    return Draw(hdc, Line("Rectangle", left, top, right, bottom));
}

bool SimulatedGdi::Arc(HDC hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                       std::int32_t bottom, std::int32_t xStart, std::int32_t yStart,
                       std::int32_t xEnd, std::int32_t yEnd) {
    return Draw(hdc, Line("Arc", left, top, right, bottom, xStart, yStart, xEnd, yEnd));
}

bool SimulatedGdi::TextOutA(HDC hdc, std::int32_t x, std::int32_t y, const std::string& text,
                            std::int32_t length) {
    if (!Draw(hdc, Line("TextOutA", x, y) + " \"" + text + "\" " + std::to_string(length)))
        return false;
    surfaces_[hdc]->words_ += text + "\n";
    return true;
}

std::int32_t SimulatedGdi::GetStretchBltMode(HDC hdc) {
    return Draw(hdc, "GetStretchBltMode") ? surfaces_[hdc]->stretch_mode_ : 0;
}

std::int32_t SimulatedGdi::SetStretchBltMode(HDC hdc, std::int32_t mode) {
    if (!Draw(hdc, Line("SetStretchBltMode", mode))) return 0;
    return std::exchange(surfaces_[hdc]->stretch_mode_, mode);
}

bool SimulatedGdi::StretchBlt(HDC hdcDest, std::int32_t xDest, std::int32_t yDest,
                              std::int32_t wDest, std::int32_t hDest, HDC hdcSrc, std::int32_t xSrc,
                              std::int32_t ySrc, std::int32_t wSrc, std::int32_t hSrc,
                              std::uint32_t rop) {
    if (!surfaces_.contains(hdcSrc)) return false;
    return Draw(hdcDest, Line("StretchBlt", xDest, yDest, wDest, hDest) + " from" +
                             Line("", xSrc, ySrc, wSrc, hSrc) + " " +
                             Hex(static_cast<Colour>(rop)));
}

std::int32_t SimulatedGdi::GetDeviceCaps(HDC hdc, std::int32_t index) {
    const auto device = devices_.find(hdc);
    if (device == devices_.end()) return 0;
    const auto capability = device->second.find(index);
    return capability == device->second.end() ? 0 : capability->second;
}

void SimulatedGdi::SetDeviceCaps(HDC hdc, std::map<std::int32_t, std::int32_t> capabilities) {
    devices_[hdc] = std::move(capabilities);
}

std::unique_ptr<DrawnSurface> SimulatedGdi::CreateSurface() {
    return std::make_unique<DrawnSurface>(*this, NewHandle());
}

DrawnSurface::DrawnSurface(SimulatedGdi& gdi, HDC hdc) : gdi_(gdi), hdc_(hdc) {
    gdi_.surfaces_[hdc_] = this;
}

DrawnSurface::~DrawnSurface() {
    gdi_.surfaces_.erase(hdc_);
}

void DrawnSurface::Note(const std::string& call) {
    if (++operations_ > kEndless) throw EndlessDrawing();
    shown_ += call + "\n";
    if (recording_) recorded_ += call + "\n";
}

void DrawnSurface::StartRecording() {
    recording_ = true;
    recorded_.clear();
}

void DrawnSurface::SetSize(PixelSize size) {
    size_ = size;
    Note(Line("Size", size.width, size.height));
}

void DrawnSurface::Cls(Colour background) {
    operations_ = 0;
    shown_.clear();
    words_.clear();
    Note("Cls " + Hex(background));
}

void DrawnSurface::SetForeColor(Colour colour) {
    Note("ForeColor " + Hex(colour));
}

void DrawnSurface::SetDrawWidth(std::int32_t pixels) {
    Note(Line("DrawWidth", pixels));
}

void DrawnSurface::SetFillColor(Colour colour) {
    Note("FillColor " + Hex(colour));
}

void DrawnSurface::SetFillStyle(FillStyle style) {
    Note(Line("FillStyle", static_cast<std::int32_t>(style)));
}

void DrawnSurface::SetFont(const StdFont& font) {
    Note("Font " + font.Name + Line("", font.Weight));
}

Twips DrawnSurface::TextWidth(const std::string& text) const {
    return static_cast<float>(text.size()) * kCellWidth * across_;
}

Twips DrawnSurface::TextHeight(const std::string& /*text*/) const {
    return kCellHeight * down_;
}

void DrawnSurface::SetPicture(const Picture& picture) {
    if (!picture)
        Note("Picture none");
    else if (picture->Handle() == 0)
        Note("Picture empty");
    else
        Note("Picture" + Line("", picture->Size().width, picture->Size().height));
}

Picture DrawnSurface::Image() const {
    return std::make_shared<DrawnPicture>(gdi_.NewHandle(), size_, shown_);
}

void DrawnSurface::SetPitch(Twips across, Twips down) {
    across_ = across;
    down_ = down;
}

}  // namespace corvane::simulated
