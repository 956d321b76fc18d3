// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/recogniser.h"

#include <utility>

namespace corvane::engine {

Recogniser::Recogniser(const std::string& acoustic_model, const std::string& dictionary,
                       AudioSource& source, Listener::Post post)
    : lexicon_(Dictionary(dictionary)),
      listener_(std::make_unique<Listener>(std::make_unique<Decoder>(acoustic_model), source,
                                           std::move(post))) {}

void Recogniser::Join(std::weak_ptr<RecogniserClient> client) {
    clients_.push_back(std::move(client));
}

std::vector<std::shared_ptr<RecogniserClient>> Recogniser::Clients() {
    std::vector<std::shared_ptr<RecogniserClient>> living;
    std::erase_if(clients_, [&living](const std::weak_ptr<RecogniserClient>& client) {
        std::shared_ptr<RecogniserClient> held = client.lock();
        if (!held) return true;
        living.push_back(std::move(held));
        return false;
    });
    return living;
}

void Recogniser::RulesChanged() {
    if (!listener_) return;
    auto vocabulary = std::make_shared<Vocabulary>();
    std::vector<const GrammarRule*> rules;
    for (const auto& client : Clients()) {
        client->AddActiveRules(rules);
        for (std::size_t i = vocabulary->rules.size(); i < rules.size(); ++i)
            vocabulary->rules.push_back({.name = rules[i]->name, .target = client});
    }
    vocabulary->graph = CompileGraph(rules, lexicon_);
    listener_->SetVocabulary(std::move(vocabulary));
}

void Recogniser::InterestsChanged() {
    if (!listener_) return;
    std::int32_t interests = 0;
    for (const auto& client : Clients()) interests |= client->EventInterests();
    listener_->WantHypotheses((interests & SREHypothesis) != 0);
    if (interests != 0) listener_->Start();
}

void Recogniser::WaitForEndOfStream() {
    if (listener_) listener_->WaitForEndOfStream();
}

void Recogniser::Stop() {
    listener_.reset();
}

}  // namespace corvane::engine
