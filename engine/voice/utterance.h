// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "engine/voice/piece.h"
#include "engine/voice/words.h"

namespace corvane::engine {

struct LevelMark {
    std::int32_t level;  ///< 0 to 100
};

struct BookmarkMark {
    std::string name;
};

/// A place in a sound and what is there.
struct Mark {
    std::int64_t sample = 0;
    std::variant<Word, LevelMark, BookmarkMark> what;
};

/// Some sound of a text and its marks in the order of their places, all of them inside the sound or
/// right at its end.
struct Spoken {
    std::vector<std::int16_t> sound;
    std::vector<Mark> marks;
};

/// A text on its way to being sound, piece by piece.
class Utterance {
public:
    /// markup: whether the text may hold any.
    Utterance(std::string_view text, bool markup);

    [[nodiscard]] bool Done() const { return pieces_.empty(); }
    /// The next piece, of some seconds; only while it is not done. Takes some milliseconds.
    [[nodiscard]] Spoken Next();

private:
    [[nodiscard]] Spoken Say(const Piece& piece);

    std::vector<Word> words_;
    std::size_t next_word_ = 0;
    std::deque<Piece> pieces_;
};

}  // namespace corvane::engine
