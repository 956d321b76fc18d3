// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/readable_pieces.h"

#include <algorithm>
#include <sstream>
#include <string_view>

namespace corvane::engine {
namespace {

/// How many of these words the first piece takes, at least one.
std::size_t WordsInPiece(const std::vector<std::string>& words, std::size_t from) {
    const std::size_t most = std::min(words.size() - from, kMostWordsToRead);
    if (from + most == words.size()) return most;
    for (const std::string_view signs : {".?!", ",;:"})
        for (std::size_t count = most; count > 0; --count)
            if (signs.find(words[from + count - 1].back()) != std::string_view::npos) return count;
    return most;
}

}  // namespace

std::vector<std::string> ReadablePieces(const std::string& text) {
    std::vector<std::string> words;
    std::istringstream rest(text);
    for (std::string word; rest >> word;) words.push_back(word);
    if (words.size() <= kMostWordsToRead) return {text};
    std::vector<std::string> pieces;
    for (std::size_t from = 0; from < words.size();) {
        std::string piece;
        for (std::size_t left = WordsInPiece(words, from); left > 0; --left)
            piece += (piece.empty() ? "" : " ") + words[from++];
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

}  // namespace corvane::engine
