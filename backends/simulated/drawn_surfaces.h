// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "platform/control_host.h"
#include "platform/gdi32.h"

namespace corvane::simulated {

/// A picture that knows what was drawn on it.
class DrawnPicture final : public IPicture {
public:
    DrawnPicture(std::uint32_t handle, PixelSize size, std::string calls = {})
        : handle_(handle), size_(size), calls_(std::move(calls)) {}

    [[nodiscard]] std::uint32_t Handle() const override { return handle_; }
    [[nodiscard]] PixelSize Size() const override { return size_; }
    [[nodiscard]] const std::string& Calls() const { return calls_; }

private:
    std::uint32_t handle_;
    PixelSize size_;
    std::string calls_;
};

/// A drawing that does not come to its end. It is no failure and nothing in the system catches it.
class EndlessDrawing final : public std::runtime_error {
public:
    EndlessDrawing() : std::runtime_error("a million operations since the surface was cleared") {}
};

class DrawnSurface;

/// Drawing calls in memory, on surfaces that keep them as lines of text.
class SimulatedGdi final : public IGdi32 {
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

    /// A surface of its own; it must not outlive this object.
    [[nodiscard]] std::unique_ptr<DrawnSurface> CreateSurface();
    [[nodiscard]] std::uint32_t NewHandle() { return ++last_handle_; }
    /// From now on GetDeviceCaps answers that of a context which is no surface.
    void SetDeviceCaps(HDC hdc, std::map<std::int32_t, std::int32_t> capabilities);

private:
    friend class DrawnSurface;

    /// Draws on that surface, if there is one.
    bool Draw(HDC hdc, const std::string& call);

    std::map<HDC, DrawnSurface*> surfaces_;
    std::map<HDC, std::map<std::int32_t, std::int32_t>> devices_;
    std::uint32_t last_handle_ = 0;
};

/// A surface that keeps the calls that made what it shows. Letters are cells of 6 by 13 pixels.
class DrawnSurface final : public ISurface {
public:
    DrawnSurface(SimulatedGdi& gdi, HDC hdc);
    ~DrawnSurface() override;

    DrawnSurface(const DrawnSurface&) = delete;
    DrawnSurface& operator=(const DrawnSurface&) = delete;

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

    /// How many twips a pixel is; 15 at first.
    void SetPitch(Twips across, Twips down);
    /// A call of the control around it, which is kept among the others.
    void Note(const std::string& call);

    [[nodiscard]] PixelSize Size() const { return size_; }
    /// The calls that made what is shown, one a line, the last clearing first.
    [[nodiscard]] const std::string& Shown() const { return shown_; }
    /// The texts that were drawn since then, one a line.
    [[nodiscard]] const std::string& Words() const { return words_; }
    /// All calls since StartRecording, one a line.
    void StartRecording();
    [[nodiscard]] const std::string& Recorded() const { return recorded_; }

private:
    friend class SimulatedGdi;

    SimulatedGdi& gdi_;
    HDC hdc_;
    PixelSize size_{1, 1};
    Twips across_ = 15;
    Twips down_ = 15;
    std::int32_t stretch_mode_ = 1;
    POINT position_;
    std::int32_t operations_ = 0;  // since the last clearing
    bool recording_ = false;
    std::string shown_;
    std::string words_;
    std::string recorded_;
};

/// "0xC08040", eight digits for a system colour.
[[nodiscard]] std::string Hex(Colour colour);

}  // namespace corvane::simulated
