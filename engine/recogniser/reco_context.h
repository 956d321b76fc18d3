// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/recogniser/reco_grammar.h"
#include "engine/recogniser/recogniser.h"
#include "platform/speech_api.h"

namespace corvane::engine {

/// A listener on the shared recogniser. Made by Create, since the recogniser must know it without
/// holding it.
class RecoContext final : public ISpeechRecoContext,
                          public RecogniserClient,
                          public std::enable_shared_from_this<RecoContext> {
public:
    [[nodiscard]] static std::shared_ptr<RecoContext> Create(
        std::shared_ptr<Recogniser> recogniser);
    ~RecoContext() override;
    RecoContext(const RecoContext&) = delete;
    RecoContext& operator=(const RecoContext&) = delete;

    [[nodiscard]] std::shared_ptr<ISpeechRecoGrammar> CreateGrammar(
        std::int32_t GrammarId) override;
    [[nodiscard]] std::shared_ptr<ISpeechRecognizer> Recognizer() const override;
    [[nodiscard]] std::int32_t EventInterests() const override { return interests_; }
    void SetEventInterests(std::int32_t Mask) override;
    void Advise(SpeechRecoContextEvents Events) override;
    void SetAdaptationData(const std::string& AdaptationString) override;

    void AddActiveRules(std::vector<const GrammarRule*>& rules) const override;
    [[nodiscard]] DictationState Dictates() const override;
    [[nodiscard]] Vocabulary::Clock::time_point RulesDue() const override;
    void Recognised(std::int64_t position, std::shared_ptr<ISpeechRecoResult> result) override;
    void Supposed(std::int64_t position, std::shared_ptr<ISpeechRecoResult> result) override;
    void HeardLevel(std::int64_t position, std::int32_t level) override;
    void HeardInterference(std::int64_t position, std::int32_t interference) override;
    void Adapted() override;

private:
    explicit RecoContext(std::shared_ptr<Recogniser> recogniser);

    std::shared_ptr<Recogniser> recogniser_;
    std::vector<std::weak_ptr<RecoGrammar>> grammars_;
    Vocabulary::Clock::time_point created_ = Vocabulary::Clock::now();
    SpeechRecoContextEvents events_;
    std::int32_t interests_ = 0;
};

}  // namespace corvane::engine
