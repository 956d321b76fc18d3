// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/recogniser.h"

#include <utility>
#include <vector>

namespace corvane::engine {

Recogniser::Recogniser(const std::string& acoustic_model, const std::string& dictionary,
                       AudioSource& source, Listener::Post post)
    : lexicon_(Dictionary(dictionary)),
      listener_(std::make_unique<Listener>(std::make_unique<Decoder>(acoustic_model), source,
                                           std::move(post), audience_)) {}

void Recogniser::RulesChanged() {
    if (!listener_) return;
    auto vocabulary = std::make_shared<Vocabulary>();
    std::vector<const GrammarRule*> rules;
    for (const auto& client : audience_->Clients()) {
        client->AddActiveRules(rules);
        for (std::size_t i = vocabulary->rules.size(); i < rules.size(); ++i)
            vocabulary->rules.push_back({.name = rules[i]->name, .target = client});
    }
    vocabulary->graph = CompileGraph(rules, lexicon_);
    listener_->SetVocabulary(std::move(vocabulary));
}

void Recogniser::InterestsChanged() {
    if (!listener_) return;
    const std::int32_t interests = audience_->Interests();
    listener_->SetInterests(interests);
    if (interests != 0) listener_->Start();
}

void Recogniser::WaitForEndOfStream() {
    if (listener_) listener_->WaitForEndOfStream();
}

void Recogniser::Stop() {
    listener_.reset();
}

}  // namespace corvane::engine
