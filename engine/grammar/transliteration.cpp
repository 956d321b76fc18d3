// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/transliteration.h"

#include <array>
#include <cstdint>
#include <span>

namespace corvane::engine {
namespace {

constexpr std::array kLatin = std::to_array<std::string_view>({
    // from U+00C0
    "A", "A", "A",  "A",  "A", "A", "Ae", "C",  "E",  "E", "E", "E", "I",  "I",  "I", "I", "D", "N",
    "O", "O", "O",  "O",  "O", "",  "O",  "U",  "U",  "U", "U", "Y", "Th", "ss", "a", "a", "a", "a",
    "a", "a", "ae", "c",  "e", "e", "e",  "e",  "i",  "i", "i", "i", "d",  "n",  "o", "o", "o", "o",
    "o", "",  "o",  "u",  "u", "u", "u",  "y",  "th", "y", "A", "a", "A",  "a",  "A", "a", "C", "c",
    "C", "c", "C",  "c",  "C", "c", "D",  "d",  "D",  "d", "E", "e", "E",  "e",  "E", "e", "E", "e",
    "E", "e", "G",  "g",  "G", "g", "G",  "g",  "G",  "g", "H", "h", "H",  "h",  "I", "i", "I", "i",
    "I", "i", "I",  "i",  "I", "i", "Ij", "ij", "J",  "j", "K", "k", "k",  "L",  "l", "L", "l", "L",
    "l", "L", "l",  "L",  "l", "N", "n",  "N",  "n",  "N", "n", "n", "Ng", "ng", "O", "o", "O", "o",
    "O", "o", "Oe", "oe", "R", "r", "R",  "r",  "R",  "r", "S", "s", "S",  "s",  "S", "s", "S", "s",
    "T", "t", "T",  "t",  "T", "t", "U",  "u",  "U",  "u", "U", "u", "U",  "u",  "U", "u", "U", "u",
    "W", "w", "Y",  "y",  "Y", "Z", "z",  "Z",  "z",  "Z", "z", "s",
});

constexpr std::array kGreek = std::to_array<std::string_view>({
    // from U+0386
    "A", "",  "E", "I",  "I",  "",   "O",  "",  "I", "O", "i", "A", "V", "G", "D",
    "E", "Z", "I", "Th", "I",  "K",  "L",  "M", "N", "X", "O", "P", "R", "",  "S",
    "T", "I", "F", "H",  "Ps", "O",  "I",  "I", "a", "e", "i", "i", "i", "a", "v",
    "g", "d", "e", "z",  "i",  "th", "i",  "k", "l", "m", "n", "x", "o", "p", "r",
    "s", "s", "t", "i",  "f",  "h",  "ps", "o", "i", "i", "o", "i", "o",
});

constexpr std::array kCyrillic = std::to_array<std::string_view>({
    // from U+0400
    "E", "Yo", "J", "G", "Ye", "Dz", "I",  "Yi", "Y",  "L",  "N", "Ch", "K", "I", "W",  "J",
    "A", "B",  "V", "G", "D",  "E",  "Zh", "Z",  "I",  "Y",  "K", "L",  "M", "N", "O",  "P",
    "R", "S",  "T", "U", "F",  "H",  "Ts", "Ch", "Sh", "Sh", "",  "I",  "",  "E", "Yu", "Ya",
    "a", "b",  "v", "g", "d",  "e",  "zh", "z",  "i",  "y",  "k", "l",  "m", "n", "o",  "p",
    "r", "s",  "t", "u", "f",  "h",  "ts", "ch", "sh", "sh", "",  "i",  "",  "e", "yu", "ya",
    "e", "yo", "j", "g", "ye", "dz", "i",  "yi", "y",  "l",  "n", "ch", "k", "i", "w",  "j",
});

struct Script {
    char32_t first;
    std::span<const std::string_view> letters;
};

constexpr std::array kScripts{Script{0xC0, kLatin}, Script{0x386, kGreek},
                              Script{0x400, kCyrillic}};

constexpr std::array<char32_t, 4> kApostrophes{U'\u2018', U'\u2019', U'\u02BC', U'\u00B4'};

/// Takes one character off the text; 0 for a byte that is no UTF-8.
char32_t NextCharacter(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (lead < 0x80) return lead;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    const std::size_t more = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    if (text.size() < more) return 0;
    char32_t character = lead & (0x3FU >> more);
    for (std::size_t i = 0; i < more; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80U) return 0;
        character = character << 6U | (byte & 0x3FU);
    }
    text.remove_prefix(more);
    return character;
}

std::string_view LetterOf(char32_t character) {
    for (const char32_t apostrophe : kApostrophes)
        if (character == apostrophe) return "'";
    for (const Script& script : kScripts)
        if (character >= script.first && character - script.first < script.letters.size())
            return script.letters[character - script.first];
    return {};
}

}  // namespace

std::string Transliterated(std::string_view word) {
    std::string letters;
    while (!word.empty()) {
        const char32_t character = NextCharacter(word);
        if (character > 0 && character < 0x80)
            letters += static_cast<char>(character);
        else
            letters += LetterOf(character);
    }
    return letters;
}

}  // namespace corvane::engine
