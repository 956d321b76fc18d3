// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/status_line.h"

#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>

#include "linux/training/told_text.h"

namespace corvane::linux_desktop {

StatusLine::StatusLine(const QString& name, int lines) : picture_(new QLabel), words_(new QLabel) {
    words_->setObjectName("status");
    words_->setAccessibleName(name);
    words_->setTextFormat(Qt::PlainText);
    words_->setWordWrap(true);
    words_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    words_->setMinimumHeight(std::max(lines * fontMetrics().height(), PictureSize()));
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins({});
    line->addWidget(picture_, 0, Qt::AlignTop);
    line->addWidget(words_, 1);
}

int StatusLine::PictureSize() const {
    return fontMetrics().height() * 3 / 2;
}

void StatusLine::Say(const QString& words, std::optional<QStyle::StandardPixmap> picture) {
    picture_->setPixmap(picture ? style()->standardIcon(*picture).pixmap(PictureSize())
                                : QPixmap());
    picture_->setVisible(picture.has_value());
    Announce(*words_, words);
}

}  // namespace corvane::linux_desktop
