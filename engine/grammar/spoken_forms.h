// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane::engine {

/// One way to read a written word aloud, as words that are said one after the other: in lower case
/// what is read as a word, and single capitals for the names of letters.
using SpokenForm = std::vector<std::string>;

inline constexpr std::size_t kMostForms = 6;

/// How a word that stands in no dictionary can be read, the likeliest way first, at most
/// kMostForms:
///
///     KDE           K D E, or "kde"               7zip     "seven zip"
///     LibreOffice   "libre office"                2048     "two thousand forty eight",
///     notepad++     "notepad plus plus"                    "twenty forty eight", its digits
///     node.js       "node" J S, with "dot" too    c#       C "sharp", C "hash"
///
/// Letters of other scripts are read as Transliterated gives them. Empty when nothing of the word
/// has a sound, as of "---".
[[nodiscard]] std::vector<SpokenForm> SpokenForms(std::string_view word);

/// The ways to read a number given by its digits: as a number, a year in pairs, digit by digit.
[[nodiscard]] std::vector<SpokenForm> SpokenNumber(std::string_view digits);

}  // namespace corvane::engine
