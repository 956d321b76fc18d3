// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/ways_editor.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <initializer_list>
#include <utility>

#include "linux/training/level_meter.h"
#include "linux/training/sound_palette.h"
#include "linux/windows/look.h"
#include "runtime/failure.h"

namespace corvane::linux_desktop {
namespace {

/// As sounds are written: in capitals, parted by one blank each.
QString Tidy(const QString& sounds) {
    return sounds.simplified().toUpper();
}

/// Why these can't be the sounds of a word; empty if they can.
QString TroubleWith(const QString& sounds) {
    const QStringList parts = Tidy(sounds).split(u' ', Qt::SkipEmptyParts);
    if (parts.isEmpty()) return QWidget::tr("Write at least one sound, or record the word.");
    for (const QString& part : parts)
        if (!engine::ArePhones(part.toStdString()))
            return QWidget::tr("%1 is no sound. The sounds there are stand below.").arg(part);
    if (!engine::ArePhones(Tidy(sounds).toStdString()))
        return QWidget::tr("These are too many sounds for one word.");
    return {};
}

QString SayTheWord() {
    return QWidget::tr("Say the word now, and nothing else.");
}

QString NoSignal() {
    return QWidget::tr("No sound comes from the microphone. Is it plugged in and switched on?");
}

}  // namespace

WaysEditor::WaysEditor(engine::UserProfile& profile, Means means)
    : means_(std::move(means)),
      profile_(profile),
      ways_(new QListWidget),
      hear_(new QPushButton(tr("&Hear it"))),
      record_(new QPushButton(tr("&Record it"))),
      other_(new QPushButton(tr("An&other way"))),
      meter_(new LevelMeter),
      sounds_(new QLineEdit),
      complaint_(new QLabel),
      palette_(new SoundPalette([this](const QString& sound) { Insert(sound); })),
      worker_([this](const std::string& error) {
          record_->setEnabled(true);
          means_.tell(Words(error), true);
      }) {
    MakeParts();
    LayOut();
    Show({}, {});
}

WaysEditor::~WaysEditor() = default;

void WaysEditor::MakeParts() {
    ways_->setObjectName("ways");
    ways_->setAccessibleName(tr("Ways to say it"));
    ways_->setToolTip(tr("A word is understood in each way that is ticked"));
    ways_->setAccessibleDescription(ways_->toolTip());
    sounds_->setObjectName("sounds");
    sounds_->setAccessibleName(tr("Sounds of the chosen way"));
    sounds_->setPlaceholderText(tr("for example HH AH L OW"));
    complaint_->setObjectName("complaint");
    complaint_->setTextFormat(Qt::PlainText);
    complaint_->setWordWrap(true);

    hear_->setObjectName("hear");
    hear_->setToolTip(tr("The voice says the chosen way"));
    hear_->setVisible(static_cast<bool>(means_.say));
    record_->setObjectName("record");
    record_->setToolTip(tr("Say the word, and how you said it is written down"));
    record_->setVisible(static_cast<bool>(means_.open_microphone));
    other_->setObjectName("other");
    other_->setToolTip(tr("Write one more way to say it"));
    for (QPushButton* button : {hear_, record_, other_}) {
        button->setAutoDefault(false);
        button->setAccessibleDescription(button->toolTip());
    }

    constexpr std::chrono::seconds kPatience{12};
    patience_.setSingleShot(true);
    patience_.setInterval(kPatience);
    connect(&patience_, &QTimer::timeout, this, [this] {
        StopRecording();
        means_.tell(
            signal_ ? tr("Nothing was heard. Press Record it and say the word.") : NoSignal(),
            true);
    });
    connect(ways_, &QListWidget::currentItemChanged, this, [this] { FollowChoice(); });
    connect(sounds_, &QLineEdit::textEdited, this, [this](const QString& text) { Write(text); });
    connect(hear_, &QPushButton::clicked, this, [this] { Hear(); });
    connect(record_, &QPushButton::clicked, this, [this] { Record(); });
    connect(other_, &QPushButton::clicked, this, [this] {
        ways_->setCurrentItem(AddWay({}, true));
        sounds_->setFocus();
    });
}

void WaysEditor::LayOut() {
    const auto label = [](const QString& text, QWidget* of) {
        auto* made = new QLabel(text);
        made->setBuddy(of);
        return made;
    };
    auto* buttons = new QVBoxLayout;
    for (QPushButton* button : {hear_, record_, other_}) buttons->addWidget(button);
    buttons->addWidget(meter_);
    buttons->addStretch();
    auto* all = new QGridLayout(this);
    all->setContentsMargins({});
    all->addWidget(label(tr("Ways to say &it, those in use ticked:"), ways_), 0, 0, 1, 2);
    all->addWidget(ways_, 1, 0);
    all->addLayout(buttons, 1, 1);
    all->addWidget(label(tr("&Sounds of the chosen way:"), sounds_), 2, 0, 1, 2);
    all->addWidget(sounds_, 3, 0, 1, 2);
    all->addWidget(complaint_, 4, 0, 1, 2);
    all->addWidget(label(tr("A&ll sounds:"), palette_), 5, 0, 1, 2);
    all->addWidget(palette_, 6, 0, 1, 2);
    all->setColumnStretch(0, 1);
    all->setRowStretch(1, 2);
    all->setRowStretch(6, 3);
    // The buttons beside it say how low it may be.
    ways_->setMinimumHeight(1);
    QWidget* before = ways_;
    for (QWidget* next : std::initializer_list<QWidget*>{hear_, record_, other_, sounds_, palette_})
        setTabOrder(std::exchange(before, next), next);
}

void WaysEditor::Show(const engine::WaysToSay& used, const engine::WaysToSay& others) {
    StopRecording();
    ways_->clear();
    for (const std::string& phones : used) AddWay(Words(phones), true);
    for (const std::string& phones : others)
        if (std::ranges::find(used, phones) == used.end()) AddWay(Words(phones), false);
    if (ways_->count() > 0) ways_->setCurrentRow(0);
    FollowChoice();
}

QListWidgetItem* WaysEditor::AddWay(const QString& phones, bool used) {
    auto* item = new QListWidgetItem(phones, ways_);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(used ? Qt::Checked : Qt::Unchecked);
    return item;
}

void WaysEditor::FollowChoice() {
    const QListWidgetItem* item = ways_->currentItem();
    sounds_->setText(item == nullptr ? QString() : item->text());
    hear_->setEnabled(item != nullptr);
    complaint_->clear();
}

void WaysEditor::Write(const QString& text) {
    if (ways_->currentItem() == nullptr) {
        // What is being written is to stay.
        const QSignalBlocker quiet(ways_);
        ways_->setCurrentItem(AddWay({}, true));
    }
    ways_->currentItem()->setText(Tidy(text));
    hear_->setEnabled(true);
    // Not while the sound at its end may still be half written.
    const QString trouble = text.endsWith(u' ') || text.isEmpty() ? TroubleWith(text) : QString();
    complaint_->setText(trouble.isEmpty() ? QString() : trouble);
}

void WaysEditor::Insert(const QString& sound) {
    const QString text = sounds_->text();
    const int at = sounds_->cursorPosition();
    const bool gap_before = at > 0 && text.at(at - 1) != u' ';
    const bool gap_behind = at < text.size() && text.at(at) != u' ';
    sounds_->insert((gap_before ? " " : "") + sound + (gap_behind ? " " : ""));
    Write(sounds_->text());
}

void WaysEditor::Hear() {
    const QListWidgetItem* item = ways_->currentItem();
    if (item == nullptr) return;
    if (const QString trouble = TroubleWith(item->text()); !trouble.isEmpty())
        return complaint_->setText(trouble);
    on_error([&] { means_.say(item->text().toStdString()); },
             [&](const RuntimeError& error) { means_.tell(Words(error.what()), true); });
}

// What the loudspeaker says is no recording, and no command behind the window.
void WaysEditor::Hush() {
    if (means_.hush) means_.hush();
}

void WaysEditor::Record() {
    if (microphone_) {
        StopRecording();
        return means_.tell({}, false);
    }
    Hush();
    signal_ = true;
    ReadingMicrophone::Events events;
    events.Level = [this](int level) { meter_->setValue(level); };
    // Some microphones give nothing at all while nobody speaks: there is patience with them.
    events.Signal = [this](bool there) {
        signal_ = there;
        if (microphone_) means_.tell(there ? SayTheWord() : NoSignal(), !there);
    };
    events.Began = [this] {
        patience_.stop();
        means_.tell(tr("I hear you."), false);
    };
    events.Denied = [this] { patience_.start(); };
    events.Ended = [this](const engine::ReadingCatcher::Reading& reading) { Recorded(reading); };
    microphone_ = std::make_unique<ReadingMicrophone>(means_.open_microphone(), std::move(events));
    patience_.start();
    meter_->show();
    record_->setText(tr("Stop &recording"));
    means_.tell(SayTheWord(), false);
}

void WaysEditor::StopRecording() {
    ++turn_;
    record_->setEnabled(true);
    LetGoOfMicrophone();
}

void WaysEditor::LetGoOfMicrophone() {
    patience_.stop();
    record_->setText(tr("&Record it"));
    meter_->hide();
    meter_->setValue(0);
    if (!microphone_) return;
    // It may be in one of its events.
    QTimer::singleShot(0, this, [gone = std::shared_ptr(std::move(microphone_))] {});
}

void WaysEditor::Recorded(const engine::ReadingCatcher::Reading& reading) {
    if (!microphone_) return;
    StopRecording();
    if (reading.too_quiet)
        return means_.tell(tr("That was too quiet. Go nearer to the microphone and try again."),
                           true);
    if (reading.too_loud)
        return means_.tell(tr("That was too loud. Speak more softly and try again."), true);
    means_.tell(tr("Writing it down\u2026"), false);
    record_->setEnabled(false);
    engine::WaysToSay guesses;
    for (int row = 0; row < ways_->count(); ++row)
        guesses.push_back(ways_->item(row)->text().toStdString());
    // The voice may have been trained since.
    const bool other_voice = std::exchange(written_voice_, profile_.Voice()) != profile_.Voice();
    worker_.Do([this, turn = turn_, make = profile_.PhoneWriterMaker(), other_voice,
                sound = reading.sound, guesses = std::move(guesses)]() -> Worker::Then {
        if (!writer_ || other_voice) writer_ = make();
        return [this, turn, phones = writer_->Write(sound, guesses)] {
            if (turn == turn_) TakeDown(phones);
        };
    });
}

void WaysEditor::TakeDown(const std::string& phones) {
    record_->setEnabled(true);
    if (phones.empty()) return means_.tell(tr("That did not sound like a word. Try again."), true);
    const QString text = Words(phones);
    const auto known = ways_->findItems(text, Qt::MatchExactly);
    QListWidgetItem* way = known.isEmpty() ? AddWay(text, true) : known.first();
    way->setCheckState(Qt::Checked);
    ways_->setCurrentItem(way);
    FollowChoice();
    means_.tell(known.isEmpty() ? tr("You said %1. Hear it, and untick what is wrong.").arg(text)
                                : tr("You said it as it is written down already."),
                false);
}

engine::WaysToSay WaysEditor::Chosen() const {
    engine::WaysToSay chosen;
    for (int row = 0; row < ways_->count(); ++row) {
        const QListWidgetItem* item = ways_->item(row);
        const std::string phones = Tidy(item->text()).toStdString();
        if (item->checkState() == Qt::Checked && std::ranges::find(chosen, phones) == chosen.end())
            chosen.push_back(phones);
    }
    return chosen;
}

QString WaysEditor::Problem() const {
    const engine::WaysToSay chosen = Chosen();
    if (chosen.empty())
        return tr("There is no way to say it: tick one, write its sounds or record it.");
    if (chosen.size() > engine::UserWords::kMostWays)
        return tr("A word has at most %1 ways: untick some.").arg(engine::UserWords::kMostWays);
    for (const std::string& phones : chosen)
        if (QString trouble = TroubleWith(Words(phones)); !trouble.isEmpty()) return trouble;
    return {};
}

void WaysEditor::hideEvent(QHideEvent* event) {
    LetGoOfMicrophone();
    Hush();
    QWidget::hideEvent(event);
}

}  // namespace corvane::linux_desktop
