// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::engine {

/// A stretch of what is to be said, all in one manner; or a silence, which has no text.
struct Span {
    std::string text;          ///< UTF-8; its characters stand side by side in the original too
    std::size_t position = 0;  ///< of its first character in the original, counted from 0
    bool emphasised = false;
    bool spelled = false;  ///< said letter by letter
    std::chrono::milliseconds silence{0};

    bool operator==(const Span&) const = default;
};

/// The spans of a text with the speech API's markup, in their order, none of them empty.
///
/// <emph>, <spell> and <silence msec="0 to 65535"/> act. <rate>, <volume>, <pitch>, <pron>,
/// <bookmark>, <voice>, <lang>, <partofsp> and <context> are taken for markup and change nothing.
/// Names are read in either case. An element that is left open lasts to the end of the text, an end
/// tag without its beginning does nothing. XML's five named entities and its character references
/// stand for their characters. Whatever else can't be markup is text: "a < b", "<b>", "AT&T".
[[nodiscard]] std::vector<Span> ParseMarkup(std::string_view text);

/// The text as it stands, in one span; none for no text.
[[nodiscard]] std::vector<Span> PlainText(std::string_view text);

}  // namespace corvane::engine
