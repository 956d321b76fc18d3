// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace corvane::engine {

/// The synthesiser's phonemes for a pronunciation in the speech API's US English phones, such as
/// "h eh 1 l ow": phones parted by blanks, a stress of 1 or 2 behind its vowel, "-" between
/// syllables and "&" between words. What is no phone is left out. Empty when there is no phone in
/// it, or more than a hundred.
[[nodiscard]] std::string PhonemesOf(std::string_view pronunciation);

/// The pronunciation, in the speech API's phones, of what the recogniser's dictionary gives as
/// phones parted by blanks, such as "HH AH L OW". That knows no stress, which is guessed: the first
/// full vowel bears it.
[[nodiscard]] std::string PronunciationOf(std::string_view phones);

}  // namespace corvane::engine
