// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/recogniser.h"

#include <utility>

#include "runtime/failure.h"
#include "runtime/numbers.h"

namespace corvane {
namespace {

constexpr std::int32_t kInterests =
    SRERecognition + SREHypothesis + SREInterference + SREAudioLevel;
static_assert(kInterests == 66608);

}  // namespace

Recogniser::Recogniser(ISpeechApi& speech, Nullable<ISpeechVoice>& voice)
    : speech_(speech), voice_(voice) {}

void Recogniser::init_rec(const std::string& myxfile) {
    ResumeNext step;
    Nullable<ISpeechGrammarRule> rule;
    Long Id;
    step([&] { ReplaceContext(speech_.CreateSpSharedRecoContext()); });
    step([&] { Grammar_ = rc_->CreateGrammar(0); });
    step([&] { Grammar_->CmdLoadFromFile(myxfile, SLODynamic); });
    step([&] { GrammarRules_ = Grammar_->Rules(); });
    step([&] {
        const Long count = GrammarRules_->Count();
        for (Long i = 0; i < count; i += 1) step([&] { rule = GrammarRules_->Item(i.rep()); });
    });
    step([&] { Id = rule->Id(); });
    // One call for all: no rule here bears an Id, and Id 0 activates every rule marked active. A
    // grammar with Ids would have its last rule alone.
    step([&] { Grammar_->CmdSetRuleIdState(Id.rep(), SGDSActive); });
    step([&] { RestoreInterests(); });
    step([&] { voice_->SetEventInterests(SVEAudioLevel); });
    step([&] { HypothesisTrace = false; });
    step([&] { DictationActive = false; });
}

void Recogniser::StartDictation() {
    Grammar_->CmdSetRuleIdState(0, SGDSInactive);
    Grammar_->DictationLoad("", SLOStatic);
    Grammar_->DictationSetState(SGDSActive);
}

void Recogniser::DictationUnload() {
    Grammar_->DictationUnload();
}

void Recogniser::ReleaseRecognizer() {
    Grammar_ = {};
    Disconnect();
    rc_ = {};
}

void Recogniser::RestoreInterests() {
    rc_->SetEventInterests(kInterests);
}

// A context that is let go of may still have events in the queue; they must not reach the handlers.
void Recogniser::Disconnect() {
    if (!rc_.empty()) rc_->Advise({});
}

void Recogniser::ReplaceContext(std::shared_ptr<ISpeechRecoContext> context) {
    Disconnect();
    rc_ = std::move(context);
    rc_->Advise(Events);
}

}  // namespace corvane
