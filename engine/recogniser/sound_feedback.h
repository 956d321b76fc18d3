// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>

#include "engine/recogniser/audience.h"
#include "engine/recogniser/interference_judge.h"
#include "engine/recogniser/sound_level.h"
#include "engine/recogniser/utterance_sound.h"

namespace corvane::engine {

/// What all contexts are told of the sound itself: its level ten times a second, as long as it
/// changes, and why it is hard to hear. For the listening thread.
///
/// A level that the loop has not taken yet is replaced by the next, so that a busy loop finds one.
class SoundFeedback {
public:
    using Post = std::function<void(std::function<void()>)>;

    SoundFeedback(std::weak_ptr<Audience> audience, Post post);

    /// Takes the next frame of the stream; position: bytes into the stream behind it; interests:
    /// what anybody wants to know now, a sum of SpeechRecoEvents.
    void Hear(std::span<const std::int16_t> frame, std::int64_t position, std::int32_t interests);

    /// Takes an utterance that has ended.
    void HearUtterance(const UtteranceSound& sound, std::int64_t position, std::int32_t interests);

private:
    /// The place where a level waits for the loop.
    struct Mailbox {
        struct Reading {
            std::int64_t position = 0;
            std::int32_t level = 0;
        };
        std::mutex mutex;
        std::optional<Reading> waiting;  ///< guarded by mutex
    };

    void TellLevel(double mean_square, std::int64_t position);
    void TellInterferences(const InterferenceJudge::Events& events, std::int64_t position);

    std::weak_ptr<Audience> audience_;
    Post post_;
    std::shared_ptr<Mailbox> mailbox_ = std::make_shared<Mailbox>();
    InterferenceJudge judge_;
    SoundPower block_;
    double stillest_ = 0.0;                   ///< mean square of the block's stillest frame
    int frames_ = 0;                          ///< in the block
    std::optional<std::int32_t> told_level_;  ///< empty while nobody wants to know
};

}  // namespace corvane::engine
