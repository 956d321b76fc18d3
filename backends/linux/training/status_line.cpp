// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/status_line.h"

#include <QHBoxLayout>
#include <QLabel>

#include "linux/training/told_text.h"

namespace corvane::linux_desktop {

StatusLine::StatusLine(const QString& name, int lines) : picture_(new QLabel), words_(new QLabel) {
    words_->setObjectName("status");
    words_->setAccessibleName(name);
    words_->setTextFormat(Qt::PlainText);
    words_->setWordWrap(true);
    words_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    words_->setMinimumHeight(lines * fontMetrics().height());
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins({});
    line->addWidget(picture_, 0, Qt::AlignTop);
    line->addWidget(words_, 1);
}

void StatusLine::Say(const QString& words, std::optional<QStyle::StandardPixmap> picture) {
    const int size = fontMetrics().height() * 3 / 2;
    picture_->setPixmap(picture ? style()->standardIcon(*picture).pixmap(size) : QPixmap());
    picture_->setVisible(picture.has_value());
    Announce(*words_, words);
}

}  // namespace corvane::linux_desktop
