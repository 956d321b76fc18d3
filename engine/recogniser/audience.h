// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "engine/grammar/grammar.h"
#include "engine/recogniser/vocabulary.h"

namespace corvane::engine {

enum class DictationState { none, loaded, active };

/// What the shared recogniser has to know of a context, and tells it besides results.
class RecogniserClient : public ResultTarget {
public:
    /// Adds the rules that it listens for now. They must live until the call that asked is over.
    virtual void AddActiveRules(std::vector<const GrammarRule*>& rules) const = 0;
    [[nodiscard]] virtual DictationState Dictates() const = 0;
    /// Until when its rules are about to be switched on: a moment that has passed for a client with
    /// rules, and for one that has been without any for long.
    [[nodiscard]] virtual Vocabulary::Clock::time_point RulesDue() const = 0;
    [[nodiscard]] virtual std::int32_t EventInterests() const = 0;

    /// position: bytes into the stream; level: 0 to 100.
    virtual void HeardLevel(std::int64_t position, std::int32_t level) = 0;
    /// interference: a SpeechInterference.
    virtual void HeardInterference(std::int64_t position, std::int32_t interference) = 0;
    /// What it gave to adapt to has been taken in.
    virtual void Adapted() = 0;
};

/// All contexts of the recogniser. For the loop's thread.
class Audience {
public:
    void Join(std::weak_ptr<RecogniserClient> client) { clients_.push_back(std::move(client)); }

    /// Those that are still there, in the order of joining.
    [[nodiscard]] std::vector<std::shared_ptr<RecogniserClient>> Clients();

    /// The interests of all of them together.
    [[nodiscard]] std::int32_t Interests();

private:
    std::vector<std::weak_ptr<RecogniserClient>> clients_;
};

}  // namespace corvane::engine
