// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/audio/pulse_capture.h"

#include <pulse/mainloop.h>

#include <utility>
#include <vector>

#include "engine/audio/pulse_capture_session.h"

namespace corvane::engine {
namespace {

constexpr auto kRetryAfter = PulseCaptureSession::kPatience;
constexpr std::size_t kQueueSamples = std::size_t{20} * kSampleRate;
constexpr std::size_t kWaitSamples = kRetryAfter.count() * std::size_t{kSampleRate};

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
    return stop_requested_.wait_for(lock, kRetryAfter, [this] { return stopping_; });
}

void PulseCapture::Run() {
    do {
        if (loop_) {
            PulseCaptureSession session(loop_.get(), client_name_, queue_);
            while (!session.Broken() && !Stopping()) session.Iterate();
        }
        // The wait ahead, as the recogniser hears a microphone that isn't there.
        queue_.Push(std::vector<std::int16_t>(kWaitSamples));
    } while (!WaitToRetry());
}

}  // namespace corvane::engine
