// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QIcon>

namespace corvane::linux_desktop {

/// The place of a picture, in the size that suits the screen best. Empty as long as it has none.
class PictureView final : public QFrame {
public:
    enum class Fit {
        OwnSize,   ///< in its own size, or smaller where there is too little room
        Stretched  ///< fills the whole place
    };

    PictureView(Fit fit, QWidget* holder);

    void SetPicture(const QIcon& picture);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Fit fit_;
    QIcon picture_;
};

}  // namespace corvane::linux_desktop
