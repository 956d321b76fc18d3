// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/recogniser.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "engine/recogniser/spoken_marks.h"

namespace corvane::engine {

Recogniser::Recogniser(const DictationModel& model, AudioSource& source, Reporter::Post post,
                       Reporter::Unmatched unmatched)
    : lexicon_(Dictionary(model.dictionary)),
      reporter_(post, std::move(unmatched)),
      dictation_(std::make_unique<Dictation>(model, reporter_)),
      listener_(std::make_unique<Listener>(std::make_unique<Decoder>(model.acoustic_model), source,
                                           *dictation_, reporter_,
                                           SoundFeedback(audience_, std::move(post)))) {}

void Recogniser::Join(std::weak_ptr<RecogniserClient> client) {
    audience_->Join(std::move(client));
    // It may be about to take another's place: its rules are awaited before that one goes.
    RulesChanged();
}

void Recogniser::RulesChanged() {
    if (!listener_) return;
    auto vocabulary = std::make_shared<Vocabulary>();
    std::vector<const GrammarRule*> rules;
    bool dictation_loaded = false;
    for (const auto& client : audience_->Clients()) {
        client->AddActiveRules(rules);
        for (std::size_t i = vocabulary->rules.size(); i < rules.size(); ++i)
            vocabulary->rules.push_back({.name = rules[i]->name, .target = client});
        const DictationState dictates = client->Dictates();
        dictation_loaded = dictation_loaded || dictates != DictationState::none;
        if (dictates == DictationState::active) {
            vocabulary->dictating = true;
            vocabulary->dictation_target = client;
        }
        vocabulary->holds_from = std::max(vocabulary->holds_from, client->RulesDue());
    }
    if (vocabulary->dictating) {
        for (const GrammarRule& rule : dictation_phrases_.rules) {
            rules.push_back(&rule);
            vocabulary->rules.push_back(
                {.name = rule.name, .target = vocabulary->dictation_target, .of_dictation = true});
        }
    }
    vocabulary->graph = CompileGraph(rules, lexicon_);
    dictation_->Want(dictation_loaded);
    listener_->SetVocabulary(std::move(vocabulary));
}

void Recogniser::PrepareDictation() {
    if (!dictation_) return;
    dictation_->CheckModel();
    if (!dictation_phrases_.rules.empty()) return;
    dictation_phrases_ = DictationPhrases();
    lexicon_.Learn(dictation_phrases_);
}

void Recogniser::InterestsChanged() {
    if (!listener_) return;
    const std::int32_t interests = audience_->Interests();
    listener_->SetInterests(interests);
    if (interests != 0) listener_->Start();
}

void Recogniser::WaitForEndOfStream() {
    if (!listener_) return;
    listener_->WaitForEndOfStream();
    dictation_->WaitUntilWritten();
}

void Recogniser::Stop() {
    listener_.reset();
    dictation_.reset();
}

}  // namespace corvane::engine
