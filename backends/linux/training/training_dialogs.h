// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "engine/audio/audio_source.h"
#include "engine/engine_dialogs.h"
#include "linux/training/words_page.h"

namespace corvane::linux_desktop {

/// The engine's dialogs as windows of Qt's. Needs a QApplication. Our other windows take no input
/// while one is shown. There is one at a time, since there is one microphone and one who speaks:
/// who asks for another meanwhile gets the one that there is to the front, and at once goes on.
class TrainingDialogs final : public EngineDialogs {
public:
    /// What the dialogs need of the program; each may be called any number of times.
    struct Means {
        /// A microphone that is the caller's alone.
        std::function<std::unique_ptr<engine::AudioSource>()> open_microphone;
        /// As in WordsPage::Means.
        std::function<void(const std::string& phones)> say;
        std::function<void()> hush;
    };

    explicit TrainingDialogs(Means means) : means_(std::move(means)) {}

    void UserTraining(std::uint32_t parent, const std::string& title, const std::string& sentence,
                      engine::UserProfile& profile) override;
    void AddRemoveWord(std::uint32_t parent, const std::string& title, const std::string& word,
                       engine::UserProfile& profile) override;

private:
    /// Calls `show`, unless a dialog is shown already.
    void ShowAlone(const std::function<void()>& show);
    [[nodiscard]] WordsPage::Means MeansForWords() const;

    Means means_;
    bool shown_ = false;
};

}  // namespace corvane::linux_desktop
