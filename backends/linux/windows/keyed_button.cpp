// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/keyed_button.h"

#include <QKeyEvent>
#include <QPointer>
#include <QStyleOptionButton>
#include <QStylePainter>

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

void KeyedButton::paintEvent(QPaintEvent* event) {
    if (icon().isNull()) return QPushButton::paintEvent(event);
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);

    const QRect face = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    constexpr int kGap = 2;
    const int line = fontMetrics().height();
    QRect picture(QPoint(), iconSize());
    picture.moveCenter(face.center());
    picture.moveTop(face.top() + (face.height() - iconSize().height() - kGap - line) / 2);
    const QRect caption(face.left(), picture.bottom() + 1 + kGap, face.width(), line);
    icon().paint(&painter, picture, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.drawItemText(caption, Qt::AlignCenter | Qt::TextShowMnemonic, palette(), isEnabled(),
                         text(), QPalette::ButtonText);
    if (!option.state.testFlag(QStyle::State_HasFocus)) return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
}

}  // namespace corvane::linux_desktop
