// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "platform/gdi32.h"

/// Printing on paper.
namespace corvane {

/// Units in which a printer counts.
enum ScaleMode : std::int16_t {
    kScaleTwips = 1,   ///< 1440 are an inch
    kScalePixels = 3,  ///< the printer's own dots
};

/// The printer of the person's choice: the one that was confirmed last when a person was asked how
/// to print, else the desktop's default one. It prints one job at a time, a page after the other.
///
/// Everything but SetScaleMode raises kPrinterError when there is no printer or it fails. A job
/// that has failed is lost, and the next Print begins another one; a job that was never ended by
/// EndDoc does not come out.
class IPrinter {
public:
    virtual ~IPrinter() = default;

    /// Prints a line of text at the top left of what the job has left free on the page. The first
    /// one begins the job, or the page after a NewPage: only from then on hDC is a context.
    virtual void Print(const std::string& text) = 0;

    /// The unit of ScaleWidth and ScaleHeight from now on; twips at first.
    virtual void SetScaleMode(ScaleMode mode) = 0;
    /// A width across the page, told in another unit.
    [[nodiscard]] virtual float ScaleX(float width, ScaleMode from, ScaleMode to) const = 0;
    /// A height down the page, told in another unit.
    [[nodiscard]] virtual float ScaleY(float height, ScaleMode from, ScaleMode to) const = 0;

    /// The sheet of paper, always in twips.
    [[nodiscard]] virtual Twips Width() const = 0;
    [[nodiscard]] virtual Twips Height() const = 0;
    /// The part of the sheet that can be printed on, in the unit of the scale mode.
    [[nodiscard]] virtual float ScaleWidth() const = 0;
    [[nodiscard]] virtual float ScaleHeight() const = 0;

    /// The page that is being printed, for GetDeviceCaps and for EM_FORMATRANGE. It is another one
    /// on each page; 0 while no page has begun.
    [[nodiscard]] virtual HDC hDC() const = 0;

    /// Ends the page; the next one begins with the next Print.
    virtual void NewPage() = 0;
    /// Ends the job and hands it to the printer. Without a job it does nothing.
    virtual void EndDoc() = 0;
};

}  // namespace corvane
