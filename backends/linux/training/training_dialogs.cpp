// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/training_dialogs.h"

#include <QDialog>
#include <QListWidget>
#include <QVBoxLayout>

#include "engine/user_profile.h"
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
                                    const std::string& /*word*/, engine::UserProfile& profile) {
    QDialog dialog;
    dialog.setWindowTitle(Words(title));
    auto* layout = new QVBoxLayout(&dialog);
    auto* words = new QListWidget;
    layout->addWidget(words);
    for (const auto& [word, ways] : profile.Words()) words->addItem(Words(word));
    ExecOver(parent, dialog);
}

}  // namespace corvane::linux_desktop
