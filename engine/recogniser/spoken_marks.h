// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "engine/grammar/grammar.h"

namespace corvane::engine {

/// A sign that is dictated by its name.
struct SpokenMark {
    /// What it keeps no blank to.
    enum class Joins { nothing, before, after, both };

    std::string_view name;  ///< as it is said, in the user's words
    /// Its word in the search: a sound of its own beside the words that it is called by, since "a
    /// long period" is none.
    std::string_view token;
    std::string_view sound;  ///< words of the dictionary that sound like it
    std::string_view text;   ///< as it is written; of a break, each of its signs is one
    Joins joins = Joins::nothing;
    bool ends_sentence = false;
    bool breaks_line = false;
    double share = 0.0;  ///< how often it is said where a sentence may end
};

[[nodiscard]] std::span<const SpokenMark> SpokenMarks();

/// The mark of a token; null when it is a word.
[[nodiscard]] const SpokenMark* MarkOfToken(std::string_view token);
/// The mark that is called so; null when none is.
[[nodiscard]] const SpokenMark* MarkNamed(std::string_view name);

/// What edits text when it is said alone, and is text within other words. In lower case.
inline constexpr std::string_view kScratchThat = "scratch that";
inline constexpr std::string_view kClearEverything = "clear everything";
[[nodiscard]] bool IsEditingPhrase(std::string_view words);

/// All of these, each as a rule without a name: what is listened for beside the text.
[[nodiscard]] Grammar DictationPhrases();

}  // namespace corvane::engine
