// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/voice_page.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

#include "linux/training/level_meter.h"
#include "linux/training/status_line.h"
#include "linux/training/told_text.h"
#include "linux/training/voice_words.h"
#include "linux/windows/look.h"

namespace corvane::linux_desktop {
namespace {

using Stage = VoiceSession::Stage;

constexpr int kPercent = 100;

QLabel* MakeText(const QString& name) {
    auto* label = new QLabel;
    // A sentence may hold what looks like markup.
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAccessibleName(name);
    return label;
}

/// The larger, the less there is to read.
void SetLargeText(const QWidget& page, QLabel& label, const QString& text) {
    constexpr qsizetype kSentence = 90;
    constexpr qsizetype kParagraph = 240;
    QFont font = page.font();
    const double size = font.pointSizeF();
    font.setPointSizeF(text.size() <= kSentence ? 2.2 * size
                                                : (text.size() <= kParagraph ? 1.6 * size : size));
    label.setFont(font);
    Announce(label, text);
}

}  // namespace

VoicePage::VoicePage(engine::UserProfile& profile, Means means)
    : profile_(profile),
      means_(std::move(means)),
      introduction_(MakeText(tr("What this is"))),
      number_(MakeText(tr("Progress"))),
      progress_(new QProgressBar),
      card_(new QScrollArea),
      sentence_(MakeText(tr("Sentence to read"))),
      status_(new StatusLine(tr("Training status"), 3)),
      wishes_(MakeText(tr("What may be said"))),
      meter_(new LevelMeter),
      start_(new QPushButton(tr("&Start"))),
      again_(new QPushButton(tr("&Again"))),
      skip_(new QPushButton(tr("S&kip"))),
      anew_(new QPushButton(tr("&Train again"))),
      undo_(new QPushButton(tr("&Undo last training"))),
      save_(new QPushButton(tr("Try to &save again"))) {
    SetText(*introduction_,
            tr("Read some sentences aloud, and your voice is understood better: by commands and "
               "in dictation. It takes about three minutes. Press Start, or simply read the "
               "sentence below."));
    MakeButtons();
    LayOut();
    Begin();
}

VoicePage::~VoicePage() = default;

void VoicePage::MakeButtons() {
    start_->setDefault(true);
    // Nobody is to lose a training by a key pressed without looking.
    undo_->setAutoDefault(false);
    setFocusProxy(start_);
    again_->setToolTip(tr("Read this sentence again from its beginning"));
    skip_->setToolTip(tr("Leave this sentence out"));
    anew_->setToolTip(tr("Read the sentences from the first one"));
    undo_->setToolTip(tr("Be understood as before the last training"));
    save_->setToolTip(tr("Keep what was learnt from your reading"));
    for (QPushButton* button : {start_, again_, skip_, anew_, undo_, save_})
        button->setAccessibleDescription(button->toolTip());
    connect(start_, &QPushButton::clicked, this, [this] { session_->Start(); });
    connect(again_, &QPushButton::clicked, this, [this] { session_->Again(); });
    connect(skip_, &QPushButton::clicked, this, [this] { session_->Skip(); });
    connect(anew_, &QPushButton::clicked, this, [this] { BeginAnew(); });
    connect(undo_, &QPushButton::clicked, this, [this] { session_->UndoTraining(); });
    connect(save_, &QPushButton::clicked, this, [this] { session_->Save(); });
}

void VoicePage::LayOut() {
    const int line = fontMetrics().height();
    // What is handed over may be longer than there is room for.
    card_->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    card_->setBackgroundRole(QPalette::Base);
    card_->setWidgetResizable(true);
    card_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    card_->setAccessibleName(tr("Sentence"));
    sentence_->setMargin(line);
    sentence_->setAlignment(Qt::AlignCenter);
    sentence_->setForegroundRole(QPalette::Text);
    card_->setWidget(sentence_);

    progress_->setAccessibleName(tr("Progress of the training"));
    progress_->setTextVisible(false);
    progress_->setFixedHeight(line / 2);
    meter_->setAccessibleName(tr("Microphone level"));

    auto* heard = new QHBoxLayout;
    heard->addWidget(new QLabel(tr("Microphone")));
    heard->addWidget(meter_, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(undo_);
    buttons->addStretch();
    for (QPushButton* button : {anew_, save_, again_, skip_, start_}) buttons->addWidget(button);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(line, line, line, line);
    all->setSpacing(line * 2 / 3);
    all->addWidget(introduction_);
    all->addWidget(number_);
    all->addWidget(progress_);
    all->addWidget(card_, 1);
    all->addWidget(status_);
    all->addWidget(wishes_);
    all->addLayout(heard);
    all->addLayout(buttons);
}

void VoicePage::Begin() {
    // The microphone is closed before it is opened again.
    session_.reset();
    session_ = std::make_unique<VoiceSession>(
        profile_, means_.sentences, means_.open_microphone(),
        VoiceSession::Events{.Changed = [this] { Show(session_->Now()); },
                             .Level = [this](int level) { meter_->setValue(level); },
                             .Leave = means_.leave,
                             .Anew =
                                 [this] {
                                     QMetaObject::invokeMethod(
                                         this, [this] { BeginAnew(); }, Qt::QueuedConnection);
                                 }});
    Show(session_->Now());
}

void VoicePage::BeginAnew() {
    Begin();
    session_->Start();
}

void VoicePage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    session_->GoOn();
}

void VoicePage::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    session_->Rest();
}

