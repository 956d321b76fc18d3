// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/picture_view.h"

#include <QPainter>

namespace corvane::linux_desktop {

PictureView::PictureView(Fit fit, QWidget* holder) : QFrame(holder), fit_(fit) {}

void PictureView::SetPicture(const QIcon& picture) {
    picture_ = picture;
    update();
}

void PictureView::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    if (picture_.availableSizes().isEmpty()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (fit_ == Fit::OwnSize) {
        picture_.paint(&painter, contentsRect());
        return;
    }
    // An icon keeps its proportions, so it is asked for all that it has and stretched here.
    const QPixmap whole = picture_.pixmap(picture_.availableSizes().last(), 1.0);
    painter.drawPixmap(contentsRect(), whole);
}

}  // namespace corvane::linux_desktop
