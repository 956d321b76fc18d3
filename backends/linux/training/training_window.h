// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include "engine/user_profile.h"
#include "linux/training/voice_page.h"
#include "linux/training/words_page.h"

class QPushButton;

namespace corvane::linux_desktop {

/// In which a person trains: a page for the voice and one for words.
class TrainingWindow final : public QDialog {
public:
    struct Means {
        VoicePage::Means voice;
        WordsPage::Means words;
    };

    /// profile: outlives the window.
    TrainingWindow(const std::string& title, engine::UserProfile& profile, Means means);

private:
    void NameTheWayOut();
    void FollowEnter();

    VoicePage* voice_ = nullptr;
    QPushButton* close_;
};

}  // namespace corvane::linux_desktop
