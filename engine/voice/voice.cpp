// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/voice.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "engine/voice/synthesizer.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

constexpr std::int64_t kAhead = kVoiceRate;  // a second: enough for a machine that is busy

}  // namespace

Voice::Voice(const std::string& client_name, Post post)
    : post_(std::move(post)), playback_(client_name, kVoiceRate) {
    if (!CanSynthesize()) throw RuntimeError(kAutomationError, "no voice is installed");
    thread_ = std::thread([this] { Run(); });
}

Voice::~Voice() {
    {
        const std::lock_guard lock(mutex_);
        closing_ = true;
    }
    playback_.Wake();
    if (thread_.joinable()) thread_.join();
}

std::int32_t Voice::Speak(const std::string& Text, std::int32_t Flags) {
    std::unique_lock lock(mutex_);
    if ((Flags & SVSFPurgeBeforeSpeak) != 0) {
        purge_ = true;
        orders_.clear();
        ended_ = last_stream_;
        listener_->CutOff(last_stream_);
    }
    const std::int32_t stream = ++last_stream_;
    orders_.push_back({.stream = stream, .text = Text, .markup = (Flags & SVSFIsXML) != 0});
    playback_.Wake();
    if ((Flags & SVSFlagsAsync) == 0)
        heard_out_.wait(lock, [this, stream] { return ended_ >= stream; });
    return stream;
}

bool Voice::WaitUntilDone(std::int32_t msTimeout) {
    std::unique_lock lock(mutex_);
    const auto done = [this] { return ended_ == last_stream_; };
    if (msTimeout >= 0)
        return heard_out_.wait_for(lock, std::chrono::milliseconds(msTimeout), done);
    heard_out_.wait(lock, done);
    return true;
}

void Voice::StopPosting() {
    const std::lock_guard lock(post_mutex_);
    post_ = {};
}

void Voice::Run() {
    while (TakeOrders()) {
        if (WantsSound()) Synthesise();
        TellWhatWasHeard();
        playback_.Turn(WantsSound() ? PulsePlayback::Wait::no : PulsePlayback::Wait::yes);
        TellWhatWasHeard();
    }
}

bool Voice::TakeOrders() {
    std::deque<Order> orders;
    bool purge = false;
    {
        const std::lock_guard lock(mutex_);
        if (closing_) return false;
        purge = std::exchange(purge_, false);
        orders = std::exchange(orders_, {});
    }
    if (purge) {
        streams_.clear();
        due_.clear();
        playback_.Purge();
        // There is an order, since a purge comes with one.
        Tell({.stream = orders.front().stream, .sample = 0, .what = LevelMark{0}});
    }
    for (const Order& order : orders)
        streams_.push_back(
            {.number = order.stream, .utterance = Utterance(order.text, order.markup)});
    return true;
}

bool Voice::WantsSound() const {
    return !streams_.empty() && playback_.Appended() - playback_.Heard() < kAhead;
}

void Voice::Synthesise() {
    Stream& stream = streams_.front();
    if (!stream.utterance.Done()) {
        const Spoken spoken = stream.utterance.Next();
        const std::int64_t begin = playback_.Append(spoken.sound);
        for (const Mark& mark : spoken.marks) {
            // It is heard with its own sample, and at the very end with the one before.
            const std::int64_t heard = std::min(mark.sample + 1, std::ssize(spoken.sound));
            std::visit(
                [&](const auto& what) {
                    due_.push_back({.heard = begin + heard,
                                    .event = {.stream = stream.number,
                                              .sample = stream.length + mark.sample,
                                              .what = what}});
                },
                mark.what);
        }
        stream.length += std::ssize(spoken.sound);
    }
    if (!stream.utterance.Done()) return;
    const VoiceEvent end{.stream = stream.number, .sample = stream.length, .what = EndMark{}};
    due_.push_back({.heard = playback_.Appended(),
                    .event = {.stream = end.stream, .sample = end.sample, .what = LevelMark{0}}});
    due_.push_back({.heard = playback_.Appended(), .event = end});
    streams_.pop_front();
}

void Voice::TellWhatWasHeard() {
    std::int32_t ended = 0;
    for (; !due_.empty() && due_.front().heard <= playback_.Heard(); due_.pop_front()) {
        if (std::holds_alternative<EndMark>(due_.front().event.what))
            ended = due_.front().event.stream;
        Tell(std::move(due_.front().event));
    }
    if (ended == 0) return;
    {
        const std::lock_guard lock(mutex_);
        // A purge may have ended later streams meanwhile.
        ended_ = std::max(ended_, ended);
    }
    heard_out_.notify_all();
}

void Voice::Tell(VoiceEvent event) {
    const std::lock_guard lock(post_mutex_);
    if (!post_) return;
    post_([listener = std::weak_ptr(listener_), event = std::move(event)] {
        if (const auto alive = listener.lock()) alive->Tell(event);
    });
}

}  // namespace corvane::engine
