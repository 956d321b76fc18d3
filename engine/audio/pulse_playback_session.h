// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pulse/context.h>
#include <pulse/operation.h>
#include <pulse/stream.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

struct pa_mainloop;

namespace corvane::engine {

/// One connection to the PulseAudio server with one playback stream, from the attempt to its end.
/// It rests until it is written to. All happens on the loop's thread; nothing waits for the server.
class PulsePlaybackSession {
public:
    PulsePlaybackSession(pa_mainloop* loop, const std::string& client_name, int rate);
    ~PulsePlaybackSession();
    PulsePlaybackSession(const PulsePlaybackSession&) = delete;
    PulsePlaybackSession& operator=(const PulsePlaybackSession&) = delete;

    /// Not there, or gone. A broken session stays so.
    [[nodiscard]] bool Broken() const { return broken_; }
    [[nodiscard]] bool Ready() const;

    /// How many samples the server takes now.
    [[nodiscard]] std::size_t Room() const;
    [[nodiscard]] bool Resting() const { return resting_; }
    /// Starts the stream if it rests.
    void Write(std::span<const std::int16_t> samples);
    /// Samples that were written and are not heard yet; nothing while that is not known. Does not
    /// come down to 0 by itself: it says what would still be in front of a next sample.
    [[nodiscard]] std::optional<std::int64_t> Latency() const;
    /// Throws away what is not heard yet and falls silent.
    void Rest();

private:
    struct Release {
        void operator()(pa_context* context) const;
        void operator()(pa_stream* stream) const;
        void operator()(pa_operation* operation) const;
    };

    void ContextChanged();
    void Connect();

    int rate_;
    std::unique_ptr<pa_context, Release> context_;
    std::unique_ptr<pa_stream, Release> stream_;
    std::unique_ptr<pa_operation, Release> timing_request_;
    bool timing_known_ = false;
    bool resting_ = true;
    bool broken_ = true;
};

}  // namespace corvane::engine
