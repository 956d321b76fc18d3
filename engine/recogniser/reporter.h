// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "engine/recogniser/reco_result.h"
#include "engine/recogniser/vocabulary.h"

namespace corvane::engine {

/// Posts what was heard to the loop, where whoever is to be told may be gone by then. For any
/// thread.
class Reporter {
public:
    using Post = std::function<void(std::function<void()>)>;
    /// Speech in which nothing was heard: a phrase without words, or with those of a reading that
    /// is not worth telling. Runs on the loop's thread.
    using Unmatched = std::function<void(const RecognisedPhrase&)>;

    Reporter(Post post, Unmatched unmatched);

    void Recognised(std::weak_ptr<ResultTarget> target, RecognisedPhrase phrase) const;
    void Supposed(std::weak_ptr<ResultTarget> target, RecognisedPhrase phrase) const;
    void NothingIn(RecognisedPhrase speech) const;

private:
    Post post_;
    Unmatched unmatched_;
};

}  // namespace corvane::engine
