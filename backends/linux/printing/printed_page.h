// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <functional>
#include <memory>
#include <vector>

#include "platform/gdi32.h"

class QPainter;
class QPrinter;

namespace corvane::linux_desktop {

/// A page of a print job. What is put on it is drawn when the job is sent, so a job that is given
/// up leaves nothing behind. Measured in the printer's dots, from the top left corner of the area
/// that can be printed on.
class PrintedPage {
public:
    using Mark = std::function<void(QPainter& painter)>;

    explicit PrintedPage(std::shared_ptr<QPrinter> printer);

    void Put(Mark mark) { marks_.push_back(std::move(mark)); }
    void Draw(QPainter& painter) const;

    /// What letters are measured with.
    [[nodiscard]] QPrinter& Device() const { return *printer_; }
    [[nodiscard]] double Dots(Twips twips) const;
    /// The part of the sheet at its left and top that can't be printed on, in whole dots.
    [[nodiscard]] QPoint Border() const;

private:
    std::shared_ptr<QPrinter> printer_;
    std::vector<Mark> marks_;
};

}  // namespace corvane::linux_desktop
