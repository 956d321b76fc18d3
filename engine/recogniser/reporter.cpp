// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/reporter.h"

#include <utility>

#include "engine/audio/audio_source.h"

namespace corvane::engine {
namespace {

std::int64_t PositionOf(const RecognisedPhrase& phrase) {
    constexpr std::int64_t kBytesPerMillisecond = kSampleRate / 1000 * sizeof(std::int16_t);
    return phrase.begin.count() * kBytesPerMillisecond;
}

}  // namespace

Reporter::Reporter(Post post, Unmatched unmatched)
    : post_(std::move(post)), unmatched_(std::move(unmatched)) {}

void Reporter::Recognised(std::weak_ptr<ResultTarget> target, RecognisedPhrase phrase) const {
    const std::int64_t position = PositionOf(phrase);
    post_([target = std::move(target), position,
           result = std::make_shared<RecoResult>(std::move(phrase))] {
        if (const auto listening = target.lock()) listening->Recognised(position, result);
    });
}

void Reporter::Supposed(std::weak_ptr<ResultTarget> target, RecognisedPhrase phrase) const {
    const std::int64_t position = PositionOf(phrase);
    post_([target = std::move(target), position,
           result = std::make_shared<RecoResult>(std::move(phrase))] {
        if (const auto listening = target.lock()) listening->Supposed(position, result);
    });
}

void Reporter::NothingIn(RecognisedPhrase speech) const {
    if (unmatched_) post_([tell = unmatched_, speech = std::move(speech)] { tell(speech); });
}

}  // namespace corvane::engine
