// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/adaptation/speaker_transform.h"
#include "engine/grammar/word_graph.h"
#include "platform/speech_api.h"

namespace corvane::engine {

/// Who is told what was heard. Called on the loop's thread only.
class ResultTarget {
public:
    virtual ~ResultTarget() = default;
    /// position: bytes into the stream where the phrase begins.
    virtual void Recognised(std::int64_t position, std::shared_ptr<ISpeechRecoResult> result) = 0;
    virtual void Supposed(std::int64_t position, std::shared_ptr<ISpeechRecoResult> result) = 0;
};

/// What can be said at one time and to whom: the active rules of all contexts, compiled together.
struct Vocabulary {
    using Clock = std::chrono::steady_clock;

    struct Rule {
        std::string name;
        std::weak_ptr<ResultTarget> target;
        bool of_dictation = false;  ///< edits the text or names a mark of it; has no name
    };
    WordGraph graph;
    std::vector<Rule> rules;  ///< by the graph's rule indexes
    /// Whose voice is to be expected; empty: one like the acoustic model's.
    std::shared_ptr<const SpeakerTransform> voice;

    /// Whether what is no command is text, and who is told of it.
    bool dictating = false;
    std::weak_ptr<ResultTarget> dictation_target;

    /// Until then it is half of a change, to be passed over if the other half comes: a context is
    /// there whose rules are still to be switched on.
    Clock::time_point holds_from{};
};

}  // namespace corvane::engine
