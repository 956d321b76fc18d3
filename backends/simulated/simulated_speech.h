// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/speech_api.h"
#include "simulated/call_record.h"
#include "simulated/memory_files.h"
#include "simulated/virtual_queue.h"

namespace corvane::simulated {

class SimulatedContext;

/// A recogniser that hears what a test says, and a voice. A phrase is recognised by the contexts
/// that are alive and have a rule active which accepts it.
///
/// The sound begins with the first context. Operations that can be told to fail: CreateSpVoice,
/// CreateSpSharedRecoContext, CreateGrammar, CmdLoadFromFile, Rules, Count, Item, Id,
/// CmdSetRuleIdState, DictationLoad, DictationSetState, DictationUnload, Recognizer, DisplayUI,
/// SetAdaptationData, rc.EventInterests, voice.EventInterests, GetText, Rule.Name, Rule.Confidence,
/// DiscardResultInfo.
class SimulatedSpeech final : public ISpeechApi {
public:
    SimulatedSpeech(CallRecord& record, MemoryFiles& files, VirtualQueue& queue);

    std::shared_ptr<ISpeechRecoContext> CreateSpSharedRecoContext() override;
    std::shared_ptr<ISpeechVoice> CreateSpVoice() override;

    /// Somebody says a phrase; the events are queued. False when nobody listens for it.
    bool Say(const std::string& phrase, SpeechEngineConfidence confidence = SECHighConfidence);
    /// The engine claims to have heard the phrase as that rule, whatever was said.
    void Claim(const std::string& phrase, const std::string& rule,
               SpeechEngineConfidence confidence);

    /// The engine thinks it hears that phrase while it is being said.
    void Guess(const std::string& phrase, const std::string& rule,
               SpeechEngineConfidence confidence);
    /// The input is that loud.
    void Level(std::int32_t level);
    /// The engine has trouble hearing.
    void Trouble(std::int32_t interference);
    void Adapted();
    /// What a person does while one of the engine's dialogs stands; nothing at first, and it
    /// closes.
    std::function<void()> OnDisplayUI = [] {};

    /// Contexts that something still holds.
    [[nodiscard]] std::vector<std::shared_ptr<SimulatedContext>> Contexts() const;

private:
    using Delivery = std::function<void(const SpeechRecoContextEvents&)>;

    [[nodiscard]] Variant Position() const;
    void RaiseRecognition(const std::shared_ptr<SimulatedContext>& context,
                          const std::shared_ptr<ISpeechRecoResult>& result);
    void RaiseToAll(std::int32_t interest, const Delivery& deliver);
    void Raise(const std::shared_ptr<SimulatedContext>& context, std::int32_t interest,
               Delivery deliver);

    CallRecord& record_;
    MemoryFiles& files_;
    VirtualQueue& queue_;
    std::optional<std::chrono::milliseconds> stream_begin_;
    std::vector<std::weak_ptr<SimulatedContext>> contexts_;
};

}  // namespace corvane::simulated
