// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/painted_widgets.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace corvane::linux_desktop {
namespace {

constexpr int kCaptionIndent = 8;
constexpr int kCaptionGap = 2;

}  // namespace

CaptionedFrame::CaptionedFrame(const QString& caption, QWidget* holder)
    : QGroupBox(caption, holder) {}

void CaptionedFrame::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QFontMetrics metrics = fontMetrics();
    const QRect caption(kCaptionIndent, 0, metrics.horizontalAdvance(title()), metrics.height());
    const int edge = metrics.height() / 2;

    painter.save();
    const QRect gap = caption.adjusted(-kCaptionGap, 0, kCaptionGap, 0);
    painter.setClipRegion(QRegion(rect()) - QRegion(title().isEmpty() ? QRect() : gap));
    // Two lines, one in the shadow and one in the light, look like a groove.
    painter.setPen(palette().color(QPalette::Light));
    painter.drawRect(rect().adjusted(1, edge + 1, -1, -1));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, edge, -2, -2));
    painter.restore();

    style()->drawItemText(&painter, caption, Qt::AlignLeft | Qt::AlignTop, palette(), isEnabled(),
                          title(), QPalette::WindowText);
}

DividingLine::DividingLine(QWidget* holder) : QFrame(holder) {
    setFrameStyle(QFrame::Box | QFrame::Plain);
    lower();
}

}  // namespace corvane::linux_desktop
