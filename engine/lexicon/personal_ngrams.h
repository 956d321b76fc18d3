// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/lexicon/user_words.h"

struct ps_decoder_s;
struct ngram_model_s;

namespace corvane::engine {

/// What one person says beside what everybody does.
struct PersonalText {
    WordsAndWays words;                  ///< of their own
    std::vector<std::string> sentences;  ///< of the kind that they say: words parted by blanks

    [[nodiscard]] bool Empty() const { return words.empty() && sentences.empty(); }
};

/// The words of a text, sentence by sentence, as a dictionary spells them: without capitals, and
/// without the signs around them.
[[nodiscard]] std::vector<std::string> SentencesOf(const std::string& text);

/// The n-grams of a text in the ARPA format: single words and pairs, smoothed after I. H. Witten
/// and T. C. Bell, "The zero-frequency problem", IEEE Transactions on Information Theory 37 (1991).
/// Words of one's own that the text has not are as likely as those that it has once, and both are
/// rare but behind the words behind which they stood.
[[nodiscard]] std::string NgramsOf(const PersonalText& text);

struct FreeNgrams {
    void operator()(ngram_model_s* model) const;
};
using Ngrams = std::unique_ptr<ngram_model_s, FreeNgrams>;

/// Teaches the decoder to say the words and gives the n-grams mixed with those of the text, for the
/// decoder to search: each pair as likely as so much of the one and so much of the other makes it
/// (linear interpolation). `general` itself where there is nothing to add, or it can't be.
[[nodiscard]] Ngrams Personalised(Ngrams general, const PersonalText& text, ps_decoder_s& decoder);

}  // namespace corvane::engine
