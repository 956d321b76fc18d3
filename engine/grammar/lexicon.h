// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

#include "engine/grammar/dictionary.h"
#include "engine/grammar/grammar.h"

namespace corvane::engine {

/// How words are said: by the dictionary in whatever case they are spelled, otherwise by letter to
/// sound. A word once asked for is remembered.
class Lexicon {
public:
    explicit Lexicon(Dictionary dictionary);

    /// Makes the words of the grammar known, but for those of phrases longer than kLongestPhrase.
    void Learn(const Grammar& grammar);

    /// Ways to say a word that was learnt, each a line of phones; empty when it has no sound.
    [[nodiscard]] const std::vector<std::string>& Pronunciations(const std::string& word) const;

private:
    Dictionary dictionary_;
    std::map<std::string, std::vector<std::string>> known_;
};

}  // namespace corvane::engine
