// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/level_meter.h"

#include <QFontMetrics>
#include <QPainter>

namespace corvane::linux_desktop {
namespace {

constexpr int kFull = 100;
/// Speech at a usual distance stays below, see engine::AudioLevel.
constexpr int kLoud = 85;
constexpr int kParts = 50;
const QColor kWarning(0xe0, 0x7b, 0x00);

}  // namespace

LevelMeter::LevelMeter(QWidget* parent) : QProgressBar(parent) {
    setRange(0, kFull);
    setValue(0);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize LevelMeter::sizeHint() const {
    const int height = QFontMetrics(font()).height();
    return {10 * height, height * 2 / 3};
}

void LevelMeter::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(Qt::NoPen);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor unlit = palette().color(QPalette::WindowText);
    unlit.setAlpha(40);
    const QColor lit = palette().color(QPalette::Active, QPalette::Highlight);
    const double step = static_cast<double>(width()) / kParts;
    for (int part = 0; part < kParts; ++part) {
        const int level = part * kFull / kParts;
        const QColor colour = level >= kLoud ? kWarning : lit;
        painter.setBrush(value() > level ? colour : unlit);
        painter.drawRoundedRect(QRectF(part * step, 0.0, step * 0.7, height()), 1.5, 1.5);
    }
}

}  // namespace corvane::linux_desktop
