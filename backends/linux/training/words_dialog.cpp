// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/words_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "linux/training/told_text.h"
#include "linux/windows/look.h"
#include "linux/windows/put_over.h"

namespace corvane::linux_desktop {

void ShowWordsDialog(HWND parent, const std::string& title, const std::string& word,
                     engine::UserProfile& profile, WordsPage::Means means) {
    QDialog dialog;
    dialog.setWindowTitle(Words(title));
    EnlargeText(dialog);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(new WordsPage(profile, std::move(means), word));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    // Enter adds the word that is being written; it closes nothing.
    for (QAbstractButton* button : buttons->buttons())
        static_cast<QPushButton*>(button)->setAutoDefault(false);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    layout->addWidget(buttons);
    ExecOver(parent, dialog);
}

}  // namespace corvane::linux_desktop
