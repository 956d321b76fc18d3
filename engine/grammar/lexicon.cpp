// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/lexicon.h"

#include <algorithm>
#include <set>
#include <utility>

#include "engine/grammar/letter_to_sound.h"

namespace corvane::engine {
namespace {

// ASCII only: the dictionary holds nothing else.
std::string CaseFolded(std::string word) {
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

}  // namespace

Lexicon::Lexicon(Dictionary dictionary) : dictionary_(std::move(dictionary)) {}

void Lexicon::Learn(const Grammar& grammar) {
    std::set<std::string> unknown = WordsOf(grammar);
    std::erase_if(unknown, [this](const std::string& word) { return known_.contains(word); });
    if (unknown.empty()) return;

    std::set<std::string> folded;
    for (const std::string& word : unknown) folded.insert(CaseFolded(word));
    const auto found = dictionary_.Find(folded);
    for (const std::string& word : unknown) {
        std::vector<std::string>& ways = known_[word];
        if (const auto entry = found.find(CaseFolded(word)); entry != found.end())
            ways = entry->second;
        else if (std::string phones = LetterToSound(word); !phones.empty())
            ways.push_back(std::move(phones));
    }
}

const std::vector<std::string>& Lexicon::Pronunciations(const std::string& word) const {
    return known_.at(word);
}

}  // namespace corvane::engine
