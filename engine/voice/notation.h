// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "engine/voice/piece.h"
#include "engine/voice/words.h"

namespace corvane::engine {

/// A piece in the synthesiser's notation: manners by its inline settings, letters and
/// pronunciations by names and phonemes. Characters that it would take for settings of its own are
/// defused; it ends in the manner in which it began.
struct Notation {
    std::string text;  ///< UTF-8 without a fault
    /// For each character of the text the position in the original of what it stands for;
    /// kNowhere for a setting.
    std::vector<std::size_t> origins;

    static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);
};

/// words: at least those of the piece, in their order.
[[nodiscard]] Notation Notate(const Piece& piece, std::span<const Word> words);

}  // namespace corvane::engine
