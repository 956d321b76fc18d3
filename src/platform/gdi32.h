// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>

/// Drawing on surfaces: pictures, and the operations that draw with the pen and the fill that a
/// surface has at the time.
namespace corvane {

using HDC = std::uint32_t;    ///< handle of a surface's drawing context; 0 is none
using Colour = std::int32_t;  ///< 0x00BBGGRR; negative: system colour, its low 24 bits the index
using Twips = float;          ///< 1440 are an inch

struct PixelSize {
    std::int32_t width = 0, height = 0;
    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

struct POINT {
    std::int32_t x = 0, y = 0;
    friend bool operator==(const POINT&, const POINT&) = default;
};

/// A picture that nobody changes any more. Its pixels are known to the backend that made it.
class IPicture {
public:
    virtual ~IPicture() = default;
    /// 0 if the picture is empty.
    [[nodiscard]] virtual std::uint32_t Handle() const = 0;
    [[nodiscard]] virtual PixelSize Size() const = 0;
};

/// nullptr is no picture at all.
using Picture = std::shared_ptr<const IPicture>;

struct StdFont {
    std::string Name;
    double Size = 8.25;         ///< points
    std::int32_t Weight = 400;  ///< 700 is bold
    friend bool operator==(const StdFont&, const StdFont&) = default;
};

enum FillStyle : std::int32_t { kSolidFill = 0, kTransparentFill = 1 };

/// What GetDeviceCaps tells of a page: the border that can't be printed on, in the device's pixels.
enum DeviceCapability : std::int32_t {
    PHYSICALOFFSETX = 112,  ///< at the left
    PHYSICALOFFSETY = 113,  ///< at the top
};

enum StretchMode : std::int32_t { HALFTONE = 4 };

enum RasterOperation : std::uint32_t { SRCCOPY = 0x00CC0020 };

/// Drawing calls. Coordinates are pixels from the surface's top left corner, x to the right, y
/// downward; what lies outside is not drawn. Each returns false, and draws nothing, when there is
/// no such context.
class IGdi32 {
public:
    virtual ~IGdi32() = default;

    /// Sets the current position; `previous`, unless null, receives the one before.
    virtual bool MoveToEx(HDC hdc, std::int32_t x, std::int32_t y, POINT* previous) = 0;
    /// Draws with the pen from the current position to x, y, leaves out the end pixel, and makes it
    /// the current position. A pen wider than 1 is round at both ends.
    virtual bool LineTo(HDC hdc, std::int32_t x, std::int32_t y) = 0;
    /// Outline with the pen along the edge of the box, filled when the fill is solid. right and
    /// bottom are exclusive.
    virtual bool Ellipse(HDC hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                         std::int32_t bottom) = 0;
    virtual bool Rectangle(HDC hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                           std::int32_t bottom) = 0;
    /// The part of the ellipse in the box from the radial through the start point counterclockwise
    /// to the radial through the end point. Never filled.
    virtual bool Arc(HDC hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                     std::int32_t bottom, std::int32_t xStart, std::int32_t yStart,
                     std::int32_t xEnd, std::int32_t yEnd) = 0;
    /// Draws the first `length` characters with their top left at x, y, in the pen's colour and the
    /// surface's font. Nothing is drawn behind them.
    virtual bool TextOutA(HDC hdc, std::int32_t x, std::int32_t y, const std::string& text,
                          std::int32_t length) = 0;

    /// 0 if there is no such context.
    virtual std::int32_t GetStretchBltMode(HDC hdc) = 0;
    virtual std::int32_t SetStretchBltMode(HDC hdc, std::int32_t mode) = 0;
    /// Copies with scaling, smoothly in mode HALFTONE. The only operation is SRCCOPY.
    virtual bool StretchBlt(HDC hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t wDest,
                            std::int32_t hDest, HDC hdcSrc, std::int32_t xSrc, std::int32_t ySrc,
                            std::int32_t wSrc, std::int32_t hSrc, std::uint32_t rop) = 0;

    /// A DeviceCapability of that context; 0 for any other index, for a surface on the screen and
    /// when there is no such context.
    [[nodiscard]] virtual std::int32_t GetDeviceCaps(HDC hdc, std::int32_t index) = 0;
};

}  // namespace corvane
