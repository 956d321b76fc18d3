// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_speech.h"

#include <utility>

#include "simulated/simulated_context.h"

namespace corvane::simulated {
namespace {

constexpr std::int64_t kBytesPerMillisecond = 32;

class SimulatedVoice final : public ISpeechVoice {
public:
    explicit SimulatedVoice(CallRecord& record) : record_(record) {}

    std::int32_t EventInterests() const override { return interests_; }
    void SetEventInterests(std::int32_t Mask) override {
        record_.Call("voice.EventInterests", std::to_string(Mask));
        interests_ = Mask;
    }

private:
    CallRecord& record_;
    std::int32_t interests_ = 0;
};

}  // namespace

SimulatedSpeech::SimulatedSpeech(CallRecord& record, MemoryFiles& files, VirtualQueue& queue)
    : record_(record), files_(files), queue_(queue) {}

std::shared_ptr<ISpeechRecoContext> SimulatedSpeech::CreateSpSharedRecoContext() {
    record_.Call("CreateSpSharedRecoContext");
    auto context = std::make_shared<SimulatedContext>(record_, files_);
    contexts_.push_back(context);
    return context;
}

std::shared_ptr<ISpeechVoice> SimulatedSpeech::CreateVoice() {
    return std::make_shared<SimulatedVoice>(record_);
}

bool SimulatedSpeech::Say(const std::string& phrase, SpeechEngineConfidence confidence) {
    bool heard = false;
    for (const auto& context : Contexts()) {
        const std::string rule = context->RuleFor(phrase);
        if (rule.empty()) continue;
        heard = true;
        Raise(context, phrase, rule, confidence);
    }
    return heard;
}

void SimulatedSpeech::Claim(const std::string& phrase, const std::string& rule,
                            SpeechEngineConfidence confidence) {
    for (const auto& context : Contexts()) Raise(context, phrase, rule, confidence);
}

std::vector<std::shared_ptr<SimulatedContext>> SimulatedSpeech::Contexts() const {
    std::vector<std::shared_ptr<SimulatedContext>> alive;
    for (const auto& context : contexts_)
        if (auto held = context.lock()) alive.push_back(std::move(held));
    return alive;
}

void SimulatedSpeech::Raise(const std::shared_ptr<SimulatedContext>& context,
                            const std::string& phrase, const std::string& rule,
                            SpeechEngineConfidence confidence) {
    const Variant position = queue_.Now().count() * kBytesPerMillisecond;
    auto result = MakeResult(record_, phrase, rule, confidence);
    queue_.Post([weak = std::weak_ptr(context), position, result] {
        const auto alive = weak.lock();
        if (!alive || (alive->EventInterests() & SRERecognition) == 0) return;
        if (const auto handler = alive->Handlers().Recognition)
            handler(1, position, SRTStandard, result);
    });
}

}  // namespace corvane::simulated
