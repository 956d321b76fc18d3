// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListWidget>
#include <functional>

namespace corvane::linux_desktop {

/// All sounds that a word may be made of, each with a word in which it is heard.
class SoundPalette final : public QListWidget {
public:
    /// chosen: told the name of a sound that a person takes.
    explicit SoundPalette(std::function<void(const QString& sound)> chosen);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    /// As the font is.
    void FitGrid();
    [[nodiscard]] QSize Rows(int rows) const;
};

}  // namespace corvane::linux_desktop
