// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "engine/audio/audio_source.h"
#include "engine/grammar/grammar.h"
#include "engine/grammar/lexicon.h"
#include "engine/recogniser/audience.h"
#include "engine/recogniser/listener.h"

namespace corvane::engine {

/// The one recogniser that all contexts share. For the loop's thread; the listening goes on on
/// another.
class Recogniser {
public:
    /// Loads model and dictionary; raises kAutomationError when one can't be read.
    Recogniser(const std::string& acoustic_model, const std::string& dictionary,
               AudioSource& source, Listener::Post post);

    void Join(std::weak_ptr<RecogniserClient> client) { audience_->Join(std::move(client)); }

    /// Makes the words of a grammar speakable.
    void Learn(const Grammar& grammar) { lexicon_.Learn(grammar); }

    /// To be called when a client has other active rules than before, or is gone.
    void RulesChanged();

    /// To be called when a client has other interests; the first interest of all starts listening.
    void InterestsChanged();

    void WaitForEndOfStream();

    /// Ends listening for good. From now on clients may come and go, but nothing is heard.
    void Stop();

private:
    Lexicon lexicon_;
    std::shared_ptr<Audience> audience_ = std::make_shared<Audience>();
    std::unique_ptr<Listener> listener_;  ///< empty once stopped
};

}  // namespace corvane::engine
