// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/audio/pulse_playback.h"

#include <pulse/mainloop.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "engine/audio/pulse_playback_session.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

using std::chrono_literals::operator""ms;

constexpr auto kPoll = 4ms;
constexpr auto kRetryAfter = 200ms;
constexpr auto kConnectBound = 500ms;
constexpr auto kStallBound = 3000ms;

}  // namespace

void PulsePlayback::FreeLoop::operator()(pa_mainloop* loop) const {
    pa_mainloop_free(loop);
}

PulsePlayback::PulsePlayback(std::string client_name, int rate)
    : client_name_(std::move(client_name)), rate_(rate), loop_(pa_mainloop_new()) {
    if (!loop_) throw RuntimeError(kAutomationError, "no message loop for the sound server");
    // Now, so that the first words need not wait for it.
    Connect(Clock::now());
}

PulsePlayback::~PulsePlayback() = default;

std::int64_t PulsePlayback::Append(std::span<const std::int16_t> samples) {
    if (!Sounding()) moved_at_ = Clock::now();
    const std::int64_t begin = buffered_;
    unheard_.insert(unheard_.end(), samples.begin(), samples.end());
    buffered_ += std::ssize(samples);
    appended_ = buffered_;
    return begin;
}

void PulsePlayback::Purge() {
    appended_ = heard_;
    Rest();
}

void PulsePlayback::Turn(Wait wait) {
    const Clock::time_point now = Clock::now();
    const bool sounded = Sounding();
    if (sounded) {
        if (session_->Broken() && now - connected_at_ >= kRetryAfter) Connect(now);
        if (session_->Ready() && !given_up_)
            Play(now, wait == Wait::yes);
        else if (session_->Broken() || given_up_ || now - connected_at_ > kConnectBound)
            PassUnheard(now);
        else
            moved_at_ = now;
    }
    if (!Sounding()) Rest();
    constexpr int kForever = -1;
    constexpr int kPollMicroseconds = std::chrono::microseconds(kPoll).count();
    int longest = sounded ? kPollMicroseconds : kForever;
    // The caller has not heard of an end yet.
    if (wait == Wait::no || sounded != Sounding()) longest = 0;
    if (pa_mainloop_prepare(loop_.get(), longest) < 0) return;
    // Preparing has forgotten who woke the loop before.
    if (woken_.exchange(false)) pa_mainloop_wakeup(loop_.get());
    if (pa_mainloop_poll(loop_.get()) >= 0) pa_mainloop_dispatch(loop_.get());
}

void PulsePlayback::Wake() {
    woken_ = true;
    pa_mainloop_wakeup(loop_.get());
}

void PulsePlayback::Connect(Clock::time_point now) {
    session_.reset();  // the old one first: both are on one loop
    session_ = std::make_unique<PulsePlaybackSession>(loop_.get(), client_name_, rate_);
    connected_at_ = now;
    written_ = heard_;
}

void PulsePlayback::Play(Clock::time_point now, bool complete) {
    const auto room = static_cast<std::int64_t>(session_->Room());
    // The server counts the end of a stream as heard only while something follows it.
    if (complete && buffered_ < written_ + room) {
        buffered_ = written_ + room;
        unheard_.resize(static_cast<std::size_t>(buffered_ - heard_));
    }
    const std::int64_t count = std::min(room, buffered_ - written_);
    if (count > 0) {
        if (session_->Resting()) {
            started_ = written_;
            started_at_ = now;
        }
        const auto from = unheard_.begin() + static_cast<std::ptrdiff_t>(written_ - heard_);
        session_->Write(std::vector<std::int16_t>(from, from + static_cast<std::ptrdiff_t>(count)));
        written_ += count;
    }
    if (const auto latency = session_->Latency()) {
        const std::int64_t heard =
            std::clamp(std::min(written_ - *latency, HeardAtMost(now)), heard_, written_);
        if (heard > heard_) MoveOn(heard, now);
    }
    if (now - moved_at_ > kStallBound) {
        session_->Rest();
        given_up_ = true;
    }
}

std::int64_t PulsePlayback::HeardAtMost(Clock::time_point now) const {
    // Just after its start the server's clock may run ahead by a tenth of a second. A sound card
    // may really be a little faster than the system's clock.
    constexpr double kFastest = 1.002;
    const std::chrono::duration<double> passed = now - started_at_;
    return started_ + static_cast<std::int64_t>(passed.count() * rate_ * kFastest) + 1;
}

void PulsePlayback::PassUnheard(Clock::time_point now) {
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(now - moved_at_);
    const std::int64_t samples = passed.count() * rate_ / 1000;
    if (samples == 0) return;
    const std::int64_t heard = std::min(heard_ + samples, appended_);
    written_ = heard;
    MoveOn(heard, moved_at_ + passed);
}

void PulsePlayback::Rest() {
    session_->Rest();
    unheard_.clear();
    buffered_ = written_ = appended_ = heard_;
    given_up_ = false;
}

void PulsePlayback::MoveOn(std::int64_t heard, Clock::time_point now) {
    unheard_.erase(unheard_.begin(),
                   unheard_.begin() + static_cast<std::ptrdiff_t>(heard - heard_));
    heard_ = heard;
    moved_at_ = now;
}

}  // namespace corvane::engine
