// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/speech_api.h"
#include "simulated/call_record.h"
#include "simulated/virtual_queue.h"

namespace corvane::simulated {

/// A voice that takes 100 ms for each character that is no markup, and can be cut off. Its events
/// are messages that fall due as it speaks: with each word the word and a level that depends on the
/// word's length alone, at the end the level 0 and the end. Its markup is whatever stands between
/// "<" and ">" and begins like a tag, none of which has an effect.
///
/// Operations that can be told to fail: voice.EventInterests, Speak, WaitUntilDone.
class SimulatedVoice final : public ISpeechVoice,
                             public std::enable_shared_from_this<SimulatedVoice> {
public:
    SimulatedVoice(CallRecord& record, VirtualQueue& queue);

    std::int32_t EventInterests() const override { return interests_; }
    void SetEventInterests(std::int32_t Mask) override;
    void Advise(SpeechVoiceHandlers Handlers) override { handlers_ = std::move(Handlers); }
    std::int32_t Speak(const std::string& Text, std::int32_t Flags) override;
    bool WaitUntilDone(std::int32_t msTimeout) override;

private:
    using Delivery = std::function<void(const SpeechVoiceHandlers&)>;

    /// Queues what a stream raises so long after its beginning.
    void Raise(std::int32_t stream, std::chrono::milliseconds due, std::int32_t interest,
               Delivery deliver);
    void RaiseLevel(std::int32_t stream, std::chrono::milliseconds begin,
                    std::chrono::milliseconds after, std::int32_t level);

    CallRecord& record_;
    VirtualQueue& queue_;
    SpeechVoiceHandlers handlers_;
    std::int32_t interests_ = 0;
    std::int32_t stream_ = 0;
    std::int32_t cut_off_ = 0;  ///< the last stream that a purge has ended
    std::chrono::milliseconds silent_at_{0};
};

}  // namespace corvane::simulated
