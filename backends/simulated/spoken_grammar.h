// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::simulated {

/// One place of a rule: one of its phrases is spoken there, or none where it is optional.
struct SpokenPart {
    bool optional = false;
    std::vector<std::string> phrases;
};

struct SpokenRule {
    std::string name;
    bool top_level = false;
    std::int32_t id = 0;
    std::vector<SpokenPart> parts;

    /// Whether the phrase, words parted by one blank, is a way to say this rule.
    [[nodiscard]] bool Accepts(const std::string& phrase) const;
    /// Every way to say it.
    [[nodiscard]] std::vector<std::string> Sayings() const;
};

/// The rules of a command grammar; nothing at all when the text is malformed, has an unknown
/// element, a rule without name or phrase, or two rules of one name.
[[nodiscard]] std::optional<std::vector<SpokenRule>> ParseGrammar(const std::string& text);

}  // namespace corvane::simulated
