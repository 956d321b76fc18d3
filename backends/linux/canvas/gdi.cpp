// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <QFontMetrics>
#include <QPainter>
#include <utility>

#include "linux/canvas/canvas.h"
#include "linux/canvas/ellipses.h"
#include "linux/canvas/strokes.h"
#include "linux/printing/printed_page.h"
#include "linux/windows/look.h"

/// The drawing calls themselves.
namespace corvane::linux_desktop {
namespace {

/// The box between two corners, whichever they are.
Box BoxOf(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    return {std::min(left, right), std::min(top, bottom), std::max(left, right),
            std::max(top, bottom)};
}

}  // namespace

Canvas* Gdi::Find(HDC hdc) const {
    const auto found = canvases_.find(hdc);
    return found == canvases_.end() ? nullptr : found->second;
}

bool Gdi::MoveToEx(HDC hdc, std::int32_t x, std::int32_t y, POINT* previous) {
    Canvas* const canvas = Find(hdc);
    if (canvas == nullptr) return false;
    const POINT before = std::exchange(canvas->position_, {x, y});
    if (previous != nullptr) *previous = before;
    return true;
}

bool Gdi::LineTo(HDC hdc, std::int32_t x, std::int32_t y) {
    Canvas* const canvas = Find(hdc);
    if (canvas == nullptr) return false;
    DrawLine(canvas->Pixels(), canvas->pen_, std::exchange(canvas->position_, {x, y}), {x, y});
    canvas->Changed({});
    return true;
}

bool Gdi::Ellipse(HDC hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                  std::int32_t bottom) {
    Canvas* const canvas = Find(hdc);
    if (canvas == nullptr) return false;
    DrawEllipse(canvas->Pixels(), canvas->pen_, canvas->Brush(), BoxOf(left, top, right, bottom));
    canvas->Changed({});
    return true;
}

bool Gdi::Rectangle(HDC hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                    std::int32_t bottom) {
    Canvas* const canvas = Find(hdc);
    if (canvas == nullptr) return false;
    DrawRectangle(canvas->Pixels(), canvas->pen_, canvas->Brush(), BoxOf(left, top, right, bottom));
    canvas->Changed({});
    return true;
}

bool Gdi::Arc(HDC hdc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
              std::int32_t xStart, std::int32_t yStart, std::int32_t xEnd, std::int32_t yEnd) {
    Canvas* const canvas = Find(hdc);
    if (canvas == nullptr) return false;
    DrawArc(canvas->Pixels(), canvas->pen_, BoxOf(left, top, right, bottom), {xStart, yStart},
            {xEnd, yEnd});
    canvas->Changed({});
    return true;
}

bool Gdi::TextOutA(HDC hdc, std::int32_t x, std::int32_t y, const std::string& text,
                   std::int32_t length) {
    Canvas* const canvas = Find(hdc);
    if (canvas == nullptr) return false;
    const QString words = Words(text).left(length);
    QPainter painter(&canvas->image_);
    painter.setFont(canvas->font_);
    painter.setPen(QColor(canvas->pen_.colour));
    const POINT place = Within({x, y});
    painter.drawText(place.x, place.y + QFontMetrics(canvas->font_).ascent(), words);
    painter.end();
    canvas->Changed(words);
    return true;
}

std::int32_t Gdi::GetStretchBltMode(HDC hdc) {
    Canvas* const canvas = Find(hdc);
    return canvas == nullptr ? 0 : canvas->stretch_mode_;
}

std::int32_t Gdi::SetStretchBltMode(HDC hdc, std::int32_t mode) {
    Canvas* const canvas = Find(hdc);
    return canvas == nullptr ? 0 : std::exchange(canvas->stretch_mode_, mode);
}

bool Gdi::StretchBlt(HDC hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t wDest,
                     std::int32_t hDest, HDC hdcSrc, std::int32_t xSrc, std::int32_t ySrc,
                     std::int32_t wSrc, std::int32_t hSrc, std::uint32_t rop) {
    Canvas* const target = Find(hdcDest);
    const Canvas* const source = Find(hdcSrc);
    if (target == nullptr || source == nullptr || rop != SRCCOPY) return false;
    // Larger than any surface: nothing that could be meant.
    constexpr std::int32_t kLargest = 16384;
    for (const std::int32_t side : {wDest, hDest, wSrc, hSrc})
        if (side < 1 || side > kLargest) return false;
    const Qt::TransformationMode mode =
        target->stretch_mode_ == HALFTONE ? Qt::SmoothTransformation : Qt::FastTransformation;
    const QImage stretched = source->image_.copy(xSrc, ySrc, wSrc, hSrc)
                                 .scaled(wDest, hDest, Qt::IgnoreAspectRatio, mode);
    QPainter(&target->image_).drawImage(xDest, yDest, stretched);
    target->Changed({});
    return true;
}

std::int32_t Gdi::GetDeviceCaps(HDC hdc, std::int32_t index) {
    const PrintedPage* const page = FindPage(hdc);
    if (page == nullptr) return 0;
    if (index == PHYSICALOFFSETX) return page->Border().x();
    return index == PHYSICALOFFSETY ? page->Border().y() : 0;
}

HDC Gdi::AddPage(PrintedPage& page) {
    pages_[++last_] = &page;
    return last_;
}

PrintedPage* Gdi::FindPage(HDC hdc) const {
    const auto found = pages_.find(hdc);
    return found == pages_.end() ? nullptr : found->second;
}

}  // namespace corvane::linux_desktop
