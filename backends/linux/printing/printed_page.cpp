// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/printing/printed_page.h"

#include <QPainter>
#include <QPrinter>
#include <utility>

namespace corvane::linux_desktop {

PrintedPage::PrintedPage(std::shared_ptr<QPrinter> printer) : printer_(std::move(printer)) {}

void PrintedPage::Draw(QPainter& painter) const {
    painter.save();
    painter.translate(Border());
    for (const Mark& mark : marks_) mark(painter);
    painter.restore();
}

double PrintedPage::Dots(Twips twips) const {
    constexpr double kTwipsAnInch = 1440;
    return static_cast<double>(twips) * printer_->resolution() / kTwipsAnInch;
}

QPoint PrintedPage::Border() const {
    constexpr double kPointsAnInch = 72;
    const QMarginsF points = printer_->pageLayout().minimumMargins();
    return {qRound(points.left() * printer_->resolution() / kPointsAnInch),
            qRound(points.top() * printer_->resolution() / kPointsAnInch)};
}

}  // namespace corvane::linux_desktop
