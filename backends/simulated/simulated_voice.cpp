// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_voice.h"

#include <algorithm>

namespace corvane::simulated {
namespace {

std::chrono::milliseconds TimeToSay(const std::string& text) {
    bool markup = false;
    std::chrono::milliseconds time{0};
    for (const char c : text) {
        if (c == '<') markup = true;
        if (!markup) time += std::chrono::milliseconds(100);
        if (c == '>') markup = false;
    }
    return time;
}

}  // namespace

SimulatedVoice::SimulatedVoice(CallRecord& record, VirtualQueue& queue)
    : record_(record), queue_(queue) {}

void SimulatedVoice::SetEventInterests(std::int32_t Mask) {
    record_.Call("voice.EventInterests", std::to_string(Mask));
    interests_ = Mask;
}

std::int32_t SimulatedVoice::Speak(const std::string& Text, std::int32_t Flags) {
    record_.Call("Speak", "\"" + Text + "\" flags=" + std::to_string(Flags));
    const bool purge = (Flags & SVSFPurgeBeforeSpeak) != 0;
    const auto begin = purge ? queue_.Now() : std::max(queue_.Now(), silent_at_);
    silent_at_ = begin + TimeToSay(Text);
    return ++stream_;
}

bool SimulatedVoice::WaitUntilDone(std::int32_t msTimeout) {
    record_.Call("WaitUntilDone", std::to_string(msTimeout));
    const auto left = std::max(silent_at_ - queue_.Now(), std::chrono::milliseconds(0));
    const auto timeout = std::chrono::milliseconds(msTimeout);
    queue_.Block(std::min(left, timeout));
    return left <= timeout;
}

}  // namespace corvane::simulated
