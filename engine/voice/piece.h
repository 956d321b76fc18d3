// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <deque>
#include <vector>

#include "engine/voice/markup.h"

namespace corvane::engine {

/// What is synthesised in one go: some text with its bookmarks, or a silence, which has no spans.
struct Piece {
    std::vector<Span> spans;
    std::chrono::milliseconds silence{0};
    bool ends_sentence = false;  ///< more text follows after a sentence's pause
};

/// Longest text of a piece, in bytes. The synthesiser takes words without punctuation for one
/// clause, and a clause that is too long for it loses its end.
inline constexpr std::size_t kLongestPiece = 300;

/// Parts spans at the end of a sentence where there is one in reach, else between words; a word
/// that is too long by itself, between characters. The pieces hold all of the text.
[[nodiscard]] std::deque<Piece> CutIntoPieces(const std::vector<Span>& spans);

}  // namespace corvane::engine
