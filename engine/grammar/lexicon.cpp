// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/lexicon.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>
#include <string_view>
#include <utility>

#include "engine/grammar/letter_to_sound.h"
#include "engine/grammar/spoken_forms.h"
#include "engine/grammar/transliteration.h"

namespace corvane::engine {
namespace {

// As the dictionary spells: it holds nothing but ASCII.
std::string Folded(std::string_view spelling) {
    std::string word = Transliterated(spelling);
    std::ranges::transform(word, word.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return word;
}

std::set<std::string> WordsOf(const Grammar& grammar) {
    std::set<std::string> words;
    for (const GrammarRule& rule : grammar.rules)
        for (const GrammarElement& element : rule.elements)
            for (const Phrase& phrase : element.choices)
                if (phrase.size() <= kLongestPhrase) words.insert(phrase.begin(), phrase.end());
    return words;
}

/// From "A" to "Z". The dictionary has the article for "a".
constexpr std::array<const char*, 26> kLetterNames{"EY",
                                                   "B IY",
                                                   "S IY",
                                                   "D IY",
                                                   "IY",
                                                   "EH F",
                                                   "JH IY",
                                                   "EY CH",
                                                   "AY",
                                                   "JH EY",
                                                   "K EY",
                                                   "EH L",
                                                   "EH M",
                                                   "EH N",
                                                   "OW",
                                                   "P IY",
                                                   "K Y UW",
                                                   "AA R",
                                                   "EH S",
                                                   "T IY",
                                                   "Y UW",
                                                   "V IY",
                                                   "D AH B AH L Y UW",
                                                   "EH K S",
                                                   "W AY",
                                                   "Z IY"};

bool IsCapital(const std::string& word) {
    return word.size() == 1 && word[0] >= 'A' && word[0] <= 'Z';
}

/// An acronym that is also a word, as "IT", is said as either. A longer one is a word in capitals.
bool IsAcronym(const std::string& word) {
    return word.size() > 1 && word.size() <= 3 &&
           std::ranges::all_of(word, [](char c) { return c >= 'A' && c <= 'Z'; });
}

void AddNew(std::vector<std::string>& ways, const std::string& way) {
    if (!way.empty() && ways.size() < Lexicon::kMostWays &&
        std::ranges::find(ways, way) == ways.end())
        ways.push_back(way);
}

}  // namespace

Lexicon::Lexicon(Dictionary dictionary) : dictionary_(std::move(dictionary)) {}

void Lexicon::Learn(const Grammar& grammar) {
    Learn(WordsOf(grammar));
}

void Lexicon::Learn(const Phrase& words) {
    Learn(std::set<std::string>(words.begin(), words.end()));
}

void Lexicon::Learn(std::set<std::string> unknown) {
    std::erase_if(unknown, [this](const std::string& word) { return known_.contains(word); });
    if (unknown.empty()) return;

    std::set<std::string> wanted;
    std::map<std::string, std::vector<SpokenForm>> forms;
    for (const std::string& word : unknown) {
        if (word.size() > kLongestWord) continue;
        wanted.insert(Folded(word));
        for (const SpokenForm& form : forms[word] = SpokenForms(word))
            wanted.insert(form.begin(), form.end());
    }
    const Entries entries = dictionary_.Find(wanted);
    for (const std::string& word : unknown) known_[word] = WaysToSay(word, forms[word], entries);
}

std::vector<std::string> Lexicon::WaysToSay(const std::string& word,
                                            const std::vector<SpokenForm>& forms,
                                            const Entries& entries) {
    std::vector<std::string> ways;
    if (const auto entry = entries.find(Folded(word)); entry != entries.end()) {
        ways = entry->second;
        if (!IsAcronym(word)) return ways;
    }
    for (const SpokenForm& form : forms) AddNew(ways, PhonesOf(form, entries));
    return ways;
}

void Lexicon::SetUserWords(const std::map<std::string, std::vector<std::string>>& words) {
    user_words_.clear();
    for (const auto& [word, ways] : words)
        for (const std::string& phones : ways) AddNew(user_words_[Folded(word)], phones);
}

/// Nothing when one of the words has no sound.
std::string Lexicon::PhonesOf(const SpokenForm& form, const Entries& entries) {
    std::string phones;
    for (const std::string& word : form) {
        const auto entry = entries.find(word);
        const std::string sound = IsCapital(word)
                                      ? kLetterNames.at(static_cast<std::size_t>(word[0] - 'A'))
                                  : entry != entries.end() ? entry->second.front()
                                                           : LetterToSound(word);
        if (sound.empty()) return {};
        phones += (phones.empty() ? "" : " ") + sound;
    }
    return phones;
}

const std::vector<std::string>& Lexicon::Pronunciations(const std::string& word) const {
    if (!user_words_.empty())
        if (const auto own = user_words_.find(Folded(word)); own != user_words_.end())
            return own->second;
    return known_.at(word);
}

}  // namespace corvane::engine
