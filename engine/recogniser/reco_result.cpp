// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/reco_result.h"

#include <utility>

#include "platform/error.h"

namespace corvane::engine {
namespace {

class PhraseRule final : public ISpeechPhraseRule {
public:
    explicit PhraseRule(std::shared_ptr<const RecognisedPhrase> phrase)
        : phrase_(std::move(phrase)) {}

    [[nodiscard]] std::string Name() const override { return phrase_->rule; }
    [[nodiscard]] std::int32_t Confidence() const override { return phrase_->confidence; }

private:
    std::shared_ptr<const RecognisedPhrase> phrase_;
};

class RecognisedInfo final : public ISpeechPhraseInfo {
public:
    explicit RecognisedInfo(std::shared_ptr<const RecognisedPhrase> phrase)
        : phrase_(std::move(phrase)) {}

    [[nodiscard]] std::string GetText(std::int32_t StartElement, std::int32_t Elements,
                                      bool /*UseReplacements*/) const override {
        const auto count = static_cast<std::int32_t>(phrase_->words.size());
        if (StartElement < 0 || StartElement >= count || Elements < -1 ||
            Elements > count - StartElement)
            throw RuntimeError(kInvalidProcedureCall, "The phrase has no such words");
        const std::int32_t end = Elements == -1 ? count : StartElement + Elements;
        std::string text;
        for (std::int32_t i = StartElement; i < end; ++i)
            text += (i == StartElement ? "" : " ") + phrase_->words[static_cast<std::size_t>(i)];
        return text;
    }

    [[nodiscard]] std::shared_ptr<ISpeechPhraseRule> Rule() const override {
        return std::make_shared<PhraseRule>(phrase_);
    }

private:
    std::shared_ptr<const RecognisedPhrase> phrase_;
};

}  // namespace

RecoResult::RecoResult(RecognisedPhrase phrase)
    : phrase_(std::make_shared<const RecognisedPhrase>(std::move(phrase))) {}

std::shared_ptr<ISpeechPhraseInfo> RecoResult::PhraseInfo() const {
    return std::make_shared<RecognisedInfo>(phrase_);
}

void RecoResult::DiscardResultInfo(std::int32_t /*ValueTypes*/) {}

}  // namespace corvane::engine
