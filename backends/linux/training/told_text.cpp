// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/told_text.h"

#include <QAccessible>
#include <QFont>
#include <QLabel>

namespace corvane::linux_desktop {
namespace {

QString Breakable(const QString& text) {
    constexpr qsizetype kPart = 20;
    QString broken;
    qsizetype since_break = 0;
    for (const QChar sign : text) {
        since_break = sign.isSpace() ? 0 : since_break + 1;
        if (since_break > kPart && !sign.isLowSurrogate()) {
            broken += QChar(0x200B);  // of no width
            since_break = 1;
        }
        broken += sign;
    }
    return broken;
}

}  // namespace

void EnlargeText(QWidget& window) {
    constexpr double kPoints = 11.0;
    QFont larger = window.font();
    larger.setPointSizeF(kPoints);
    window.setFont(larger);
}

void SetText(QLabel& label, const QString& text) {
    label.setText(Breakable(text));
    label.setAccessibleDescription(text);
}

void Announce(QLabel& label, const QString& text) {
    const bool news = !text.isEmpty() && label.accessibleDescription() != text;
    SetText(label, text);
    if (!news || !label.isVisible()) return;
    QAccessibleEvent said(&label, QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
}

}  // namespace corvane::linux_desktop
