// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace corvane::engine {

/// A word as a speaker of English who sees it would type it on a keyboard without its letters:
/// "Übersicht" is "Ubersicht", "Москва" is "Moskva", a typographic apostrophe is "'". Latin, Greek
/// and Cyrillic letters are known; every other character beyond ASCII, and what is no UTF-8, has no
/// sound in English and is left out.
[[nodiscard]] std::string Transliterated(std::string_view word);

}  // namespace corvane::engine
