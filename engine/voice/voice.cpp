// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/voice.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "engine/voice/markup.h"
#include "engine/voice/synthesizer.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

constexpr std::int64_t kAhead = kVoiceRate;  // a second: enough for a machine that is busy

}  // namespace

Voice::Voice(const std::string& client_name) : playback_(client_name, kVoiceRate) {
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

void Voice::Run() {
    while (TakeOrders()) {
        if (WantsSound()) Synthesise();
        ReportEnds();
        playback_.Turn(WantsSound() ? PulsePlayback::Wait::no : PulsePlayback::Wait::yes);
        ReportEnds();
    }
}

bool Voice::TakeOrders() {
    std::deque<Order> orders;
    {
        const std::lock_guard lock(mutex_);
        if (closing_) return false;
        if (std::exchange(purge_, false)) {
            utterances_.clear();
            ends_.clear();
            playback_.Purge();
        }
        orders = std::exchange(orders_, {});
    }
    for (const Order& order : orders)
        utterances_.push_back({.stream = order.stream,
                               .pieces = CutIntoPieces(order.markup ? ParseMarkup(order.text)
                                                                    : PlainText(order.text))});
    return true;
}

bool Voice::WantsSound() const {
    return !utterances_.empty() && playback_.Appended() - playback_.Heard() < kAhead;
}

void Voice::Synthesise() {
    std::deque<Piece>& pieces = utterances_.front().pieces;
    if (!pieces.empty()) {
        playback_.Append(Synthesize(pieces.front()));
        pieces.pop_front();
    }
    if (pieces.empty()) {
        ends_.push_back({.position = playback_.Appended(), .stream = utterances_.front().stream});
        utterances_.pop_front();
    }
}

void Voice::ReportEnds() {
    std::int32_t ended = 0;
    for (; !ends_.empty() && ends_.front().position <= playback_.Heard(); ends_.pop_front())
        ended = ends_.front().stream;
    if (ended == 0) return;
    {
        const std::lock_guard lock(mutex_);
        // A purge may have ended later streams meanwhile.
        ended_ = std::max(ended_, ended);
    }
    heard_out_.notify_all();
}

}  // namespace corvane::engine
