// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/reco_context.h"

#include <utility>

namespace corvane::engine {
namespace {

constexpr std::int32_t kOnlyStream = 1;

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

void RecoContext::SetEventInterests(std::int32_t Mask) {
    interests_ = Mask;
    recogniser_->InterestsChanged();
}

void RecoContext::Advise(SpeechRecoContextEvents Events) {
    events_ = std::move(Events);
}

void RecoContext::AddActiveRules(std::vector<const GrammarRule*>& rules) const {
    for (const std::weak_ptr<RecoGrammar>& grammar : grammars_)
        if (const std::shared_ptr<RecoGrammar> held = grammar.lock()) held->AddActiveRules(rules);
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

}  // namespace corvane::engine
