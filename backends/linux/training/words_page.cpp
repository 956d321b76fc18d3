// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/words_page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <chrono>
#include <utility>

#include "linux/training/status_line.h"
#include "linux/training/ways_editor.h"
#include "linux/windows/look.h"
#include "runtime/failure.h"

namespace corvane::linux_desktop {
namespace {

/// Why this can't be added; empty if it can.
QString TroubleWithWord(const QString& word) {
    if (word.isEmpty()) return QWidget::tr("Write the word that is to be added.");
    if (word.contains(u' '))
        return QWidget::tr("These are several words. Add one at a time, without blanks.");
    if (!engine::IsWordToLearn(word.toStdString()))
        return QWidget::tr(
            "This can't be a word: it is too long, or it has one of the signs "
            "( ) < > [ ] + @ in it, or # at its beginning.");
    return {};
}

}  // namespace

WordsPage::WordsPage(engine::UserProfile& profile, Means means, const std::string& word,
                     QWidget* parent)
    : QWidget(parent),
      profile_(profile),
      words_(new QListWidget),
      remove_(new QPushButton(tr("Re&move"))),
      undo_(new QPushButton(tr("&Undo"))),
      word_(new QLineEdit),
      ways_(new WaysEditor(
          profile, {.say = std::move(means.say),
                    .hush = std::move(means.hush),
                    .open_microphone = std::move(means.open_microphone),
                    .tell = [this](const QString& line, bool trouble) { Tell(line, trouble); }})),
      status_(new StatusLine(tr("Status"), 1)),
      add_(new QPushButton(tr("&Add"))) {
    MakeParts(word);
    LayOut();
    ListWords();
    Suggest();
    if (profile_.Words().empty())
        Tell(tr("Add names and other words that are not understood: commands and dictation know "
                "them at once."),
             false);
}

void WordsPage::MakeParts(const std::string& word) {
    words_->setObjectName("words");
    words_->setAccessibleName(tr("Your words"));
    words_->setSortingEnabled(true);
    word_->setObjectName("word");
    word_->setAccessibleName(tr("New word"));
    word_->setText(Words(word));
    word_->setPlaceholderText(tr("as it is to be written"));
    remove_->setObjectName("remove");
    undo_->setObjectName("undo");
    add_->setObjectName("add");
    for (QPushButton* button : {remove_, undo_, add_}) button->setAutoDefault(false);

    constexpr std::chrono::milliseconds kWhileWriting{300};
    suggest_.setSingleShot(true);
    suggest_.setInterval(kWhileWriting);
    connect(&suggest_, &QTimer::timeout, this, [this] { Suggest(); });
    connect(words_, &QListWidget::currentItemChanged, this, [this] { Choose(); });
    connect(word_, &QLineEdit::textEdited, this, [this] {
        FollowWord();
        suggest_.start();
    });
    connect(word_, &QLineEdit::returnPressed, this, [this] { Add(); });
    connect(add_, &QPushButton::clicked, this, [this] { Add(); });
    connect(remove_, &QPushButton::clicked, this, [this] { Remove(); });
    connect(undo_, &QPushButton::clicked, this, [this] { Undo(); });
}

void WordsPage::LayOut() {
    auto* words_label = new QLabel(tr("&Your words:"));
    words_label->setBuddy(words_);
    auto* word_label = new QLabel(tr("&New word:"));
    word_label->setBuddy(word_);

    auto* below_list = new QHBoxLayout;
    below_list->addWidget(remove_);
    below_list->addWidget(undo_);
    auto* left = new QVBoxLayout;
    left->addWidget(words_label);
    left->addWidget(words_);
    left->addLayout(below_list);

    auto* word = new QHBoxLayout;
    word->addWidget(word_label);
    word->addWidget(word_, 1);
    word->addWidget(add_);
    auto* right = new QVBoxLayout;
    right->addLayout(word);
    right->addWidget(ways_, 1);

    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 2);
    columns->addLayout(right, 5);
    auto* all = new QVBoxLayout(this);
    all->addLayout(columns, 1);
    all->addWidget(status_);
    words_->setMinimumHeight(1);
    words_->setMinimumWidth(8 * fontMetrics().height());
    setFocusProxy(word_);
}

