// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

#include "engine/audio/pulse_playback.h"
#include "engine/voice/piece.h"
#include "platform/speech_api.h"

namespace corvane::engine {

/// The voice: text in, sound on the default audio output. A thread of its own synthesises a little
/// ahead of what is heard.
///
/// The library's user is never kept waiting for the sound server. Without one, a text is said
/// unheard in the time it would take, and where a server comes in the meantime the rest is heard.
///
/// A voice that goes cuts off what it says.
class Voice final : public ISpeechVoice {
public:
    /// client_name: what the user's sound settings call the program. Raises kAutomationError when
    /// no voice is installed.
    explicit Voice(const std::string& client_name);
    ~Voice() override;
    Voice(const Voice&) = delete;
    Voice& operator=(const Voice&) = delete;

    [[nodiscard]] std::int32_t EventInterests() const override { return event_interests_; }
    void SetEventInterests(std::int32_t Mask) override { event_interests_ = Mask; }
    void Advise(SpeechVoiceHandlers Handlers) override { handlers_ = std::move(Handlers); }
    std::int32_t Speak(const std::string& Text, std::int32_t Flags) override;
    /// Without a bound when `msTimeout` is negative.
    bool WaitUntilDone(std::int32_t msTimeout) override;

private:
    struct Order {
        std::int32_t stream;
        std::string text;
        bool markup;
    };
    /// What is left to be synthesised of an order.
    struct Utterance {
        std::int32_t stream;
        std::deque<Piece> pieces;
    };
    /// Where in the played sound a stream ends.
    struct End {
        std::int64_t position;
        std::int32_t stream;
    };

    void Run();
    /// Returns false when the voice is to go.
    [[nodiscard]] bool TakeOrders();
    void Synthesise();
    void ReportEnds();
    [[nodiscard]] bool WantsSound() const;

    std::int32_t event_interests_ = 0;
    SpeechVoiceHandlers handlers_;

    std::mutex mutex_;
    std::condition_variable heard_out_;
    std::deque<Order> orders_;      ///< guarded by mutex_
    bool purge_ = false;            ///< guarded by mutex_; before the orders are looked at
    bool closing_ = false;          ///< guarded by mutex_
    std::int32_t last_stream_ = 0;  ///< guarded by mutex_
    std::int32_t ended_ = 0;        ///< guarded by mutex_; the last stream that has ended

    // The thread's own.
    std::deque<Utterance> utterances_;
    std::deque<End> ends_;
    PulsePlayback playback_;

    std::thread thread_;
};

}  // namespace corvane::engine
