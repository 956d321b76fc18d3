// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProgressBar>

namespace corvane::linux_desktop {

/// How loud it is at the microphone, 0 to 100. The last part of it has a warning's colour.
class LevelMeter final : public QProgressBar {
public:
    explicit LevelMeter(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace corvane::linux_desktop
