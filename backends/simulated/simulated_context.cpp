// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_context.h"

#include <algorithm>
#include <utility>

#include "platform/error.h"

namespace corvane::simulated {
namespace {

class GrammarRule final : public ISpeechGrammarRule {
public:
    GrammarRule(CallRecord& record, std::int32_t id) : record_(record), id_(id) {}
    std::int32_t Id() const override {
        record_.Quietly("Id");
        return id_;
    }

private:
    CallRecord& record_;
    std::int32_t id_;
};

class GrammarRules final : public ISpeechGrammarRules {
public:
    GrammarRules(CallRecord& record, std::shared_ptr<LoadedRules> loaded)
        : record_(record), loaded_(std::move(loaded)) {}

    std::int32_t Count() const override {
        record_.Quietly("Count");
        return static_cast<std::int32_t>(loaded_->rules.size());
    }

    std::shared_ptr<ISpeechGrammarRule> Item(std::int32_t Index) const override {
        record_.Quietly("Item");
        if (Index < 0 || Index >= Count())
            throw RuntimeError(kSubscriptOutOfRange, "Subscript out of range");
        return std::make_shared<GrammarRule>(record_,
                                             loaded_->rules[static_cast<std::size_t>(Index)].id);
    }

private:
    CallRecord& record_;
    std::shared_ptr<LoadedRules> loaded_;
};

class Grammar final : public ISpeechRecoGrammar {
public:
    Grammar(CallRecord& record, MemoryFiles& files, std::shared_ptr<LoadedRules> loaded)
        : record_(record), files_(files), loaded_(std::move(loaded)) {}

    void CmdLoadFromFile(const std::string& FileName, std::int32_t LoadOption) override {
        loaded_->rules.clear();
        loaded_->active.clear();
        record_.Call("CmdLoadFromFile", FileName + " " + std::to_string(LoadOption));
        const auto bytes = files_.Bytes(FileName);
        if (!bytes) throw RuntimeError(kFileNotFound, "File not found: " + FileName);
        auto rules = ParseGrammar(*bytes);
        if (!rules || rules->empty())
            throw RuntimeError(kAutomationError, "Not a command grammar: " + FileName);
        loaded_->rules = std::move(*rules);
    }

    std::shared_ptr<ISpeechGrammarRules> Rules() const override {
        record_.Quietly("Rules");
        return std::make_shared<GrammarRules>(record_, loaded_);
    }

    void CmdSetRuleIdState(std::int32_t RuleId, std::int32_t State) override {
        record_.Call("CmdSetRuleIdState", std::to_string(RuleId) + " " + std::to_string(State));
        bool found = RuleId == 0 && (State == SGDSInactive || !loaded_->rules.empty());
        for (const SpokenRule& rule : loaded_->rules) {
            if (RuleId == 0 ? !rule.top_level : rule.id != RuleId) continue;
            found = true;
            std::erase(loaded_->active, rule.name);
            if (State == SGDSActive) loaded_->active.push_back(rule.name);
        }
        if (!found) throw RuntimeError(kAutomationError, "No rule of that Id");
    }

    void DictationLoad(const std::string& TopicName, std::int32_t LoadOption) override {
        record_.Call("DictationLoad", "\"" + TopicName + "\" " + std::to_string(LoadOption));
        if (!TopicName.empty()) throw RuntimeError(kAutomationError, "No topic " + TopicName);
        loaded_->dictation_loaded = true;
    }

    void DictationSetState(std::int32_t State) override {
        record_.Call("DictationSetState", std::to_string(State));
        if (State != SGDSActive && State != SGDSInactive)
            throw RuntimeError(kInvalidProcedureCall, "No such state");
        RequireDictation();
        loaded_->dictating = State == SGDSActive;
    }

    void DictationUnload() override {
        record_.Call("DictationUnload");
        RequireDictation();
        loaded_->dictation_loaded = loaded_->dictating = false;
    }

private:
    void RequireDictation() const {
        if (!loaded_->dictation_loaded)
            throw RuntimeError(kAutomationError, "Dictation is not loaded");
    }

    CallRecord& record_;
    MemoryFiles& files_;
    std::shared_ptr<LoadedRules> loaded_;
};

class SharedRecognizer final : public ISpeechRecognizer {
public:
    SharedRecognizer(CallRecord& record, const std::function<void()>& on_display_ui)
        : record_(record), on_display_ui_(on_display_ui) {}

