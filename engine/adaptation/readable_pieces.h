// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace corvane::engine {

/// What is read in one go: a longer text ends no reading in time, and nobody keeps it in view.
inline constexpr std::size_t kMostWordsToRead = 25;

/// The text in pieces that can be read aloud one after the other, cut where a sentence ends if that
/// can be, else behind a comma or the like, else behind a word. A text that needs no cutting is
/// left as it is.
[[nodiscard]] std::vector<std::string> ReadablePieces(const std::string& text);

}  // namespace corvane::engine
