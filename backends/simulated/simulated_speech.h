// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
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
/// Operations that can be told to fail: CreateSpSharedRecoContext, CreateGrammar, CmdLoadFromFile,
/// Rules, Count, Item, Id, CmdSetRuleIdState, rc.EventInterests, voice.EventInterests, GetText,
/// Rule.Name, Rule.Confidence, DiscardResultInfo.
class SimulatedSpeech final : public ISpeechApi {
public:
    SimulatedSpeech(CallRecord& record, MemoryFiles& files, VirtualQueue& queue);

    std::shared_ptr<ISpeechRecoContext> CreateSpSharedRecoContext() override;
    [[nodiscard]] std::shared_ptr<ISpeechVoice> CreateVoice();

    /// Somebody says a phrase; the events are queued. False when nobody listens for it.
    bool Say(const std::string& phrase, SpeechEngineConfidence confidence = SECHighConfidence);
    /// The engine claims to have heard the phrase as that rule, whatever was said.
    void Claim(const std::string& phrase, const std::string& rule,
               SpeechEngineConfidence confidence);

    /// Contexts that something still holds.
    [[nodiscard]] std::vector<std::shared_ptr<SimulatedContext>> Contexts() const;

private:
    void Raise(const std::shared_ptr<SimulatedContext>& context, const std::string& phrase,
               const std::string& rule, SpeechEngineConfidence confidence);

    CallRecord& record_;
    MemoryFiles& files_;
    VirtualQueue& queue_;
    std::vector<std::weak_ptr<SimulatedContext>> contexts_;
};

}  // namespace corvane::simulated
