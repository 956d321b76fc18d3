// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/keyed_button.h"

#include <QKeyEvent>
#include <QPointer>

#include "linux/windows/key_codes.h"

namespace corvane::linux_desktop {

KeyedButton::KeyedButton(const QString& caption, QWidget* holder) : QPushButton(caption, holder) {}

bool KeyedButton::event(QEvent* event) {
    if (event->type() == QEvent::Shortcut) setFocus(Qt::ShortcutFocusReason);
    return QPushButton::event(event);
}

void KeyedButton::keyPressEvent(QKeyEvent* event) {
    const QPointer<KeyedButton> self(this);
    // A copy, since the handler may let this button go.
    if (const auto handler = KeyDown; handler && KeyCode(*event) != 0)
        handler(KeyCode(*event), ShiftState(*event));
    // The window's own record: another program may have the keyboard by now.
    if (!self || window()->focusWidget() != this) return;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

}  // namespace corvane::linux_desktop
