// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/audio/pulse_capture.h"

#include <pulse/context.h>
#include <pulse/error.h>
#include <pulse/mainloop.h>
#include <pulse/stream.h>

#include <chrono>
#include <utility>
#include <vector>

namespace corvane::engine {
namespace {

using Clock = std::chrono::steady_clock;

/// Between two attempts, and how long a stream may keep back its sound before it counts as silent.
constexpr auto kPatience = std::chrono::seconds(1);
constexpr std::size_t kQueueSamples = std::size_t{20} * kSampleRate;
constexpr std::size_t kSilentSamples = kPatience.count() * std::size_t{kSampleRate};
constexpr std::uint32_t kFragmentBytes = kSampleRate / 50 * sizeof(std::int16_t);  // 20 ms

/// What the recogniser hears of a microphone that isn't there.
void PushSilence(SampleQueue& queue) {
    queue.Push(std::vector<std::int16_t>(kSilentSamples));
}

/// One connection to the server, from the attempt to its end.
class Session {
public:
    Session(pa_mainloop* loop, const std::string& client_name, SampleQueue& queue)
        : queue_(queue), context_(pa_context_new(pa_mainloop_get_api(loop), client_name.c_str())) {
        if (!context_) return;
        pa_context_set_state_callback(
            context_.get(),
            [](pa_context*, void* self) { static_cast<Session*>(self)->ContextChanged(); }, this);
        broken_ = pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0;
    }

    ~Session() {
        if (stream_) {
            pa_stream_set_state_callback(stream_.get(), nullptr, nullptr);
            pa_stream_set_read_callback(stream_.get(), nullptr, nullptr);
            pa_stream_disconnect(stream_.get());
        }
        if (context_) {
            pa_context_set_state_callback(context_.get(), nullptr, nullptr);
            pa_context_disconnect(context_.get());
        }
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    [[nodiscard]] bool Broken() const { return broken_; }

    /// Waits for what the server has to say, at most kPatience in all since it last gave sound;
    /// then its silence is put down as such.
    void Iterate(pa_mainloop* loop) {
        const auto left =
            std::chrono::ceil<std::chrono::microseconds>(patient_until_ - Clock::now());
        if (left.count() <= 0) {
            PushSilence(queue_);
            patient_until_ += kPatience;
        } else if (pa_mainloop_prepare(loop, static_cast<int>(left.count())) < 0 ||
                   pa_mainloop_poll(loop) < 0 || pa_mainloop_dispatch(loop) < 0) {
            broken_ = true;
        }
    }

private:
    void ContextChanged() {
        const pa_context_state_t state = pa_context_get_state(context_.get());
        if (state == PA_CONTEXT_READY)
            Connect();
        else if (!PA_CONTEXT_IS_GOOD(state))
            broken_ = true;
    }

    void Connect() {
        const pa_sample_spec format{.format = PA_SAMPLE_S16NE, .rate = kSampleRate, .channels = 1};
        stream_.reset(pa_stream_new(context_.get(), "voice commands", &format, nullptr));
        if (!stream_) {
            broken_ = true;
            return;
        }
        pa_stream_set_state_callback(
            stream_.get(),
            [](pa_stream* stream, void* self) {
                if (!PA_STREAM_IS_GOOD(pa_stream_get_state(stream)))
                    static_cast<Session*>(self)->broken_ = true;
            },
            this);
        pa_stream_set_read_callback(
            stream_.get(),
            [](pa_stream*, std::size_t, void* self) { static_cast<Session*>(self)->Capture(); },
            this);
        constexpr auto kServersChoice = static_cast<std::uint32_t>(-1);
        const pa_buffer_attr buffer{.maxlength = kServersChoice,
                                    .tlength = kServersChoice,
                                    .prebuf = kServersChoice,
                                    .minreq = kServersChoice,
                                    .fragsize = kFragmentBytes};
        if (pa_stream_connect_record(stream_.get(), nullptr, &buffer, PA_STREAM_ADJUST_LATENCY) < 0)
            broken_ = true;
    }

    void Capture() {
        const void* data = nullptr;
        std::size_t bytes = 0;
        while (pa_stream_peek(stream_.get(), &data, &bytes) == 0 && bytes > 0) {
            const std::size_t count = bytes / sizeof(std::int16_t);
            // A hole in the stream has a length but no data.
            if (data != nullptr)
                queue_.Push({static_cast<const std::int16_t*>(data), count});
            else
                queue_.Push(std::vector<std::int16_t>(count));
            patient_until_ = Clock::now() + kPatience;
            pa_stream_drop(stream_.get());
        }
    }

    struct Release {
        void operator()(pa_context* context) const { pa_context_unref(context); }
        void operator()(pa_stream* stream) const { pa_stream_unref(stream); }
    };

    SampleQueue& queue_;
    std::unique_ptr<pa_context, Release> context_;
    std::unique_ptr<pa_stream, Release> stream_;
    bool broken_ = true;
    Clock::time_point patient_until_ = Clock::now() + kPatience;
};

}  // namespace

void PulseCapture::FreeLoop::operator()(pa_mainloop* loop) const {
    pa_mainloop_free(loop);
}

PulseCapture::PulseCapture(std::string client_name)
    : client_name_(std::move(client_name)), queue_(kQueueSamples), loop_(pa_mainloop_new()) {}

PulseCapture::~PulseCapture() {
    Interrupt();
    if (thread_.joinable()) thread_.join();
}

std::size_t PulseCapture::Read(std::span<std::int16_t> block) {
    if (!thread_.joinable()) thread_ = std::thread([this] { Run(); });
    return queue_.Pop(block);
}

void PulseCapture::Interrupt() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    stop_requested_.notify_all();
    if (loop_) pa_mainloop_wakeup(loop_.get());
    queue_.Close();
}

bool PulseCapture::Stopping() {
    const std::lock_guard lock(mutex_);
    return stopping_;
}

bool PulseCapture::WaitToRetry() {
    std::unique_lock lock(mutex_);
    return stop_requested_.wait_for(lock, kPatience, [this] { return stopping_; });
}

void PulseCapture::Run() {
    if (!loop_) return;
    do {
        Session session(loop_.get(), client_name_, queue_);
        while (!session.Broken() && !Stopping()) session.Iterate(loop_.get());
        PushSilence(queue_);  // for the wait ahead
    } while (!WaitToRetry());
}

}  // namespace corvane::engine
