// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/reco_grammar.h"

#include <utility>

#include "engine/grammar/grammar_loader.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

class Rule final : public ISpeechGrammarRule {
public:
    explicit Rule(std::int32_t id) : id_(id) {}
    [[nodiscard]] std::int32_t Id() const override { return id_; }

private:
    std::int32_t id_;
};

class RuleList final : public ISpeechGrammarRules {
public:
    explicit RuleList(const Grammar& grammar) {
        for (const GrammarRule& rule : grammar.rules)
            rules_.push_back(std::make_shared<Rule>(rule.id));
    }

    [[nodiscard]] std::int32_t Count() const override {
        return static_cast<std::int32_t>(rules_.size());
    }

    [[nodiscard]] std::shared_ptr<ISpeechGrammarRule> Item(std::int32_t Index) const override {
        if (Index < 0 || Index >= Count())
            throw RuntimeError(kSubscriptOutOfRange, "The grammar has no rule of this index");
        return rules_[static_cast<std::size_t>(Index)];
    }

private:
    std::vector<std::shared_ptr<ISpeechGrammarRule>> rules_;
};

void CheckState(std::int32_t state) {
    if (state != SGDSActive && state != SGDSInactive)
        throw RuntimeError(kInvalidProcedureCall, "There is no such state");
}

}  // namespace

RecoGrammar::RecoGrammar(std::shared_ptr<Recogniser> recogniser)
    : recogniser_(std::move(recogniser)) {}

RecoGrammar::~RecoGrammar() {
    // Its context knows it no more by now.
    recogniser_->RulesChanged();
}

void RecoGrammar::CmdLoadFromFile(const std::string& FileName, std::int32_t /*LoadOption*/) {
    grammar_ = {};
    active_.clear();
    Change();
    grammar_ = LoadGrammar(FileName);
    active_.assign(grammar_.rules.size(), false);
    recogniser_->Learn(grammar_);
}

std::shared_ptr<ISpeechGrammarRules> RecoGrammar::Rules() const {
    return std::make_shared<RuleList>(grammar_);
}

void RecoGrammar::CmdSetRuleIdState(std::int32_t RuleId, std::int32_t State) {
    CheckState(State);
    bool found = RuleId == 0 && (State == SGDSInactive || !grammar_.rules.empty());
    for (std::size_t i = 0; i < grammar_.rules.size(); ++i) {
        const GrammarRule& rule = grammar_.rules[i];
        if (RuleId == 0 ? !rule.marked_active : rule.id != RuleId) continue;
        active_[i] = State == SGDSActive;
        found = true;
    }
    if (!found) throw RuntimeError(kAutomationError, "The grammar has no rule of this Id");
    Change();
}

void RecoGrammar::DictationLoad(const std::string& TopicName, std::int32_t /*LoadOption*/) {
    if (!TopicName.empty())
        throw RuntimeError(kAutomationError, "There is no dictation topic " + TopicName);
    if (dictation_ == DictationState::none) SetDictation(DictationState::loaded);
}

void RecoGrammar::DictationSetState(std::int32_t State) {
    CheckState(State);
    if (dictation_ == DictationState::none)
        throw RuntimeError(kAutomationError, "Dictation is not loaded");
    SetDictation(State == SGDSActive ? DictationState::active : DictationState::loaded);
}

void RecoGrammar::DictationUnload() {
    if (dictation_ == DictationState::none)
        throw RuntimeError(kAutomationError, "Dictation is not loaded");
    SetDictation(DictationState::none);
}

// A state that can't be had is not taken.
void RecoGrammar::SetDictation(DictationState state) {
    if (state == DictationState::loaded) recogniser_->PrepareDictation();
    dictation_ = state;
    Change();
}

void RecoGrammar::Change() {
    changed_ = Vocabulary::Clock::now();
    recogniser_->RulesChanged();
}

void RecoGrammar::AddActiveRules(std::vector<const GrammarRule*>& rules) const {
    for (std::size_t i = 0; i < active_.size(); ++i)
        if (active_[i]) rules.push_back(&grammar_.rules[i]);
}

}  // namespace corvane::engine
