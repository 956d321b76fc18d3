// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// A command grammar as it was written: rules of phrases, nothing compiled.
namespace corvane::engine {

/// Words of a phrase in the grammar's own spelling; never empty.
using Phrase = std::vector<std::string>;

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
