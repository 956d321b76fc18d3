// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "engine/audio/audio_source.h"
#include "engine/user_profile.h"

namespace corvane::linux_desktop {

/// The user's own words: adds and removes them, and lets their pronunciations be heard, chosen,
/// written and recorded. What is changed is used at once.
class WordsPage final : public QWidget {
public:
    /// What the page needs of the program; each may be called any number of times.
    struct Means {
        /// Says a pronunciation, phones of the acoustic model parted by blanks, and returns at
        /// once; cuts off what it was saying. Raises RuntimeError when there is no voice. May be
        /// empty: nothing can be heard then.
        std::function<void(const std::string& phones)> say;
        /// A microphone that is the caller's alone. May be empty: nothing can be recorded then.
        std::function<std::unique_ptr<engine::AudioSource>()> open_microphone;
    };

    /// profile: outlives the page. word: to be filled in; may be empty.
    WordsPage(engine::UserProfile& profile, Means means, const std::string& word = {},
              QWidget* parent = nullptr);
    ~WordsPage() override;
    WordsPage(const WordsPage&) = delete;
    WordsPage& operator=(const WordsPage&) = delete;

private:
    engine::UserProfile& profile_;
    Means means_;
};

}  // namespace corvane::linux_desktop
