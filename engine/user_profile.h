// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/adaptation/user_voice.h"
#include "engine/adaptation/voice_training.h"
#include "engine/lexicon/phone_writer.h"
#include "engine/lexicon/user_words.h"
#include "engine/recogniser/spoken_choice.h"

namespace corvane::engine {

/// What the engine knows of the one who speaks to it: voice and words. A change is heeded at once,
/// by commands and dictation, and kept for the next run. For the loop's thread.
class UserProfile {
public:
    struct Places {
        std::string folder;  ///< of the user's own; empty: nothing is kept
        std::string acoustic_model;
        std::string dictionary;
    };

    UserProfile(Places places, Complain complain);

    /// Called after each change, in place of what was to be called before.
    void OnChange(std::function<void()> changed) { changed_ = std::move(changed); }

    [[nodiscard]] const UserVoice::Transform& Voice() const { return voice_.Present(); }
    using MakeTraining = std::function<std::unique_ptr<VoiceTraining>()>;
    /// Makes a training to read sentences into, with the words that there are now, which must
    /// surpass the voice that there is now. To make it takes a second, and any thread may do so and
    /// run it; raises kAutomationError when the acoustic model is of a kind that can't be trained.
    [[nodiscard]] MakeTraining TrainingMaker() const;
    using MakeChoice = std::function<std::unique_ptr<SpokenChoice>()>;
    /// Likewise, of what hears these phrases, said in the voice that there is now.
    [[nodiscard]] MakeChoice ChoiceMaker(std::vector<std::string> phrases) const;
    /// As UserVoice::Keep and UserVoice::Undo.
    void KeepVoice(const SpeakerTransform& transform);
    void UndoVoice();

    using MakePhoneWriter = std::function<std::unique_ptr<PhoneWriter>()>;
    /// Makes what writes down how this voice says a word; as TrainingMaker, any thread may do so.
    [[nodiscard]] MakePhoneWriter PhoneWriterMaker() const;

    [[nodiscard]] const WordsAndWays& Words() const { return words_.All(); }
    /// Ways in which a word may be said, by dictionary, its parts and its letters, the likeliest
    /// first; none if it has no sound.
    [[nodiscard]] WaysToSay WaysFor(const std::string& word) const;
    /// Adds those words of the sentences that neither the dictionary nor the user knows, as their
    /// letters are read. What can't be kept is complained of, not raised.
    void LearnNewWords(const std::vector<std::string>& sentences);
    /// As UserWords::Add and UserWords::Remove.
    void AddWord(const std::string& word, const WaysToSay& ways);
    void RemoveWord(const std::string& word);

private:
    void Changed() const;

    Places places_;
    UserVoice voice_;
    UserWords words_;
    Complain complain_;
    std::function<void()> changed_;
};

}  // namespace corvane::engine