    void DisplayUI(std::uint32_t hWndParent, const std::string& Title, const std::string& TypeOfUI,
                   const std::string& ExtraData) override {
        record_.Call("DisplayUI", std::to_string(hWndParent) + " \"" + Title + "\" " + TypeOfUI +
                                      " \"" + ExtraData + "\"");
        on_display_ui_();
    }

private:
    CallRecord& record_;
    const std::function<void()>& on_display_ui_;
};

class PhraseRule final : public ISpeechPhraseRule {
public:
    PhraseRule(CallRecord& record, std::string name, std::int32_t confidence)
        : record_(record), name_(std::move(name)), confidence_(confidence) {}
    std::string Name() const override {
        record_.Quietly("Rule.Name");
        return name_;
    }
    std::int32_t Confidence() const override {
        record_.Quietly("Rule.Confidence");
        return confidence_;
    }

private:
    CallRecord& record_;
    std::string name_;
    std::int32_t confidence_;
};

class PhraseInfo final : public ISpeechPhraseInfo {
public:
    PhraseInfo(CallRecord& record, std::string text, std::shared_ptr<ISpeechPhraseRule> rule)
        : record_(record), text_(std::move(text)), rule_(std::move(rule)) {}
    std::string GetText(std::int32_t /*StartElement*/, std::int32_t /*Elements*/,
                        bool /*UseReplacements*/) const override {
        record_.Quietly("GetText");
        return text_;
    }
    std::shared_ptr<ISpeechPhraseRule> Rule() const override { return rule_; }

private:
    CallRecord& record_;
    std::string text_;
    std::shared_ptr<ISpeechPhraseRule> rule_;
};

class Result final : public ISpeechRecoResult {
public:
    Result(CallRecord& record, std::shared_ptr<ISpeechPhraseInfo> info)
        : record_(record), info_(std::move(info)) {}
    std::shared_ptr<ISpeechPhraseInfo> PhraseInfo() const override { return info_; }
    void DiscardResultInfo(std::int32_t ValueTypes) override {
        record_.Call("DiscardResultInfo", std::to_string(ValueTypes));
    }

private:
    CallRecord& record_;
    std::shared_ptr<ISpeechPhraseInfo> info_;
};

}  // namespace

SimulatedContext::SimulatedContext(CallRecord& record, MemoryFiles& files,
                                   const std::function<void()>& on_display_ui)
    : record_(record), files_(files), on_display_ui_(on_display_ui) {}

std::shared_ptr<ISpeechRecoGrammar> SimulatedContext::CreateGrammar(std::int32_t /*GrammarId*/) {
    record_.Quietly("CreateGrammar");
    auto loaded = std::make_shared<LoadedRules>();
    grammars_.push_back(loaded);
    return std::make_shared<Grammar>(record_, files_, std::move(loaded));
}

std::shared_ptr<ISpeechRecognizer> SimulatedContext::Recognizer() const {
    record_.Quietly("Recognizer");
    return std::make_shared<SharedRecognizer>(record_, on_display_ui_);
}

std::int32_t SimulatedContext::EventInterests() const {
    return interests_;
}

void SimulatedContext::SetEventInterests(std::int32_t Mask) {
    record_.Call("rc.EventInterests", std::to_string(Mask));
    interests_ = Mask;
}

void SimulatedContext::Advise(SpeechRecoContextEvents Events) {
    events_ = std::move(Events);
}

// It is taken in when the test says so, see SimulatedSpeech::Adapted.
void SimulatedContext::SetAdaptationData(const std::string& AdaptationString) {
    record_.Call("SetAdaptationData", "\"" + AdaptationString + "\"");
}

std::string SimulatedContext::RuleFor(const std::string& phrase) const {
    for (const auto& grammar : grammars_) {
        const auto loaded = grammar.lock();
        if (!loaded) continue;
        for (const SpokenRule& rule : loaded->rules)
            if (std::ranges::count(loaded->active, rule.name) > 0 && rule.Accepts(phrase))
                return rule.name;
    }
    return {};
}

bool SimulatedContext::HasActive(const std::string& rule) const {
    return std::ranges::any_of(grammars_, [&](const auto& grammar) {
        const auto loaded = grammar.lock();
        return loaded && std::ranges::count(loaded->active, rule) > 0;
    });
}

bool SimulatedContext::Dictates() const {
    return std::ranges::any_of(grammars_, [](const auto& grammar) {
        const auto loaded = grammar.lock();
        return loaded && loaded->dictating;
    });
}

std::shared_ptr<ISpeechRecoResult> MakeResult(CallRecord& record, std::string text,
                                              std::string rule, std::int32_t confidence) {
    auto phrase_rule = std::make_shared<PhraseRule>(record, std::move(rule), confidence);
    return std::make_shared<Result>(
        record, std::make_shared<PhraseInfo>(record, std::move(text), std::move(phrase_rule)));
}

}  // namespace corvane::simulated
