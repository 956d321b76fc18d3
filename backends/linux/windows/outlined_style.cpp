// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/outlined_style.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

#include "linux/windows/contrast.h"

namespace corvane::linux_desktop {
namespace {

/// The style takes a darker colour than the window's for its edges, and there is none on black.
bool EdgesVanish(const QPalette& colours) {
    constexpr int kStylesDarkening = 140;
    constexpr double kSeen = 1.3;
    const QColor window = colours.color(QPalette::Window);
    return Contrast(window, window.darker(kStylesDarkening)) < kSeen;
}

void DrawEdge(const QStyleOption& option, QPainter& painter) {
    const QPalette& colours = option.palette;
    if (!EdgesVanish(QApplication::palette())) return;
    const bool focused = option.state.testFlag(QStyle::State_HasFocus) &&
                         option.state.testFlag(QStyle::State_Enabled);
    const QColor plain = QApplication::palette().color(QPalette::WindowText);
    const QColor window = QApplication::palette().color(QPalette::Window);
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(focused ? colours.color(QPalette::Highlight) : Blend(window, plain, 0.6));
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

}  // namespace

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
        case PE_Frame:
        case PE_FrameLineEdit:
        case PE_FrameMenu:
        case PE_IndicatorCheckBox:
        case PE_PanelButtonCommand:
            DrawEdge(*option, *painter);
            break;
        default:
            break;
    }
}

void OutlinedStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_ProgressBarGroove) DrawEdge(*option, *painter);
}

void MakeWindowsVisible() {
    const QPalette colours = QApplication::palette();
    const QPalette visible = WithoutVanishing(colours);
    if (visible != colours) QApplication::setPalette(visible);
    if (QApplication::style()->name() == QLatin1String(OutlinedStyle::kPlainStyle))
        QApplication::setStyle(new OutlinedStyle);
}

}  // namespace corvane::linux_desktop