void WordsPage::ListWords() {
    const QSignalBlocker quiet(words_);
    words_->clear();
    for (const auto& [word, ways] : profile_.Words()) words_->addItem(Words(word));
    const auto shown = words_->findItems(word_->text(), Qt::MatchExactly);
    words_->setCurrentItem(shown.isEmpty() ? nullptr : shown.first());
    undo_->setEnabled(!changes_.empty());
    undo_->setToolTip(
        changes_.empty()
            ? QString()
            : tr("Takes back the last change, of %1").arg(Words(changes_.back().word)));
    FollowWord();
}

void WordsPage::Choose() {
    const QListWidgetItem* chosen = words_->currentItem();
    if (chosen == nullptr) return;
    word_->setText(chosen->text());
    Tell({}, false);
    FollowWord();
    Suggest();
}

/// What can be done with the word that stands there.
void WordsPage::FollowWord() {
    const bool known = Known(Word()).has_value();
    remove_->setEnabled(known);
    add_->setText(known ? tr("Ch&ange") : tr("&Add"));
}

void WordsPage::Suggest() {
    suggest_.stop();
    const std::string word = Word();
    suggested_ = word;
    const auto known = Known(word);
    const engine::WaysToSay suggestions = profile_.WaysFor(word);
    // Of a new word all ways are meant; those of the user's own were chosen.
    ways_->Show(known ? *known : suggestions, suggestions);
}

void WordsPage::Add() {
    const QString trouble = TroubleWithWord(word_->text().trimmed());
    if (!trouble.isEmpty()) {
        word_->setFocus();
        return Tell(trouble, true);
    }
    const std::string word = Word();
    if (word != suggested_) Suggest();
    ways_->StopRecording();
    if (const QString problem = ways_->Problem(); !problem.isEmpty()) return Tell(problem, true);
    const auto before = Known(word);
    if (!Set(word, ways_->Chosen())) return;
    changes_.push_back({.word = word, .before = before});
    word_->setText(Words(word));
    ListWords();
    Tell(tr("%1 can be said and dictated from now on.").arg(Words(word)), false);
}

void WordsPage::Remove() {
    const std::string word = Word();
    const auto before = Known(word);
    if (!before || !Set(word, std::nullopt)) return;
    changes_.push_back({.word = word, .before = before});
    ListWords();
    Tell(tr("%1 is none of your words any more. Undo brings it back.").arg(Words(word)), false);
}

void WordsPage::Undo() {
    if (changes_.empty()) return;
    const Change last = changes_.back();
    if (!Set(last.word, last.before)) return;
    changes_.pop_back();
    word_->setText(Words(last.word));
    ListWords();
    Suggest();
    Tell(last.before ? tr("%1 is said as before.").arg(Words(last.word))
                     : tr("%1 is none of your words any more.").arg(Words(last.word)),
         false);
}

bool WordsPage::Set(const std::string& word, const std::optional<engine::WaysToSay>& ways) {
    bool done = false;
    on_error(
        [&] {
            if (ways)
                profile_.AddWord(word, *ways);
            else
                profile_.RemoveWord(word);
            done = true;
        },
        [&](const RuntimeError& error) {
            Tell(tr("%1. Nothing has changed.").arg(Words(error.what())), true);
        });
    return done;
}

void WordsPage::Tell(const QString& line, bool trouble) {
    status_->Say(line, trouble ? std::optional(QStyle::SP_MessageBoxWarning) : std::nullopt);
}

std::string WordsPage::Word() const {
    return word_->text().trimmed().toStdString();
}

std::optional<engine::WaysToSay> WordsPage::Known(const std::string& word) const {
    const auto found = profile_.Words().find(word);
    if (found == profile_.Words().end()) return std::nullopt;
    return found->second;
}

// Dictation may have learned words while another page was in front.
void WordsPage::showEvent(QShowEvent* event) {
    ListWords();
    QWidget::showEvent(event);
}

}  // namespace corvane::linux_desktop
