// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/put_over.h"

#include <QDialog>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace corvane::linux_desktop {

void PutOver(HWND owner, QWidget& window) {
    const QWidget* below = QWidget::find(owner);
    if (below == nullptr || !below->isVisible()) return;
    window.winId();  // makes its window
    window.windowHandle()->setTransientParent(below->windowHandle());
}

void ExecOver(HWND owner, QDialog& dialog) {
    PutOver(owner, dialog);
    // Whoever has no window of ours in front must still see it.
    QTimer::singleShot(0, &dialog, [&dialog] {
        dialog.raise();
        dialog.activateWindow();
    });
    dialog.exec();
}

}  // namespace corvane::linux_desktop
