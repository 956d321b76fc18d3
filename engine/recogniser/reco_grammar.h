// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/grammar/grammar.h"
#include "engine/recogniser/recogniser.h"
#include "platform/speech_api.h"

namespace corvane::engine {

/// A grammar of a context. Its rules are heard as long as it is held, and its context is.
class RecoGrammar final : public ISpeechRecoGrammar {
public:
    explicit RecoGrammar(std::shared_ptr<Recogniser> recogniser);
    ~RecoGrammar() override;
    RecoGrammar(const RecoGrammar&) = delete;
    RecoGrammar& operator=(const RecoGrammar&) = delete;

    void CmdLoadFromFile(const std::string& FileName, std::int32_t LoadOption) override;
    [[nodiscard]] std::shared_ptr<ISpeechGrammarRules> Rules() const override;
    void CmdSetRuleIdState(std::int32_t RuleId, std::int32_t State) override;
    void DictationLoad(const std::string& TopicName, std::int32_t LoadOption) override;
    void DictationSetState(std::int32_t State) override;
    void DictationUnload() override;

    void AddActiveRules(std::vector<const GrammarRule*>& rules) const;
    [[nodiscard]] DictationState Dictates() const { return dictation_; }
    /// When it was last changed.
    [[nodiscard]] Vocabulary::Clock::time_point Changed() const { return changed_; }

private:
    void SetDictation(DictationState state);
    void Change();

    std::shared_ptr<Recogniser> recogniser_;
    Grammar grammar_;
    std::vector<bool> active_;  ///< by the grammar's rules
    DictationState dictation_ = DictationState::none;
    Vocabulary::Clock::time_point changed_{};
};

}  // namespace corvane::engine
