// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/tag.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

#include "engine/voice/utf8.h"

namespace corvane::engine {
namespace {

constexpr std::array kTagNames =
    std::to_array<std::string_view>({"emph", "silence", "spell", "rate", "volume", "pitch", "pron",
                                     "bookmark", "voice", "lang", "partofsp", "context", "sapi"});

constexpr std::array kEntities = std::to_array<std::pair<std::string_view, char>>(
    {{"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}});

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Takes what it is asked for off the front of a text.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text), length_(text.size()) {}

    bool Take(char c) {
        if (!rest_.starts_with(c)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool Blanks() { return !TakeWhile(IsBlank).empty(); }

    std::string Name() {
        std::string name(TakeWhile(IsLetter));
        std::ranges::transform(name, name.begin(), [](char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        });
        return name;
    }

    /// The content of a string in single or double quotes.
    std::optional<std::string_view> Quoted() {
        if (rest_.empty() || (rest_[0] != '"' && rest_[0] != '\'')) return std::nullopt;
        // A tag does not reach across another one: there the quote was never closed.
        const std::array ends{rest_[0], '<'};
        const std::size_t end = rest_.find_first_of(std::string_view(ends.data(), ends.size()), 1);
        if (end == std::string_view::npos || rest_[end] == '<') return std::nullopt;
        const std::string_view content = rest_.substr(1, end - 1);
        rest_.remove_prefix(end + 1);
        return content;
    }

    [[nodiscard]] std::size_t Taken() const { return length_ - rest_.size(); }

private:
    template <typename Condition>
    std::string_view TakeWhile(Condition condition) {
        const auto end = std::ranges::find_if_not(rest_, condition);
        const std::string_view taken =
            rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
        rest_.remove_prefix(taken.size());
        return taken;
    }

    std::string_view rest_;
    std::size_t length_;
};

}  // namespace

std::optional<std::string_view> Tag::Attribute(const std::string& attribute) const {
    const auto found = attributes.find(attribute);
    if (found == attributes.end()) return std::nullopt;
    return found->second;
}

std::optional<int> Tag::Number(const std::string& attribute, int least, int most) const {
    std::string_view digits = Attribute(attribute).value_or("");
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+')) digits.remove_prefix(1);
    int value = 0;
    const char* const last = digits.data() + digits.size();
    const auto [end, error] = std::from_chars(digits.data(), last, value);
    if (end != last || error == std::errc::invalid_argument || digits.starts_with('-'))
        return std::nullopt;
    if (error == std::errc::result_out_of_range) return negative ? least : most;
    return std::clamp(negative ? -value : value, least, most);
}

std::optional<Tag> ReadTag(std::string_view text) {
    Scanner scanner(text);
    Tag tag;
    if (!scanner.Take('<')) return std::nullopt;
    if (scanner.Take('/')) {
        tag.begins = false;
        tag.ends = true;
    }
    tag.name = scanner.Name();
    if (std::ranges::find(kTagNames, tag.name) == kTagNames.end()) return std::nullopt;

    bool parted = scanner.Blanks();
    while (tag.begins && parted) {
        const std::string name = scanner.Name();
        if (name.empty()) break;
        scanner.Blanks();
        if (!scanner.Take('=')) return std::nullopt;
        scanner.Blanks();
        const auto value = scanner.Quoted();
        if (!value) return std::nullopt;
        tag.attributes[name] = *value;
        parted = scanner.Blanks();
    }
    if (tag.begins && scanner.Take('/')) tag.ends = true;
    if (!scanner.Take('>')) return std::nullopt;
    // Nothing is less than any number.
    if (tag.name == "silence" && tag.begins && tag.Number("msec", -1, kLongestSilence) < 0)
        return std::nullopt;
    tag.length = scanner.Taken();
    return tag;
}

std::optional<Entity> ReadEntity(std::string_view text) {
    constexpr std::size_t kLongest = 12;
    const std::size_t end = text.substr(0, kLongest).find(';');
    if (!text.starts_with('&') || end == std::string_view::npos) return std::nullopt;
    std::string_view name = text.substr(1, end - 1);
    for (const auto& [entity, character] : kEntities)
        if (name == entity) return Entity{std::string(1, character), end + 1};

    if (!name.starts_with('#')) return std::nullopt;
    name.remove_prefix(1);
    const bool hexadecimal = name.starts_with('x');
    if (hexadecimal) name.remove_prefix(1);
    std::uint32_t code = 0;
    const auto [stop, error] =
        std::from_chars(name.data(), name.data() + name.size(), code, hexadecimal ? 16 : 10);
    if (error != std::errc() || stop != name.data() + name.size() || !IsScalarValue(code))
        return std::nullopt;
    return Entity{EncodeUtf8(code), end + 1};
}

}  // namespace corvane::engine
