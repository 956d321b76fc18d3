// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyle>
#include <QWidget>
#include <optional>

class QLabel;

namespace corvane::linux_desktop {

/// A line below all else that says what is the matter, with a picture of it. It is announced.
class StatusLine final : public QWidget {
public:
    /// name: for screen readers. lines: for which there is always room, since a line that comes and
    /// goes would move everything above it.
    StatusLine(const QString& name, int lines);

    void Say(const QString& words, std::optional<QStyle::StandardPixmap> picture);

private:
    [[nodiscard]] int PictureSize() const;

    QLabel* picture_;
    QLabel* words_;
};

}  // namespace corvane::linux_desktop
