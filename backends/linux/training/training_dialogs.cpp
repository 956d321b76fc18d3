// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/training_dialogs.h"

#include <QDialog>

#include "engine/user_profile.h"
#include "linux/training/words_dialog.h"
#include "linux/windows/look.h"
#include "linux/windows/put_over.h"

namespace corvane::linux_desktop {

void TrainingDialogs::UserTraining(std::uint32_t parent, const std::string& title,
                                   const std::string& /*sentence*/,
                                   engine::UserProfile& /*profile*/) {
    QDialog dialog;
    dialog.setWindowTitle(Words(title));
    ExecOver(parent, dialog);
}

void TrainingDialogs::AddRemoveWord(std::uint32_t parent, const std::string& title,
                                    const std::string& word, engine::UserProfile& profile) {
    ShowWordsDialog(parent, title, word, profile,
                    {.say = means_.say, .open_microphone = means_.open_microphone});
}

}  // namespace corvane::linux_desktop
