// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QLabel;
class QWidget;

/// How the windows of the training tell people something, whether they see it or hear it read out.
namespace corvane::linux_desktop {

/// For a window before it has parts: people read from some way off here.
void EnlargeText(QWidget& window);

/// For people and for their screen readers. A word that is wider than the window may be broken.
void SetText(QLabel& label, const QString& text);

/// Likewise, and a screen reader reads it out at once if it is something else than before and the
/// label is in view.
void Announce(QLabel& label, const QString& text);

}  // namespace corvane::linux_desktop
