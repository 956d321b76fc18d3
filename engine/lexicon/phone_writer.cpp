// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/lexicon/phone_writer.h"

#include <sstream>
#include <utility>

#include "engine/lexicon/guided_phones.h"
#include "engine/recogniser/senone_scores.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

template <typename Part>
Part Needed(std::optional<Part> part, const std::string& acoustic_model) {
    if (!part)
        throw RuntimeError(kAutomationError,
                           "Words can't be written down by the sounds of " + acoustic_model);
    return *std::move(part);
}

GaussianModel ModelOf(const std::string& acoustic_model, const ModelDefinition& definition,
                      const SpeakerTransform* voice) {
    auto model = Needed(GaussianModel::Load(acoustic_model, definition), acoustic_model);
    return voice == nullptr ? model : model.Adapted(*voice);
}

/// Empty unless the model has them all.
PhoneString NumbersOf(const std::string& phones, const ModelDefinition& definition) {
    PhoneString numbers;
    std::istringstream names(phones);
    for (std::string name; names >> name;) {
        const auto phone = definition.Phone(name);
        if (!phone) return {};
        numbers.push_back(*phone);
    }
    return numbers;
}

}  // namespace

PhoneWriter::PhoneWriter(const std::string& acoustic_model,
                         const std::shared_ptr<const SpeakerTransform>& voice)
    : definition_(Needed(ModelDefinition::Load(acoustic_model), acoustic_model)),
      model_(ModelOf(acoustic_model, definition_, voice.get())),
      features_(acoustic_model) {}

std::string PhoneWriter::Write(std::span<const std::int16_t> sound,
                               const WaysToSay& guesses) const {
    const SenoneScores scores = model_.Score(features_.Extract(sound));
    HeardPhones best = HearPhones(scores, definition_, {});
    for (const std::string& guess : guesses) {
        const PhoneString numbers = NumbersOf(guess, definition_);
        if (numbers.empty()) continue;
        HeardPhones heard = HearPhones(scores, definition_, numbers);
        if (heard.score > best.score) best = std::move(heard);
    }
    // No word ends so: it is the breath behind it.
    const auto breath = definition_.Phone("HH");
    while (!best.phones.empty() && best.phones.back() == breath) best.phones.pop_back();
    std::string phones;
    for (const std::size_t phone : best.phones)
        phones += (phones.empty() ? "" : " ") + definition_.Name(phone);
    return ArePhones(phones) ? phones : std::string();
}

}  // namespace corvane::engine
