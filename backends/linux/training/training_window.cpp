// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/training_window.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

#include "linux/training/told_text.h"
#include "linux/windows/look.h"

namespace corvane::linux_desktop {
namespace {

constexpr QSize kSize(720, 520);

}  // namespace

TrainingWindow::TrainingWindow(const std::string& title, engine::UserProfile& profile, Means means)
    : close_(new QPushButton) {
    setWindowTitle(Words(title));
    EnlargeText(*this);
    resize(kSize);

    means.voice.changed = [this] { NameTheWayOut(); };
    means.voice.leave = [this] { reject(); };
    voice_ = new VoicePage(profile, std::move(means.voice));
    auto* pages = new QTabWidget;
    pages->setAccessibleName(tr("Training"));
    pages->addTab(voice_, tr("&Voice"));
    pages->addTab(new WordsPage(profile, std::move(means.words)), tr("&Words"));

    connect(close_, &QPushButton::clicked, this, &QDialog::reject);
    connect(pages, &QTabWidget::currentChanged, this, [this] { FollowEnter(); });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(close_);
    auto* all = new QVBoxLayout(this);
    all->addWidget(pages);
    all->addLayout(buttons);
    NameTheWayOut();
    voice_->setFocus();
}

void TrainingWindow::NameTheWayOut() {
    using Stage = VoiceSession::Stage;
    const Stage stage = voice_->Stage();
    const bool under_way = stage == Stage::reading || stage == Stage::training;
    close_->setText(under_way ? tr("&Cancel") : tr("&Close"));
    FollowEnter();
    // Whoever writes a word meanwhile goes on with that.
    if (stage == Stage::over && voice_->isVisible()) close_->setFocus();
}

// Enter adds a word that is being written, and throws no reading away: it closes only what is over.
void TrainingWindow::FollowEnter() {
    const bool closes = voice_->Stage() == VoiceSession::Stage::over && voice_->isVisible();
    close_->setAutoDefault(closes);
    if (!closes) close_->setDefault(false);
}

}  // namespace corvane::linux_desktop
