// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QImage>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "linux/canvas/bitmap.h"
#include "platform/control_host.h"

namespace corvane::linux_desktop {

/// A picture that is an image of Qt.
class ImagePicture final : public IPicture {
public:
    explicit ImagePicture(QImage image);

    [[nodiscard]] std::uint32_t Handle() const override;
    [[nodiscard]] PixelSize Size() const override { return {image_.width(), image_.height()}; }
    [[nodiscard]] const QImage& Image() const { return image_; }

private:
    QImage image_;
};

/// The image of a picture; null for none, for an empty one, and for one of another backend.
[[nodiscard]] QImage ImageOf(const Picture& picture);

class Gdi;
class PrintedPage;

/// A retained image that is drawn on. Nothing but text is smoothed.
class Canvas final : public ISurface {
public:
    explicit Canvas(Gdi& gdi);
    ~Canvas() override;

    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// Called by all that changes what is shown; `words` is the text that was drawn, if it was one.
    std::function<void(const QString& words)> Changed = [](const QString&) {};

    [[nodiscard]] HDC hDC() const override { return hdc_; }
    void SetSize(PixelSize size) override;
    void Cls(Colour background) override;
    void SetForeColor(Colour colour) override;
    void SetDrawWidth(std::int32_t pixels) override;
    void SetFillColor(Colour colour) override;
    void SetFillStyle(FillStyle style) override;
    void SetFont(const StdFont& font) override;
    [[nodiscard]] Twips TextWidth(const std::string& text) const override;
    [[nodiscard]] Twips TextHeight(const std::string& text) const override;
    void SetPicture(const Picture& picture) override;
    [[nodiscard]] Picture Image() const override;

    [[nodiscard]] const QImage& Shown() const { return image_; }

private:
    friend class Gdi;

    [[nodiscard]] Bitmap Pixels();
    [[nodiscard]] std::optional<std::uint32_t> Brush() const;
    void Clear();

    Gdi& gdi_;
    HDC hdc_;
    QImage image_;
    QImage picture_;
    QRgb background_;
    Pen pen_;
    QRgb fill_colour_;
    FillStyle fill_style_ = kTransparentFill;
    QFont font_;
    POINT position_;
    std::int32_t stretch_mode_ = 1;
};

/// The drawing calls on canvases, by their handles, and the handles of pages that are being
/// printed.
class Gdi final : public IGdi32 {
public:
    bool MoveToEx(HDC hdc, std::int32_t x, std::int32_t y, POINT* previous) override;
    bool LineTo(HDC hdc, std::int32_t x, std::int32_t y) override;
    bool Ellipse(HDC hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                 std::int32_t bottom) override;
    bool Rectangle(HDC hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                   std::int32_t bottom) override;
    bool Arc(HDC hdc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
             std::int32_t xStart, std::int32_t yStart, std::int32_t xEnd,
             std::int32_t yEnd) override;
    bool TextOutA(HDC hdc, std::int32_t x, std::int32_t y, const std::string& text,
                  std::int32_t length) override;
    std::int32_t GetStretchBltMode(HDC hdc) override;
    std::int32_t SetStretchBltMode(HDC hdc, std::int32_t mode) override;
    bool StretchBlt(HDC hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t wDest,
                    std::int32_t hDest, HDC hdcSrc, std::int32_t xSrc, std::int32_t ySrc,
                    std::int32_t wSrc, std::int32_t hSrc, std::uint32_t rop) override;
    std::int32_t GetDeviceCaps(HDC hdc, std::int32_t index) override;

    /// Makes a context of a page, which stays as long as the context.
    [[nodiscard]] HDC AddPage(PrintedPage& page);
    void RemovePage(HDC hdc) { pages_.erase(hdc); }
    /// nullptr if there is no such page.
    [[nodiscard]] PrintedPage* FindPage(HDC hdc) const;

private:
    friend class Canvas;

    [[nodiscard]] Canvas* Find(HDC hdc) const;

    std::map<HDC, Canvas*> canvases_;
    std::map<HDC, PrintedPage*> pages_;
    HDC last_ = 0;
};

/// A font of the screen: its size is told in points at 96 dots an inch.
[[nodiscard]] QFont ScreenFont(const StdFont& font);

}  // namespace corvane::linux_desktop
