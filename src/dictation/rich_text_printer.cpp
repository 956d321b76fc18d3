// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "dictation/rich_text_printer.h"

#include "platform/rich_edit.h"
#include "runtime/arithmetic.h"
#include "runtime/failure.h"
#include "runtime/text.h"

namespace corvane {
namespace {

constexpr std::uint32_t kDraw = 0xFFFFFFFF;  // -1; to measure only would be 0
constexpr std::uint32_t kNothing = 0;

}  // namespace

RichTextPrinter::RichTextPrinter(IPrinter& printer, IGdi32& gdi32, IUser32& user32)
    : printer_(printer), gdi32_(gdi32), user32_(user32) {}

void RichTextPrinter::PrintRichText(const forms::TextBox& box, const PrintMargins& margins) {
    on_error([&] { PrintPages(box, margins); },
             [](const RuntimeError&) {
                 // Without a word, and without an end of the job or of the box's layout.
             });
}

void RichTextPrinter::PrintPages(const forms::TextBox& box, const PrintMargins& margins) {
    // Only what is printed begins a page, and gives it its context.
    printer_.Print(" ");
    printer_.SetScaleMode(kScaleTwips);
    const auto caps = [&](DeviceCapability index) {
        return static_cast<float>(gdi32_.GetDeviceCaps(printer_.hDC(), index));
    };
    const Long left_offset =
        Round(printer_.ScaleX(caps(PHYSICALOFFSETX), kScalePixels, kScaleTwips));
    const Long top_offset =
        Round(printer_.ScaleY(caps(PHYSICALOFFSETY), kScalePixels, kScaleTwips));

    // Places count from the corner of what can be printed on, margins from the paper's.
    const Long left = margins.left - left_offset;
    const Long top = margins.top - top_offset;
    const auto end = [](double paper, Long margin, Long offset) {
        return Round(paper - margin.rep() - offset.rep());
    };
    const Long right = end(printer_.Width(), margins.right, left_offset);
    const Long bottom = end(printer_.Height(), margins.bottom, top_offset);

    FORMATRANGE range;
    range.hdc = range.hdcTarget = printer_.hDC();
    range.rc = {left.rep(), top.rep(), right.rep(), bottom.rep()};
    range.rcPage = {0, 0, Round(printer_.ScaleWidth()).rep(), Round(printer_.ScaleHeight()).rep()};
    range.chrg = {0, -1};
    const Long length = Len(box.Text());
    for (;;) {
        const Long next = user32_.SendMessageA(box.hWnd(), EM_FORMATRANGE, kDraw, &range);
        if (next >= length) break;
        range.chrg.cpMin = next.rep();
        printer_.NewPage();
        printer_.Print(" ");
        range.hdc = range.hdcTarget = printer_.hDC();  // each page has its own
    }
    printer_.EndDoc();
    user32_.SendMessageA(box.hWnd(), EM_FORMATRANGE, kNothing, nullptr);
}

}  // namespace corvane
