// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace corvane::linux_desktop {

/// The desktop's own style, with an edge around boxes, bars and buttons where that style would draw
/// it in the colour of what it stands on.
class OutlinedStyle final : public QProxyStyle {
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

/// Sees to it that what our windows consist of can be seen, in the desktop's own colours where
/// these allow it. Once an application.
void MakeWindowsVisible();

}  // namespace corvane::linux_desktop
