// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/speech_api.h"
#include "simulated/call_record.h"
#include "simulated/memory_files.h"
#include "simulated/spoken_grammar.h"

namespace corvane::simulated {

/// What one grammar holds, shared by the objects that speak for it.
struct LoadedRules {
    std::vector<SpokenRule> rules;
    std::vector<std::string> active;
    bool dictation_loaded = false;
    bool dictating = false;
};

class SimulatedContext final : public ISpeechRecoContext {
public:
    /// on_display_ui: run while one of the engine's dialogs stands.
    SimulatedContext(CallRecord& record, MemoryFiles& files,
                     const std::function<void()>& on_display_ui);

    std::shared_ptr<ISpeechRecoGrammar> CreateGrammar(std::int32_t GrammarId) override;
    std::shared_ptr<ISpeechRecognizer> Recognizer() const override;
    std::int32_t EventInterests() const override;
    void SetEventInterests(std::int32_t Mask) override;
    void Advise(SpeechRecoContextEvents Events) override;
    void SetAdaptationData(const std::string& AdaptationString) override;

    /// Name of the active rule that accepts the phrase; empty if there is none.
    [[nodiscard]] std::string RuleFor(const std::string& phrase) const;
    [[nodiscard]] bool HasActive(const std::string& rule) const;
    /// Whether what is no command is text for it.
    [[nodiscard]] bool Dictates() const;
    [[nodiscard]] SpeechRecoContextEvents Handlers() const { return events_; }

private:
    CallRecord& record_;
    MemoryFiles& files_;
    const std::function<void()>& on_display_ui_;
    std::vector<std::weak_ptr<LoadedRules>> grammars_;
    std::int32_t interests_ = 0;
    SpeechRecoContextEvents events_;
};

/// A result of its own, as the engine gives one.
[[nodiscard]] std::shared_ptr<ISpeechRecoResult> MakeResult(CallRecord& record, std::string text,
                                                            std::string rule,
                                                            std::int32_t confidence);

}  // namespace corvane::simulated
