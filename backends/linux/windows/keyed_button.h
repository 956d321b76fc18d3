// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>
#include <cstdint>
#include <functional>

namespace corvane::linux_desktop {

/// A button, with its picture above its caption if it has one, that tells of each key that reaches
/// it before it takes part in the key itself. Enter clicks it, as Space does; its access key gives
/// it the focus, too.
class KeyedButton final : public QPushButton {
public:
    KeyedButton(const QString& caption, QWidget* holder);

    /// May move the focus, and even delete the button.
    std::function<void(std::int16_t code, std::int16_t shift)> KeyDown;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace corvane::linux_desktop
