// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/printing/printer.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <utility>

#include "linux/canvas/canvas.h"
#include "linux/printing/paper_font.h"
#include "linux/printing/printer_choice.h"
#include "linux/printing/printer_error.h"
#include "linux/windows/look.h"

namespace corvane::linux_desktop {
namespace {

constexpr float kTwipsAPoint = 20;
constexpr float kTwipsAnInch = 1440;

Twips ToTwips(double points) {
    return static_cast<Twips>(points) * kTwipsAPoint;
}

float Scale(float size, ScaleMode from, ScaleMode to, const QPrinter& printer) {
    if (from == to) return size;
    const float twips_a_dot = kTwipsAnInch / static_cast<float>(printer.resolution());
    return to == kScaleTwips ? size * twips_a_dot : size / twips_a_dot;
}

QSizeF PaperSize(const QPrinter& printer) {
    return printer.pageLayout().fullRect(QPageLayout::Point).size();
}

/// All of the paper less what can't be printed on.
QSizeF PrintableSize(const QPrinter& printer) {
    const QMarginsF border = printer.pageLayout().minimumMargins();
    return PaperSize(printer) -
           QSizeF(border.left() + border.right(), border.top() + border.bottom());
}

}  // namespace

Printer::Printer(Gdi& gdi, PrinterChoice& choice) : gdi_(gdi), choice_(choice) {}

Printer::~Printer() {
    gdi_.RemovePage(hdc_);
}

std::shared_ptr<QPrinter> Printer::Device() const {
    return device_ ? device_ : choice_.Current();
}

void Printer::BeginPage() {
    if (!device_) {
        device_ = choice_.ForJob();
        device_->setDocName(QStringLiteral("KT Corvane"));
        // The origin is the paper's corner then, whatever margins the printer's settings ask for.
        device_->setFullPage(true);
    }
    pages_.push_back(std::make_unique<PrintedPage>(device_));
    hdc_ = gdi_.AddPage(*pages_.back());
    next_line_ = 0;
}

void Printer::Print(const std::string& text) {
    if (hdc_ == 0) BeginPage();
    const QFont font = PaperFont(DialogFont());
    const QFontMetricsF metrics(font, device_.get());
    pages_.back()->Put([font, words = Words(text),
                        base = QPointF(0, next_line_ + metrics.ascent())](QPainter& painter) {
        painter.setFont(font);
        painter.drawText(base, words);
    });
    next_line_ += metrics.lineSpacing();
}

float Printer::ScaleX(float width, ScaleMode from, ScaleMode to) const {
    return Scale(width, from, to, *Device());
}

float Printer::ScaleY(float height, ScaleMode from, ScaleMode to) const {
    return Scale(height, from, to, *Device());
}

Twips Printer::Width() const {
    return ToTwips(PaperSize(*Device()).width());
}

Twips Printer::Height() const {
    return ToTwips(PaperSize(*Device()).height());
}

float Printer::ScaleWidth() const {
    const auto device = Device();
    return Scale(ToTwips(PrintableSize(*device).width()), kScaleTwips, scale_mode_, *device);
}

float Printer::ScaleHeight() const {
    const auto device = Device();
    return Scale(ToTwips(PrintableSize(*device).height()), kScaleTwips, scale_mode_, *device);
}

void Printer::NewPage() {
    gdi_.RemovePage(std::exchange(hdc_, 0));
}

void Printer::EndDoc() {
    NewPage();
    // Whatever fails from here on, the job is over.
    const auto pages = std::exchange(pages_, {});
    const auto device = std::exchange(device_, nullptr);
    if (pages.empty()) return;
    QPainter painter;
    if (!painter.begin(device.get())) RaisePrinterError();
    for (const auto& page : pages) {
        if (page != pages.front() && !device->newPage()) RaisePrinterError();
        page->Draw(painter);
    }
    if (!painter.end() || device->printerState() == QPrinter::Error) RaisePrinterError();
}

}  // namespace corvane::linux_desktop
