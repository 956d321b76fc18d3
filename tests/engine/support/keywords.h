// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane::engine::testing {

/// Made-up words of two or three random syllables, no two alike; the same for the same seed.
[[nodiscard]] std::vector<std::string> MadeUpKeywords(std::size_t count, std::uint32_t seed);

/// The rule that the system writes for a keyword of the user.
[[nodiscard]] std::string KeywordRule(const std::string& keyword);

/// The delivered command grammar with a rule for each of these keywords at its end.
[[nodiscard]] std::string CommandsWith(const std::vector<std::string>& keywords);

}  // namespace corvane::engine::testing
