// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QGroupBox>
#include <QWidget>

namespace corvane::linux_desktop {

/// A box whose caption interrupts its upper edge. The edge lies within the widget, at half the
/// caption's height, so that what stands inside is counted from the widget's own corner.
class CaptionedFrame final : public QGroupBox {
public:
    CaptionedFrame(const QString& caption, QWidget* holder);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A line between parts of a window, one pixel thick; nothing to act on.
class DividingLine final : public QFrame {
public:
    explicit DividingLine(QWidget* holder);
};

}  // namespace corvane::linux_desktop
