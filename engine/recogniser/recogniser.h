// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/audio/audio_source.h"
#include "engine/grammar/grammar.h"
#include "engine/grammar/lexicon.h"
#include "engine/recogniser/listener.h"
#include "engine/recogniser/vocabulary.h"

namespace corvane::engine {

/// What the shared recogniser has to know of a context.
class RecogniserClient : public ResultTarget {
public:
    /// Adds the rules that it listens for now. They must live until the call that asked is over.
    virtual void AddActiveRules(std::vector<const GrammarRule*>& rules) const = 0;
    [[nodiscard]] virtual std::int32_t EventInterests() const = 0;
};

/// The one recogniser that all contexts share. For the loop's thread; the listening goes on on
/// another.
class Recogniser {
public:
    /// Loads model and dictionary; raises kAutomationError when one can't be read.
    Recogniser(const std::string& acoustic_model, const std::string& dictionary,
               AudioSource& source, Listener::Post post);

    void Join(std::weak_ptr<RecogniserClient> client);

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
    [[nodiscard]] std::vector<std::shared_ptr<RecogniserClient>> Clients();

    Lexicon lexicon_;
    std::vector<std::weak_ptr<RecogniserClient>> clients_;  ///< in the order of joining
    std::unique_ptr<Listener> listener_;                    ///< empty once stopped
};

}  // namespace corvane::engine
