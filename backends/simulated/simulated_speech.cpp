// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_speech.h"

#include <algorithm>
#include <utility>

#include "simulated/simulated_context.h"
#include "simulated/simulated_voice.h"

namespace corvane::simulated {
namespace {

constexpr std::int64_t kBytesPerMillisecond = 32;
constexpr std::int32_t kStream = 1;

}  // namespace

SimulatedSpeech::SimulatedSpeech(CallRecord& record, MemoryFiles& files, VirtualQueue& queue)
    : record_(record), files_(files), queue_(queue) {}

std::shared_ptr<ISpeechRecoContext> SimulatedSpeech::CreateSpSharedRecoContext() {
    record_.Call("CreateSpSharedRecoContext");
    if (!stream_begin_) stream_begin_ = queue_.Now();
    std::erase_if(contexts_, [](const auto& former) { return former.expired(); });
    auto context = std::make_shared<SimulatedContext>(record_, files_, OnDisplayUI);
    contexts_.push_back(context);
    return context;
}

std::shared_ptr<ISpeechVoice> SimulatedSpeech::CreateSpVoice() {
    record_.Call("CreateSpVoice");
    return std::make_shared<SimulatedVoice>(record_, queue_);
}

bool SimulatedSpeech::Say(const std::string& phrase, SpeechEngineConfidence confidence) {
    const auto contexts = Contexts();
    const auto dictating = std::find_if(contexts.rbegin(), contexts.rend(),
                                        [](const auto& context) { return context->Dictates(); });
    const bool is_command = std::ranges::any_of(
        contexts, [&phrase](const auto& context) { return !context->RuleFor(phrase).empty(); });
    if (dictating != contexts.rend() && !(is_command && confidence == SECHighConfidence)) {
        RaiseRecognition(*dictating, MakeResult(record_, phrase, {}, confidence));
        return true;
    }

    bool heard = false;
    for (const auto& context : contexts) {
        const std::string rule = context->RuleFor(phrase);
        if (rule.empty()) continue;
        heard = true;
        RaiseRecognition(context, MakeResult(record_, phrase, rule, confidence));
    }
    return heard;
}

void SimulatedSpeech::Claim(const std::string& phrase, const std::string& rule,
                            SpeechEngineConfidence confidence) {
    for (const auto& context : Contexts())
        RaiseRecognition(context, MakeResult(record_, phrase, rule, confidence));
}

void SimulatedSpeech::Guess(const std::string& phrase, const std::string& rule,
                            SpeechEngineConfidence confidence) {
    auto result = MakeResult(record_, phrase, rule, confidence);
    RaiseToAll(SREHypothesis, [position = Position(), result](const SpeechRecoContextEvents& to) {
        if (to.Hypothesis) to.Hypothesis(kStream, position, result);
    });
}

void SimulatedSpeech::Level(std::int32_t level) {
    RaiseToAll(SREAudioLevel, [position = Position(), level](const SpeechRecoContextEvents& to) {
        if (to.AudioLevel) to.AudioLevel(kStream, position, level);
    });
}

void SimulatedSpeech::Trouble(std::int32_t interference) {
    RaiseToAll(SREInterference,
               [position = Position(), interference](const SpeechRecoContextEvents& to) {
                   if (to.Interference) to.Interference(kStream, position, interference);
               });
}

void SimulatedSpeech::Adapted() {
    RaiseToAll(SREAdaptation, [position = Position()](const SpeechRecoContextEvents& to) {
        if (to.Adaptation) to.Adaptation(kStream, position);
    });
}

std::vector<std::shared_ptr<SimulatedContext>> SimulatedSpeech::Contexts() const {
    std::vector<std::shared_ptr<SimulatedContext>> alive;
    for (const auto& context : contexts_)
        if (auto held = context.lock()) alive.push_back(std::move(held));
    return alive;
}

Variant SimulatedSpeech::Position() const {
    return (queue_.Now() - stream_begin_.value_or(std::chrono::milliseconds(0))).count() *
           kBytesPerMillisecond;
}

void SimulatedSpeech::RaiseRecognition(const std::shared_ptr<SimulatedContext>& context,
                                       const std::shared_ptr<ISpeechRecoResult>& result) {
    Raise(context, SRERecognition,
          [position = Position(), result](const SpeechRecoContextEvents& to) {
              if (to.Recognition) to.Recognition(kStream, position, SRTStandard, result);
          });
}

void SimulatedSpeech::RaiseToAll(std::int32_t interest, const Delivery& deliver) {
    for (const auto& context : Contexts()) Raise(context, interest, deliver);
}

void SimulatedSpeech::Raise(const std::shared_ptr<SimulatedContext>& context, std::int32_t interest,
                            Delivery deliver) {
    queue_.Post([weak = std::weak_ptr(context), interest, deliver = std::move(deliver)] {
        const auto alive = weak.lock();
        if (alive && (alive->EventInterests() & interest) != 0) deliver(alive->Handlers());
    });
}

}  // namespace corvane::simulated
