// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/audio/pulse_capture_session.h"

#include <pulse/context.h>
#include <pulse/introspect.h>
#include <pulse/mainloop.h>
#include <pulse/subscribe.h>

#include <cstdlib>
#include <cstring>
#include <vector>

#include "engine/audio/audio_source.h"

namespace corvane::engine {
namespace {

constexpr std::uint32_t kFragmentBytes = kSampleRate / 50 * sizeof(std::int16_t);  // 20 ms

PulseCaptureSession* Self(void* self) {
    return static_cast<PulseCaptureSession*>(self);
}

}  // namespace

void PulseCaptureSession::Release::operator()(pa_stream* stream) const {
    pa_stream_set_state_callback(stream, nullptr, nullptr);
    pa_stream_set_read_callback(stream, nullptr, nullptr);
    pa_stream_set_moved_callback(stream, nullptr, nullptr);
    pa_stream_disconnect(stream);
    pa_stream_unref(stream);
}

void PulseCaptureSession::Release::operator()(pa_operation* operation) const {
    pa_operation_cancel(operation);
    pa_operation_unref(operation);
}

PulseCaptureSession::PulseCaptureSession(pa_mainloop* loop, const std::string& client_name,
                                         SampleQueue& queue)
    : loop_(loop), queue_(queue), connection_(loop, client_name, [this] { Connect(); }) {}

PulseCaptureSession::~PulseCaptureSession() {
    if (connection_.Context() != nullptr)
        pa_context_set_subscribe_callback(connection_.Context(), nullptr, nullptr);
}

void PulseCaptureSession::Iterate() {
    const auto left = std::chrono::ceil<std::chrono::microseconds>(patient_until_ - Clock::now());
    if (left.count() <= 0) {
        queue_.Push(std::vector<std::int16_t>(kPatience.count() * std::size_t{kSampleRate}));
        patient_until_ += kPatience;
    } else if (pa_mainloop_prepare(loop_, static_cast<int>(left.count())) < 0 ||
               pa_mainloop_poll(loop_) < 0 || pa_mainloop_dispatch(loop_) < 0) {
        broken_ = true;
    }
}

void PulseCaptureSession::Connect() {
    const pa_sample_spec format{.format = PA_SAMPLE_S16NE, .rate = kSampleRate, .channels = 1};
    stream_.reset(pa_stream_new(connection_.Context(), "voice commands", &format, nullptr));
    if (!stream_) {
        broken_ = true;
        return;
    }
    pa_stream_set_state_callback(
        stream_.get(), [](pa_stream*, void* self) { Self(self)->StreamChanged(); }, this);
    pa_stream_set_moved_callback(
        stream_.get(), [](pa_stream*, void* self) { Self(self)->AskWhatItHears(); }, this);
    pa_stream_set_read_callback(
        stream_.get(), [](pa_stream*, std::size_t, void* self) { Self(self)->Capture(); }, this);
    constexpr auto kServersChoice = static_cast<std::uint32_t>(-1);
    const pa_buffer_attr buffer{.maxlength = kServersChoice,
                                .tlength = kServersChoice,
                                .prebuf = kServersChoice,
                                .minreq = kServersChoice,
                                .fragsize = kFragmentBytes};
    if (pa_stream_connect_record(stream_.get(), nullptr, &buffer, PA_STREAM_ADJUST_LATENCY) < 0)
        broken_ = true;
}

void PulseCaptureSession::StreamChanged() {
    const pa_stream_state_t state = pa_stream_get_state(stream_.get());
    if (!PA_STREAM_IS_GOOD(state)) broken_ = true;
    if (state != PA_STREAM_READY) return;
    pa_context_set_subscribe_callback(
        connection_.Context(),
        [](pa_context*, pa_subscription_event_type_t, std::uint32_t, void* self) {
            Self(self)->AskWhatItHears();
        },
        this);
    subscription_.reset(
        pa_context_subscribe(connection_.Context(), PA_SUBSCRIPTION_MASK_SERVER, nullptr, nullptr));
    AskWhatItHears();
}

void PulseCaptureSession::AskWhatItHears() {
    server_request_.reset(pa_context_get_server_info(
        connection_.Context(),
        [](pa_context*, const pa_server_info* server, void* self) {
            Self(self)->ServerTold(server);
        },
        this));
}

void PulseCaptureSession::ServerTold(const pa_server_info* server) {
    const char* device = pa_stream_get_device_name(stream_.get());
    if (server == nullptr || device == nullptr) return;
    speaker_ = server->default_sink_name != nullptr ? server->default_sink_name : "";
    by_default_ = std::getenv("PULSE_SOURCE") == nullptr &&
                  server->default_source_name != nullptr &&
                  std::strcmp(server->default_source_name, device) == 0;
    source_request_.reset(pa_context_get_source_info_by_name(
        connection_.Context(), device,
        [](pa_context*, const pa_source_info* source, int, void* self) {
            Self(self)->SourceTold(source);
        },
        this));
}

void PulseCaptureSession::SourceTold(const pa_source_info* source) {
    if (source == nullptr) return;
    hears_speaker_ = by_default_ && source->monitor_of_sink_name != nullptr &&
                     speaker_ == source->monitor_of_sink_name;
}

void PulseCaptureSession::Capture() {
    const void* data = nullptr;
    std::size_t bytes = 0;
    while (pa_stream_peek(stream_.get(), &data, &bytes) == 0 && bytes > 0) {
        const std::size_t count = bytes / sizeof(std::int16_t);
        // A hole in the stream has a length but no data.
        if (data != nullptr && !hears_speaker_)
            queue_.Push({static_cast<const std::int16_t*>(data), count});
        else
            queue_.Push(std::vector<std::int16_t>(count));
        patient_until_ = Clock::now() + kPatience;
        pa_stream_drop(stream_.get());
    }
}

}  // namespace corvane::engine
