// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/training_dialogs.h"

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
    TrainingWindow window(
        title, profile,
        {.voice = {.open_microphone = means_.open_microphone,
                   .sentences = SentencesToRead(sentence),
                   .changed = {},
                   .leave = {}},
         .words = {
             .say = means_.say, .hush = means_.hush, .open_microphone = means_.open_microphone}});
    ExecOver(parent, window);
}

void TrainingDialogs::AddRemoveWord(std::uint32_t parent, const std::string& title,
                                    const std::string& word, engine::UserProfile& profile) {
    ShowWordsDialog(
        parent, title, word, profile,
        {.say = means_.say, .hush = means_.hush, .open_microphone = means_.open_microphone});
}

}  // namespace corvane::linux_desktop
