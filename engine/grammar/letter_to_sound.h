// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace corvane::engine {

/// How a word that stands in no dictionary is said, by eSpeak NG's rules for US English: phones of
/// the acoustic model parted by blanks, such as "K AO R V EY N" for "corvane". Empty when it has no
/// sound ("--"), one the model lacks, or is longer than kLongestWord.
[[nodiscard]] std::string LetterToSound(const std::string& word);

/// The translation alone: eSpeak NG phoneme names parted by "_" or blanks, stress marks allowed, to
/// phones. Empty when a name is unknown.
[[nodiscard]] std::string PhonesOfPhonemes(std::string_view phonemes);

}  // namespace corvane::engine
