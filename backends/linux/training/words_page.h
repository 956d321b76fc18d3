// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/audio/audio_source.h"
#include "engine/user_profile.h"

class QLineEdit;
class QListWidget;
class QPushButton;

namespace corvane::linux_desktop {

class StatusLine;
class WaysEditor;

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
        /// Cuts off what it was saying. May be empty.
        std::function<void()> hush;
        /// A microphone that is the caller's alone. May be empty: nothing can be recorded then.
        std::function<std::unique_ptr<engine::AudioSource>()> open_microphone;
    };

    /// profile: outlives the page. word: to be filled in; may be empty.
    WordsPage(engine::UserProfile& profile, Means means, const std::string& word = {},
              QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    /// How a word was said before it was changed; nothing: it was not there.
    struct Change {
        std::string word;
        std::optional<engine::WaysToSay> before;
    };

    void MakeParts(const std::string& word);
    void LayOut();
    void ListWords();
    void Choose();
    void Suggest();
    void Add();
    void Remove();
    void Undo();
    /// Whether it is done; if not, the person is told why.
    bool Set(const std::string& word, const std::optional<engine::WaysToSay>& ways);
    void FollowWord();
    void Tell(const QString& line, bool trouble);
    [[nodiscard]] std::string Word() const;
    [[nodiscard]] std::optional<engine::WaysToSay> Known(const std::string& word) const;

    engine::UserProfile& profile_;
    QListWidget* words_;
    QPushButton* remove_;
    QPushButton* undo_;
    QLineEdit* word_;
    WaysEditor* ways_;
    StatusLine* status_;
    QPushButton* add_;
    QTimer suggest_;         ///< runs while a word is being written
    std::string suggested_;  ///< the word whose ways are shown
    std::vector<Change> changes_;
};

}  // namespace corvane::linux_desktop
