// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "engine/audio/audio_source.h"
#include "engine/engine_dialogs.h"
#include "engine/grammar/grammar.h"
#include "engine/grammar/lexicon.h"
#include "engine/recogniser/audience.h"
#include "engine/recogniser/dictation.h"
#include "engine/recogniser/listener.h"
#include "engine/recogniser/reporter.h"
#include "engine/user_profile.h"

namespace corvane::engine {

/// The one recogniser that all contexts share. For the loop's thread; the listening goes on on
/// another.
class Recogniser {
public:
    /// Loads acoustic model and dictionary; raises kAutomationError when one can't be read.
    /// profile: of the one who speaks; outlives this, and its changes are this one's to heed.
    Recogniser(const DictationModel& model, AudioSource& source, Reporter::Post post,
               Reporter::Unmatched unmatched, std::shared_ptr<UserProfile> profile,
               std::shared_ptr<EngineDialogs> dialogs);
    ~Recogniser();
    Recogniser(const Recogniser&) = delete;
    Recogniser& operator=(const Recogniser&) = delete;

    void Join(std::weak_ptr<RecogniserClient> client);

    /// Makes the words of a grammar speakable.
    void Learn(const Grammar& grammar) { lexicon_.Learn(grammar); }

    /// To be called when a client has other active rules or dictates otherwise than before, or is
    /// gone.
    void RulesChanged();

    /// To be called before a client dictates. Raises kAutomationError when there is nothing to
    /// dictate with.
    void PrepareDictation();

    /// To be called when a client has other interests; the first interest of all starts listening.
    void InterestsChanged();

    void WaitForEndOfStream();

    /// Ends listening for good. From now on clients may come and go, but nothing is heard.
    void Stop();

    /// Learns the words of a text, and has dictation expect what stands there; tells the client
    /// when that is done.
    void Adapt(const std::string& text, std::weak_ptr<RecogniserClient> client);

    /// Shows a dialog of the engine's, see ISpeechRecognizer::DisplayUI. What is said meanwhile is
    /// meant for the dialog: it is neither recognised then nor told later.
    void Show(std::uint32_t parent, const std::string& title, const std::string& dialog,
              const std::string& data);

private:
    class Pause;

    void ProfileChanged();

    DictationModel model_;
    std::shared_ptr<UserProfile> profile_;
    std::shared_ptr<EngineDialogs> dialogs_;
    int dialogs_shown_ = 0;  ///< one may show another
    Lexicon lexicon_;
    Grammar dictation_phrases_;  ///< once somebody dictates
    std::shared_ptr<Audience> audience_ = std::make_shared<Audience>();
    Reporter::Post post_;
    Reporter reporter_;
    // Empty once stopped. The listener uses the dictation.
    std::unique_ptr<Dictation> dictation_;
    std::unique_ptr<Listener> listener_;
};

}  // namespace corvane::engine
