// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/voice/markup.h"

namespace corvane::engine {

/// Where a word stands in the original text, in characters, markup included.
struct Word {
    std::size_t position = 0;
    std::size_t length = 0;

    bool operator==(const Word&) const = default;
};

/// The words of a text, their positions strictly rising.
///
/// A word is what stands between blanks, dashes and tags, without the punctuation at its ends, as
/// far as that is never said: "don't", "$5,000", "C++", "www.example.com". "<" and ">" are words
/// where they compare: alone, in "<5" and in "a<b", but not in "<b>". A spelled character is a
/// word, and so is all that a pronunciation replaces.
[[nodiscard]] std::vector<Word> FindWords(const std::vector<Span>& spans);

/// Whether a character only parts words; 0 stands for bytes that are no character.
[[nodiscard]] bool PartsWords(std::uint32_t character);

}  // namespace corvane::engine
