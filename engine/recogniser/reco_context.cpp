// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/reco_context.h"

#include <algorithm>
#include <utility>

#include "platform/error.h"

namespace corvane::engine {
namespace {

constexpr std::int32_t kOnlyStream = 1;

/// How long a context without rules is believed to be getting some. To load a grammar of a thousand
/// keywords takes a fifth of it.
constexpr std::chrono::milliseconds kPatience{500};

/// The recogniser as the contexts' users see it.
class SharedRecognizer final : public ISpeechRecognizer {
public:
    explicit SharedRecognizer(std::shared_ptr<Recogniser> recogniser)
        : recogniser_(std::move(recogniser)) {}

    void DisplayUI(std::uint32_t hWndParent, const std::string& Title, const std::string& TypeOfUI,
                   const std::string& ExtraData) override {
        // A copy: messages run while a dialog is open, and one may release this.
        const std::shared_ptr<Recogniser> recogniser = recogniser_;
        recogniser->Show(hWndParent, Title, TypeOfUI, ExtraData);
    }

private:
    std::shared_ptr<Recogniser> recogniser_;
};

}  // namespace

RecoContext::RecoContext(std::shared_ptr<Recogniser> recogniser)
    : recogniser_(std::move(recogniser)) {}

std::shared_ptr<RecoContext> RecoContext::Create(std::shared_ptr<Recogniser> recogniser) {
    Recogniser& shared = *recogniser;
    std::shared_ptr<RecoContext> context(new RecoContext(std::move(recogniser)));
    shared.Join(context);
    return context;
}

RecoContext::~RecoContext() {
    // The recogniser can't reach it any more by now, so that its rules and interests are gone.
    recogniser_->RulesChanged();
    recogniser_->InterestsChanged();
}

std::shared_ptr<ISpeechRecoGrammar> RecoContext::CreateGrammar(std::int32_t /*GrammarId*/) {
    auto grammar = std::make_shared<RecoGrammar>(recogniser_);
    grammars_.push_back(grammar);
    return grammar;
}

std::shared_ptr<ISpeechRecognizer> RecoContext::Recognizer() const {
    return std::make_shared<SharedRecognizer>(recogniser_);
}

void RecoContext::SetEventInterests(std::int32_t Mask) {
    const auto rules_due = RulesDue();
    interests_ = Mask;
    if (RulesDue() != rules_due) recogniser_->RulesChanged();
    recogniser_->InterestsChanged();
}

void RecoContext::Advise(SpeechRecoContextEvents Events) {
    events_ = std::move(Events);
}

void RecoContext::SetAdaptationData(const std::string& AdaptationString) {
    recogniser_->Adapt(AdaptationString, weak_from_this());
}

void RecoContext::AddActiveRules(std::vector<const GrammarRule*>& rules) const {
    for (const std::weak_ptr<RecoGrammar>& grammar : grammars_)
        if (const std::shared_ptr<RecoGrammar> held = grammar.lock()) held->AddActiveRules(rules);
}

DictationState RecoContext::Dictates() const {
    DictationState most = DictationState::none;
    for (const std::weak_ptr<RecoGrammar>& grammar : grammars_)
        if (const std::shared_ptr<RecoGrammar> held = grammar.lock())
            most = std::max(most, held->Dictates());
    return most;
}

Vocabulary::Clock::time_point RecoContext::RulesDue() const {
    // One that asks for other events only is not going to have any.
    if (interests_ != 0 && (interests_ & SRERecognition) == 0) return {};
    std::vector<const GrammarRule*> rules;
    AddActiveRules(rules);
    if (!rules.empty() || Dictates() == DictationState::active) return {};
    Vocabulary::Clock::time_point changed = created_;
    for (const std::weak_ptr<RecoGrammar>& grammar : grammars_)
        if (const std::shared_ptr<RecoGrammar> held = grammar.lock())
            changed = std::max(changed, held->Changed());
    return changed + kPatience;
}

// The handlers are copied: one may connect others while it runs.

void RecoContext::Recognised(std::int64_t position, std::shared_ptr<ISpeechRecoResult> result) {
    const auto handler = events_.Recognition;
    if ((interests_ & SRERecognition) != 0 && handler)
        handler(kOnlyStream, position, SRTStandard, std::move(result));
}

void RecoContext::Supposed(std::int64_t position, std::shared_ptr<ISpeechRecoResult> result) {
    const auto handler = events_.Hypothesis;
    if ((interests_ & SREHypothesis) != 0 && handler)
        handler(kOnlyStream, position, std::move(result));
}

void RecoContext::HeardLevel(std::int64_t position, std::int32_t level) {
    const auto handler = events_.AudioLevel;
    if ((interests_ & SREAudioLevel) != 0 && handler) handler(kOnlyStream, position, level);
}

void RecoContext::HeardInterference(std::int64_t position, std::int32_t interference) {
    const auto handler = events_.Interference;
    if ((interests_ & SREInterference) != 0 && handler)
        handler(kOnlyStream, position, interference);
}

// It has no place in the sound.
void RecoContext::Adapted() {
    const auto handler = events_.Adaptation;
    if ((interests_ & SREAdaptation) != 0 && handler) handler(kOnlyStream, std::monostate());
}

}  // namespace corvane::engine
