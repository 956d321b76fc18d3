// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/training_dialogs.h"

#include <QApplication>
#include <QScopeGuard>
#include <QWidget>
#include <iterator>
#include <string>
#include <vector>

#include "engine/adaptation/readable_pieces.h"
#include "engine/adaptation/reading_sentences.h"
#include "engine/user_profile.h"
#include "linux/training/training_window.h"
#include "linux/training/words_dialog.h"
#include "linux/windows/put_over.h"

namespace corvane::linux_desktop {

namespace {

std::vector<std::string> SentencesToRead(const std::string& first) {
    std::vector<std::string> sentences;
    if (!first.empty()) sentences = engine::ReadablePieces(first);
    sentences.insert(sentences.end(), std::begin(engine::kReadingSentences),
                     std::end(engine::kReadingSentences));
    return sentences;
}

}  // namespace

void TrainingDialogs::UserTraining(std::uint32_t parent, const std::string& title,
                                   const std::string& sentence, engine::UserProfile& profile) {
    ShowAlone([&] {
        TrainingWindow window(title, profile,
                              {.voice = {.open_microphone = means_.open_microphone,
                                         .sentences = SentencesToRead(sentence),
                                         .changed = {},
                                         .leave = {}},
                               .words = MeansForWords()});
        ExecOver(parent, window);
    });
}

void TrainingDialogs::AddRemoveWord(std::uint32_t parent, const std::string& title,
                                    const std::string& word, engine::UserProfile& profile) {
    ShowAlone([&] { ShowWordsDialog(parent, title, word, profile, MeansForWords()); });
}

WordsPage::Means TrainingDialogs::MeansForWords() const {
    return {.say = means_.say, .hush = means_.hush, .open_microphone = means_.open_microphone};
}

void TrainingDialogs::ShowAlone(const std::function<void()>& show) {
    if (shown_) {
        // It, or what stands over it.
        if (QWidget* window = QApplication::activeModalWidget()) {
            window->raise();
            window->activateWindow();
        }
        return;
    }
    shown_ = true;
    const auto closed = qScopeGuard([this] { shown_ = false; });
    show();
}

}  // namespace corvane::linux_desktop
