// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// A command grammar as it was written: rules of phrases, nothing compiled.
namespace corvane::engine {

/// Words of a phrase in the grammar's own spelling; never empty.
using Phrase = std::vector<std::string>;

/// In words: what is longer can't be said before an utterance is cut after 12 s, so that a rule
/// with such a phrase is never heard.
inline constexpr std::size_t kLongestPhrase = 120;

/// In bytes; a longer word has no sound.
inline constexpr std::size_t kLongestWord = 100;

/// One place in a rule: exactly one of its phrases is spoken, or none if it is optional.
struct GrammarElement {
    bool optional = false;
    std::vector<Phrase> choices;  ///< one, or the members of a list
};

struct GrammarRule {
    std::string name;
    std::int32_t id = 0;         ///< 0: has no Id
    bool marked_active = false;  ///< what Id 0 stands for
    std::vector<GrammarElement> elements;
};

/// Rules in the order of the file; names are unique, so are Ids other than 0.
struct Grammar {
    std::vector<GrammarRule> rules;
};

}  // namespace corvane::engine
