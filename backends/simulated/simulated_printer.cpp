// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_printer.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "platform/error.h"
#include "runtime/text.h"

namespace corvane::simulated {
namespace {

constexpr Twips kPaperWidth = 12240;
constexpr Twips kPaperHeight = 15840;
constexpr Twips kTwipsPerDotAcross = 2.4F;
constexpr Twips kTwipsPerDotDown = 4.8F;
constexpr std::int32_t kLeftBorder = 150;  // dots
constexpr std::int32_t kTopBorder = 50;
constexpr std::int32_t kLeftBorderTwips = 360;
constexpr std::int32_t kTopBorderTwips = 240;
constexpr std::int32_t kCellWidth = 120;
constexpr std::int32_t kCellHeight = 240;

float Scale(float size, float twips_per_dot, ScaleMode from, ScaleMode to) {
    if (from == to) return size;
    return to == kScaleTwips ? size * twips_per_dot : size / twips_per_dot;
}

std::vector<std::string> CharactersOf(std::string_view text) {
    std::vector<std::string> characters;
    while (!text.empty()) {
        characters.push_back(Left(text, 1));
        text.remove_prefix(characters.back().size());
    }
    return characters;
}

/// One line: where it ends, and where the next one begins.
struct Line {
    std::size_t end = 0;
    std::size_t next = 0;
};

Line LayOutLine(const std::vector<std::string>& text, std::size_t from, std::size_t to,
                std::size_t cells) {
    std::size_t behind_blank = from;
    for (std::size_t at = from; at < to; ++at) {
        if (text[at] == "\r" || text[at] == "\n") {
            const bool two = text[at] == "\r" && at + 1 < to && text[at + 1] == "\n";
            return {at, at + (two ? 2 : 1)};
        }
        // Blanks at the end of a line take no room.
        if (text[at] == " ") {
            behind_blank = at + 1;
        } else if (at - from >= cells) {
            if (behind_blank == from) return {at, at};
            return {behind_blank, behind_blank};
        }
    }
    return {to, to};
}

std::string Numbers(const RECT& rect) {
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," +
           std::to_string(rect.right) + "," + std::to_string(rect.bottom);
}

}  // namespace

SimulatedPrinter::SimulatedPrinter(CallRecord& record, SimulatedGdi& gdi)
    : record_(record), gdi_(gdi) {}

void SimulatedPrinter::Work(const std::string& operation, const std::string& arguments) {
    try {
        record_.Call(operation, arguments);
    } catch (const RuntimeError&) {
        job_.clear();
        page_ = 0;
        throw;
    }
}

void SimulatedPrinter::Print(const std::string& text) {
    Work("Printer.Print", "\"" + text + "\"");
    if (page_ == 0) {
        page_ = gdi_.NewHandle();
        gdi_.SetDeviceCaps(page_, {{PHYSICALOFFSETX, kLeftBorder}, {PHYSICALOFFSETY, kTopBorder}});
        job_.emplace_back();
    }
    job_.back().printed += text + "\n";
}

void SimulatedPrinter::SetScaleMode(ScaleMode mode) {
    record_.Call("Printer.ScaleMode", std::to_string(mode));
    scale_mode_ = mode;
}

float SimulatedPrinter::ScaleX(float width, ScaleMode from, ScaleMode to) const {
    record_.Quietly("Printer.ScaleX");
    return Scale(width, kTwipsPerDotAcross, from, to);
}

float SimulatedPrinter::ScaleY(float height, ScaleMode from, ScaleMode to) const {
    record_.Quietly("Printer.ScaleY");
    return Scale(height, kTwipsPerDotDown, from, to);
}

Twips SimulatedPrinter::Width() const {
    record_.Quietly("Printer.Width");
    return kPaperWidth;
}

Twips SimulatedPrinter::Height() const {
    record_.Quietly("Printer.Height");
    return kPaperHeight;
}

float SimulatedPrinter::ScaleWidth() const {
    record_.Quietly("Printer.ScaleWidth");
    return Scale(kPaperWidth - 2 * kLeftBorderTwips, kTwipsPerDotAcross, kScaleTwips, scale_mode_);
}

float SimulatedPrinter::ScaleHeight() const {
    record_.Quietly("Printer.ScaleHeight");
    return Scale(kPaperHeight - 2 * kTopBorderTwips, kTwipsPerDotDown, kScaleTwips, scale_mode_);
}

HDC SimulatedPrinter::hDC() const {
    record_.Quietly("Printer.hDC");
    return page_;
}

void SimulatedPrinter::NewPage() {
    Work("Printer.NewPage");
    page_ = 0;
}

void SimulatedPrinter::EndDoc() {
    Work("Printer.EndDoc");
    if (!job_.empty()) jobs_.push_back(std::exchange(job_, {}));
    page_ = 0;
}

std::int32_t SimulatedPrinter::FormatRange(HWND control, const std::string& text, bool draw,
                                           const FORMATRANGE& range) {
    record_.Call("FormatRange", std::string(draw ? "draw " : "measure ") + Numbers(range.rc) +
                                    " of " + Numbers(range.rcPage) + " from " +
                                    std::to_string(range.chrg.cpMin) + " to " +
                                    std::to_string(range.chrg.cpMax));
    if (range.hdc == 0 || range.hdc != page_ || range.hdcTarget != page_) {
        throw RuntimeError(kPrinterError, "Printer error");
    }
    layouts_.insert(control);

    const std::vector<std::string> characters = CharactersOf(text);
    const std::size_t to =
        range.chrg.cpMax < 0
            ? characters.size()
            : std::min(characters.size(), static_cast<std::size_t>(range.chrg.cpMax));
    const auto cells = std::max(1, (range.rc.right - range.rc.left) / kCellWidth);
    const auto rows = std::max(1, (range.rc.bottom - range.rc.top) / kCellHeight);
    std::vector<std::string> lines;
    auto at = static_cast<std::size_t>(range.chrg.cpMin);
    while (at < to && static_cast<std::int32_t>(lines.size()) < rows) {
        const Line line = LayOutLine(characters, at, to, static_cast<std::size_t>(cells));
        std::string& words = lines.emplace_back();
        for (; at < line.end; ++at) words += characters[at];
        at = line.next;
    }
    if (draw) {
        PrintedPage& page = job_.back();
        page.lines = std::move(lines);
        page.place = {range.rc.left + kLeftBorderTwips, range.rc.top + kTopBorderTwips,
                      range.rc.right + kLeftBorderTwips, range.rc.bottom + kTopBorderTwips};
    }
    return static_cast<std::int32_t>(at);
}

}  // namespace corvane::simulated
