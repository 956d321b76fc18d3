// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/canvas/canvas.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "linux/canvas/system_colours.h"
#include "linux/windows/look.h"
#include "platform/error.h"

namespace corvane::linux_desktop {

ImagePicture::ImagePicture(QImage image) : image_(std::move(image)) {}

std::uint32_t ImagePicture::Handle() const {
    // Qt counts its images in the upper half, from 0 on.
    return image_.isNull() ? 0 : static_cast<std::uint32_t>(image_.cacheKey() >> 32) + 1;
}

QImage ImageOf(const Picture& picture) {
    const auto* own = dynamic_cast<const ImagePicture*>(picture.get());
    return own == nullptr ? QImage() : own->Image();
}

QFont ScreenFont(const StdFont& font) {
    QFont screen = DialogFont();
    if (font.Name != "MS Sans Serif") screen.setFamily(Words(font.Name));
    constexpr double kPixelsAPoint = 96.0 / 72.0;
    constexpr double kLargest = 1000;  // a stored size may be anything
    const double pixels = std::clamp(font.Size * kPixelsAPoint, 1.0, kLargest);
    screen.setPixelSize(static_cast<int>(std::lround(pixels)));
    screen.setBold(font.Weight >= 700);
    return screen;
}

Canvas::Canvas(Gdi& gdi)
    : gdi_(gdi),
      hdc_(++gdi.last_),
      image_(1, 1, QImage::Format_RGB32),
      background_(PixelOf(0)),
      pen_{PixelOf(0), 1},
      fill_colour_(PixelOf(0)),
      font_(DialogFont()) {
    gdi_.canvases_[hdc_] = this;
    Clear();
}

Canvas::~Canvas() {
    gdi_.canvases_.erase(hdc_);
}

void Canvas::SetSize(PixelSize size) {
    const QSize wanted(std::max(1, size.width), std::max(1, size.height));
    if (wanted == image_.size()) return;
    QImage sized(wanted, QImage::Format_RGB32);
    if (sized.isNull()) throw RuntimeError(kOverflow, "Overflow");  // no memory for so many
    sized.fill(background_);
    QPainter(&sized).drawImage(0, 0, image_);
    image_ = std::move(sized);
    Changed({});
}

void Canvas::Cls(Colour background) {
    background_ = PixelOf(background);
    Clear();
}

void Canvas::Clear() {
    image_.fill(background_);
    if (!picture_.isNull()) QPainter(&image_).drawImage(0, 0, picture_);
    Changed({});
}

void Canvas::SetForeColor(Colour colour) {
    pen_.colour = PixelOf(colour);
}

void Canvas::SetDrawWidth(std::int32_t pixels) {
    pen_.width = std::max(1, pixels);
}

void Canvas::SetFillColor(Colour colour) {
    fill_colour_ = PixelOf(colour);
}

void Canvas::SetFillStyle(FillStyle style) {
    fill_style_ = style;
}

void Canvas::SetFont(const StdFont& font) {
    font_ = ScreenFont(font);
}

Twips Canvas::TextWidth(const std::string& text) const {
    return static_cast<Twips>(QFontMetrics(font_).horizontalAdvance(Words(text)) * kTwipsPerPixel);
}

Twips Canvas::TextHeight(const std::string& /*text*/) const {
    return static_cast<Twips>(QFontMetrics(font_).height() * kTwipsPerPixel);
}

void Canvas::SetPicture(const Picture& picture) {
    picture_ = ImageOf(picture);
    Clear();
}

Picture Canvas::Image() const {
    return std::make_shared<ImagePicture>(image_);
}

Bitmap Canvas::Pixels() {
    auto* const pixels = reinterpret_cast<std::uint32_t*>(image_.bits());
    return {pixels, image_.width(), image_.height(),
            static_cast<std::int32_t>(image_.bytesPerLine() / 4)};
}

std::optional<std::uint32_t> Canvas::Brush() const {
    return fill_style_ == kSolidFill ? std::optional<std::uint32_t>(fill_colour_) : std::nullopt;
}

}  // namespace corvane::linux_desktop
