// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::engine {

/// One tag of the speech API's markup.
struct Tag {
    std::string name;  ///< in small letters
    bool begins = true;
    bool ends = false;  ///< both for an element without content
    std::map<std::string, std::string_view> attributes;
    std::size_t length = 0;  ///< in bytes

    /// An attribute's value; nothing without the attribute.
    [[nodiscard]] std::optional<std::string_view> Attribute(const std::string& attribute) const;
    /// A whole number, cut to the range; nothing without the attribute or for anything else.
    [[nodiscard]] std::optional<int> Number(const std::string& attribute, int least,
                                            int most) const;
};

/// The tag at the beginning of a text; nothing when it is none, also for the name of no element and
/// for a silence without its duration.
[[nodiscard]] std::optional<Tag> ReadTag(std::string_view text);

struct Entity {
    std::string character;
    std::size_t length = 0;  ///< in bytes
};

/// The character reference or one of XML's five named entities at the beginning of a text.
[[nodiscard]] std::optional<Entity> ReadEntity(std::string_view text);

/// The longest silence that can be asked for, in milliseconds.
inline constexpr int kLongestSilence = 65535;

}  // namespace corvane::engine
