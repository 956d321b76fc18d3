// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/audio/pulse_playback_session.h"

#include <pulse/mainloop.h>

namespace corvane::engine {
namespace {

constexpr std::size_t kSampleBytes = sizeof(std::int16_t);

void Forget(pa_operation* operation) {
    if (operation != nullptr) pa_operation_unref(operation);
}

}  // namespace

void PulsePlaybackSession::Release::operator()(pa_context* context) const {
    pa_context_set_state_callback(context, nullptr, nullptr);
    pa_context_disconnect(context);
    pa_context_unref(context);
}

void PulsePlaybackSession::Release::operator()(pa_stream* stream) const {
    pa_stream_set_state_callback(stream, nullptr, nullptr);
    pa_stream_disconnect(stream);
    pa_stream_unref(stream);
}

void PulsePlaybackSession::Release::operator()(pa_operation* operation) const {
    pa_operation_cancel(operation);
    pa_operation_unref(operation);
}

PulsePlaybackSession::PulsePlaybackSession(pa_mainloop* loop, const std::string& client_name,
                                           int rate)
    : rate_(rate), context_(pa_context_new(pa_mainloop_get_api(loop), client_name.c_str())) {
    if (!context_) return;
    pa_context_set_state_callback(
        context_.get(),
        [](pa_context*, void* self) { static_cast<PulsePlaybackSession*>(self)->ContextChanged(); },
        this);
    broken_ = false;
    if (pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        broken_ = true;
}

PulsePlaybackSession::~PulsePlaybackSession() = default;

void PulsePlaybackSession::ContextChanged() {
    const pa_context_state_t state = pa_context_get_state(context_.get());
    if (state == PA_CONTEXT_READY)
        Connect();
    else if (!PA_CONTEXT_IS_GOOD(state))
        broken_ = true;
}

void PulsePlaybackSession::Connect() {
    const auto rate = static_cast<std::uint32_t>(rate_);
    const pa_sample_spec format{.format = PA_SAMPLE_S16NE, .rate = rate, .channels = 1};
    stream_.reset(pa_stream_new(context_.get(), "voice", &format, nullptr));
    if (!stream_) {
        broken_ = true;
        return;
    }
    pa_stream_set_state_callback(
        stream_.get(),
        [](pa_stream* stream, void* self) {
            if (!PA_STREAM_IS_GOOD(pa_stream_get_state(stream)))
                static_cast<PulsePlaybackSession*>(self)->broken_ = true;
        },
        this);
    constexpr auto kServersChoice = static_cast<std::uint32_t>(-1);
    const auto milliseconds = [rate](std::uint32_t count) {
        return rate * count / 1000 * static_cast<std::uint32_t>(kSampleBytes);
    };
    // Short enough to stop at once, long enough for a busy machine.
    const pa_buffer_attr buffer{.maxlength = kServersChoice,
                                .tlength = milliseconds(80),
                                .prebuf = milliseconds(20),
                                .minreq = kServersChoice,
                                .fragsize = kServersChoice};
    constexpr auto kFlags =
        static_cast<pa_stream_flags_t>(PA_STREAM_START_CORKED | PA_STREAM_ADJUST_LATENCY |
                                       PA_STREAM_INTERPOLATE_TIMING | PA_STREAM_AUTO_TIMING_UPDATE);
    if (pa_stream_connect_playback(stream_.get(), nullptr, &buffer, kFlags, nullptr, nullptr) < 0)
        broken_ = true;
}

bool PulsePlaybackSession::Ready() const {
    return !broken_ && stream_ && pa_stream_get_state(stream_.get()) == PA_STREAM_READY;
}

std::size_t PulsePlaybackSession::Room() const {
    constexpr auto kFailed = static_cast<std::size_t>(-1);
    const std::size_t bytes = pa_stream_writable_size(stream_.get());
    return bytes == kFailed ? 0 : bytes / kSampleBytes;
}

void PulsePlaybackSession::Write(std::span<const std::int16_t> samples) {
    const bool starts = resting_;
    if (starts) {
        Forget(pa_stream_flush(stream_.get(), nullptr, nullptr));
        Forget(pa_stream_cork(stream_.get(), 0, nullptr, nullptr));
        resting_ = false;
    }
    if (pa_stream_write(stream_.get(), samples.data(), samples.size_bytes(), nullptr, 0,
                        PA_SEEK_RELATIVE) < 0)
        broken_ = true;
    if (!starts) return;
    Forget(pa_stream_trigger(stream_.get(), nullptr, nullptr));
    // Until the server has told, the clock is still that of what was said before.
    timing_request_.reset(pa_stream_update_timing_info(
        stream_.get(),
        [](pa_stream*, int success, void* self) {
            static_cast<PulsePlaybackSession*>(self)->timing_known_ = success != 0;
        },
        this));
}

std::optional<std::int64_t> PulsePlaybackSession::Latency() const {
    pa_usec_t microseconds = 0;
    int negative = 0;
    if (!timing_known_ || pa_stream_get_latency(stream_.get(), &microseconds, &negative) < 0)
        return std::nullopt;
    if (negative != 0) return 0;
    return static_cast<std::int64_t>(microseconds) * rate_ / 1'000'000;
}

void PulsePlaybackSession::Rest() {
    if (resting_) return;
    resting_ = true;
    timing_known_ = false;
    timing_request_.reset();
    if (!Ready()) return;
    Forget(pa_stream_cork(stream_.get(), 1, nullptr, nullptr));
    Forget(pa_stream_flush(stream_.get(), nullptr, nullptr));
}

}  // namespace corvane::engine
