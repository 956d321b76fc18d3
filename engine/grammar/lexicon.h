// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "engine/grammar/dictionary.h"
#include "engine/grammar/grammar.h"
#include "engine/grammar/spoken_forms.h"

namespace corvane::engine {

/// How words are said: by the dictionary in whatever case they are spelled, otherwise in each way
/// in which they may be read (SpokenForms), word by word by the dictionary or by letter to sound. A
/// word once asked for is remembered.
class Lexicon {
public:
    /// For a word that the dictionary lacks.
    static constexpr std::size_t kMostWays = 6;

    explicit Lexicon(Dictionary dictionary);

    /// Makes the words of the grammar known, but for those of phrases longer than kLongestPhrase.
    void Learn(const Grammar& grammar);

    /// Makes these words known.
    void Learn(const Phrase& words);

    /// From now on these words, in whatever case, are said so and no otherwise, whatever was learnt
    /// of them; in place of earlier ones.
    void SetUserWords(const std::map<std::string, std::vector<std::string>>& words);

    /// Ways to say a word that was learnt, each a line of phones; empty when it has no sound.
    [[nodiscard]] const std::vector<std::string>& Pronunciations(const std::string& word) const;

private:
    using Entries = std::map<std::string, std::vector<std::string>>;

    void Learn(std::set<std::string> words);
    static std::vector<std::string> WaysToSay(const std::string& word,
                                              const std::vector<SpokenForm>& forms,
                                              const Entries& entries);
    static std::string PhonesOf(const SpokenForm& form, const Entries& entries);

    Dictionary dictionary_;
    Entries known_;
    Entries user_words_;
};

}  // namespace corvane::engine
