// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>

#include "platform/speech_api.h"
#include "simulated/call_record.h"
#include "simulated/virtual_queue.h"

namespace corvane::simulated {

/// A voice that takes 100 ms for each character that is no markup, and can be cut off.
/// Operations that can be told to fail: voice.EventInterests, Speak, WaitUntilDone.
class SimulatedVoice final : public ISpeechVoice {
public:
    SimulatedVoice(CallRecord& record, VirtualQueue& queue);

    std::int32_t EventInterests() const override { return interests_; }
    void SetEventInterests(std::int32_t Mask) override;
    std::int32_t Speak(const std::string& Text, std::int32_t Flags) override;
    bool WaitUntilDone(std::int32_t msTimeout) override;

private:
    CallRecord& record_;
    VirtualQueue& queue_;
    std::int32_t interests_ = 0;
    std::int32_t stream_ = 0;
    std::chrono::milliseconds silent_at_{0};
};

}  // namespace corvane::simulated
