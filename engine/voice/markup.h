// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::engine {

/// How something is said.
struct Manner {
    int rate = 0;      ///< -10 a third as fast, 10 three times as fast
    int pitch = 0;     ///< -10 to 10
    int volume = 100;  ///< 0 to 100
    bool emphasised = false;
    bool spelled = false;  ///< letter by letter

    bool operator==(const Manner&) const = default;
};

/// A stretch of what is to be heard, all in one manner.
struct Span {
    enum class Kind : std::uint8_t {
        text,      ///< its characters stand side by side in the original, or it is one character
        phonemes,  ///< in the synthesiser's notation, in place of what stands in the original
        silence,   ///< has no text
        bookmark,  ///< a place; `text` is its name
    };
    Kind kind = Kind::text;
    std::string text;          ///< UTF-8, as far as the original is; not empty except for a silence
    std::size_t position = 0;  ///< in the original, in characters from 0
    std::size_t length = 0;    ///< in the original, in characters; 0 for what only a tag asks for
    Manner manner;
    std::chrono::milliseconds silence{0};

    bool operator==(const Span&) const = default;
};

/// The spans of a text with the speech API's markup, in their order.
///
/// Acting on their content: <emph>, <spell>, <rate>, <pitch>, <volume>; without content the last
/// three act on all that follows. <rate absspeed="-10 to 10"> and <pitch absmiddle="-10 to 10">
/// set, speed and middle add to what holds outside, <volume level="0 to 100"> sets. Standing alone:
/// <silence msec="0 to 65535"/>, <bookmark mark="any name"/>. <pron sym="h eh 1 l ow"> says those
/// phones in place of its content or, without any, where it stands. <voice>, <lang>, <partofsp>,
/// <context> and <sapi> are taken for markup and change nothing, as does a value that can't be
/// read.
///
/// Names are read in either case. An element that is left open lasts to the end of the text or of
/// the element around it; an end tag without its beginning does nothing. XML's five named entities
/// and its character references stand for their characters. Whatever else can't be markup is text:
/// "a < b", "<b>", "AT&T". Takes time in proportion to the text, whatever it is.
[[nodiscard]] std::vector<Span> ParseMarkup(std::string_view text);

/// The text as it stands, in one span; none for no text.
[[nodiscard]] std::vector<Span> PlainText(std::string_view text);

}  // namespace corvane::engine
