// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace corvane::linux_desktop {

/// The toolkit's plain style, with an edge around boxes, bars and buttons where that style would
/// draw it in the colour of what it stands on.
class OutlinedStyle final : public QProxyStyle {
public:
    OutlinedStyle() : QProxyStyle(kPlainStyle) {}

    static constexpr const char* kPlainStyle = "fusion";

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

/// Sees to it that what our windows consist of can be seen, in the desktop's own colours where
/// these allow it. A desktop with a style of its own keeps it.
void MakeWindowsVisible();

}  // namespace corvane::linux_desktop
