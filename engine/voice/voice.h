// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "engine/audio/pulse_playback.h"
#include "engine/voice/utterance.h"
#include "engine/voice/voice_listener.h"
#include "platform/speech_api.h"

namespace corvane::engine {

/// The voice: text in, sound on the default audio output, and an event when a word of it is heard.
/// A thread of its own synthesises a little ahead of what is heard.
///
/// The library's user is never kept waiting for the sound server. Without one, a text is said
/// unheard in the time it would take, events included, and where a server comes in the meantime the
/// rest is heard.
///
/// A voice that goes cuts off what it says.
class Voice final : public ISpeechVoice {
public:
    /// As SpeechEngine::Post.
    using Post = std::function<void(std::function<void()>)>;

    /// client_name: what the user's sound settings call the program. Raises kAutomationError when
    /// no voice is installed.
    Voice(const std::string& client_name, Post post);
    ~Voice() override;
    Voice(const Voice&) = delete;
    Voice& operator=(const Voice&) = delete;

    [[nodiscard]] std::int32_t EventInterests() const override { return listener_->Interests(); }
    void SetEventInterests(std::int32_t Mask) override { listener_->SetInterests(Mask); }
    void Advise(SpeechVoiceHandlers Handlers) override { listener_->Advise(std::move(Handlers)); }
    std::int32_t Speak(const std::string& Text, std::int32_t Flags) override;
    /// Without a bound when `msTimeout` is negative.
    bool WaitUntilDone(std::int32_t msTimeout) override;

    /// From now on nothing is posted; it can still be heard.
    void StopPosting();

private:
    struct Order {
        std::int32_t stream;
        std::string text;
        bool markup;
    };
    /// What is left to be synthesised of an order.
    struct Stream {
        std::int32_t number;
        Utterance utterance;
        std::int64_t length = 0;  ///< in samples, so far
    };
    /// An event and the count of heard samples that makes it true.
    struct Due {
        std::int64_t heard;
        VoiceEvent event;
    };

    void Run();
    /// Returns false when the voice is to go.
    [[nodiscard]] bool TakeOrders();
    void Synthesise();
    void TellWhatWasHeard();
    void Tell(VoiceEvent event);
    [[nodiscard]] bool WantsSound() const;

    std::shared_ptr<VoiceListener> listener_ = std::make_shared<VoiceListener>();

    std::mutex post_mutex_;
    Post post_;  ///< guarded by post_mutex_; none when nothing is to be posted any more

    std::mutex mutex_;
    std::condition_variable heard_out_;
    std::deque<Order> orders_;      ///< guarded by mutex_
    bool purge_ = false;            ///< guarded by mutex_; before the orders are looked at
    bool closing_ = false;          ///< guarded by mutex_
    std::int32_t last_stream_ = 0;  ///< guarded by mutex_
    std::int32_t ended_ = 0;        ///< guarded by mutex_; the last stream that has ended

    // The thread's own.
    std::deque<Stream> streams_;
    std::deque<Due> due_;  ///< in the order of their times
    PulsePlayback playback_;

    std::thread thread_;
};

}  // namespace corvane::engine