void VoicePage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange && session_) Show(session_->Now());
}

void VoicePage::Show(const VoiceSession::State& state) {
    introduction_->setVisible(state.stage == Stage::introduction);
    ShowSentence(state);
    ShowProgress(state);
    ShowStatus(state);
    ShowButtons(state);
    const std::pair shown(state.stage, state.can_save);
    if (std::exchange(shown_, shown) == shown) return;
    means_.changed();
    if (isVisible()) FollowStage(state);
}

void VoicePage::FollowStage(const VoiceSession::State& state) {
    if (state.stage == Stage::reading) again_->setFocus();
    // Where no key does anything: whoever still reads with a finger on Enter is to lose nothing.
    if (state.stage == Stage::training) card_->setFocus();
    if (state.can_save) save_->setFocus();
}

void VoicePage::ShowSentence(const VoiceSession::State& state) {
    switch (state.stage) {
        case Stage::training:
            return SetLargeText(*this, *sentence_, tr("Learning your voice…"));
        case Stage::over:
            return SetLargeText(*this, *sentence_, HeadlineOf(state));
        case Stage::introduction:
        case Stage::reading:
            return SetLargeText(*this, *sentence_, Words(state.sentence));
    }
}

void VoicePage::ShowProgress(const VoiceSession::State& state) {
    const bool reads = state.stage == Stage::introduction || state.stage == Stage::reading;
    const bool over = state.stage == Stage::over;
    number_->setVisible(!over);
    progress_->setVisible(!over);
    if (reads) {
        SetText(*number_, tr("Sentence %1 of %2").arg(state.number).arg(state.count));
        progress_->setRange(0, static_cast<int>(state.count));
        progress_->setValue(static_cast<int>(state.number) - 1);
    } else {
        SetText(*number_, tr("All sentences are read"));
        progress_->setRange(0, kPercent);
        progress_->setValue(static_cast<int>(kPercent * state.trained));
    }
}

void VoicePage::ShowStatus(const VoiceSession::State& state) {
    SetText(*wishes_, WishesOf(state));
    meter_->setEnabled(state.stage != Stage::training);
    if (!state.failure.empty()) return status_->Say(TroubleOf(state), QStyle::SP_MessageBoxWarning);
    switch (state.stage) {
        case Stage::training:
            return status_->Say(tr("This takes some seconds. You can cancel it at any time."),
                                QStyle::SP_BrowserReload);
        case Stage::over: {
            const bool done = state.outcome == VoiceSession::Outcome::learnt ||
                              state.outcome == VoiceSession::Outcome::undone;
            return status_->Say(ExplanationOf(state), done ? QStyle::SP_DialogApplyButton
                                                           : QStyle::SP_MessageBoxInformation);
        }
        case Stage::introduction:
        case Stage::reading:
            return status_->Say(WordsOf(state.advice), PictureOf(state.advice));
    }
}

void VoicePage::ShowButtons(const VoiceSession::State& state) {
    start_->setVisible(state.stage == Stage::introduction);
    again_->setVisible(state.stage == Stage::reading);
    skip_->setVisible(state.stage == Stage::reading);
    anew_->setVisible(state.stage == Stage::over);
    save_->setVisible(state.can_save);
    undo_->setVisible(state.can_undo);
    undo_->setEnabled(state.stage != Stage::training);
}

}  // namespace corvane::linux_desktop
