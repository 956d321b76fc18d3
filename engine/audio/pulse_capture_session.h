// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pulse/operation.h>
#include <pulse/stream.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "engine/audio/pulse_connection.h"
#include "engine/audio/sample_queue.h"

struct pa_server_info;
struct pa_source_info;

namespace corvane::engine {

/// One connection to the PulseAudio server with one recording stream, from the attempt to its end.
/// The server keeps the stream on its default source when that changes or goes away.
///
/// Where there is no microphone the server offers what the speaker plays instead. That is not
/// listened to: the program would take its own voice, or a film, for the user. A source that the
/// user has named (PULSE_SOURCE, or in the sound settings for this program) is meant, whatever it
/// is.
class PulseCaptureSession {
public:
    /// How long a stream may keep back its sound before it counts as silent.
    static constexpr std::chrono::seconds kPatience{1};

    PulseCaptureSession(pa_mainloop* loop, const std::string& client_name, SampleQueue& queue);
    ~PulseCaptureSession();
    PulseCaptureSession(const PulseCaptureSession&) = delete;
    PulseCaptureSession& operator=(const PulseCaptureSession&) = delete;

    /// Not there, or gone. A broken session stays so.
    [[nodiscard]] bool Broken() const { return broken_ || connection_.Broken(); }

    /// Waits for what the server has to say, at most kPatience in all since it last gave sound;
    /// then its silence is put down as such.
    void Iterate();

private:
    using Clock = std::chrono::steady_clock;

    struct Release {
        void operator()(pa_stream* stream) const;
        void operator()(pa_operation* operation) const;
    };
    using Request = std::unique_ptr<pa_operation, Release>;

    void Connect();
    void StreamChanged();
    void Capture();
    /// Finds out whether the stream hears nothing but the speaker.
    void AskWhatItHears();
    void ServerTold(const pa_server_info* server);
    void SourceTold(const pa_source_info* source);

    pa_mainloop* loop_;
    SampleQueue& queue_;
    PulseConnection connection_;
    std::unique_ptr<pa_stream, Release> stream_;
    Request subscription_;
    Request server_request_;
    Request source_request_;
    std::string speaker_;         ///< the default sink
    bool by_default_ = false;     ///< the stream is on the default source
    bool hears_speaker_ = false;  ///< and that is the speaker's
    bool broken_ = false;
    Clock::time_point patient_until_ = Clock::now() + kPatience;
};

}  // namespace corvane::engine
