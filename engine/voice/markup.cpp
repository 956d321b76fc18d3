// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/markup.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>

#include "engine/voice/utf8.h"

namespace corvane::engine {
namespace {

constexpr int kLongestSilence = 65535;  // milliseconds

constexpr std::array kTagNames =
    std::to_array<std::string_view>({"emph", "silence", "spell", "rate", "volume", "pitch", "pron",
                                     "bookmark", "voice", "lang", "partofsp", "context"});

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
        const std::size_t end = rest_.find(rest_[0], 1);
        if (end == std::string_view::npos) return std::nullopt;
        const std::string_view content = rest_.substr(1, end - 1);
        // A tag does not reach across another one: there the quote was never closed.
        if (content.find('<') != std::string_view::npos) return std::nullopt;
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

struct Tag {
    std::string name;
    bool begins = true;
    bool ends = false;
    std::map<std::string, std::string_view> attributes;
    std::size_t length = 0;  // in bytes
};

std::optional<int> Milliseconds(const Tag& tag) {
    const auto attribute = tag.attributes.find("msec");
    if (attribute == tag.attributes.end()) return std::nullopt;
    const std::string_view digits = attribute->second;
    int value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc::invalid_argument || end != digits.data() + digits.size() ||
        digits.starts_with('-'))
        return std::nullopt;
    return error == std::errc::result_out_of_range ? kLongestSilence
                                                   : std::min(value, kLongestSilence);
}

/// The tag at the beginning of a text; nothing when it is none.
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
    if (tag.name == "silence" && tag.begins && !Milliseconds(tag)) return std::nullopt;
    tag.length = scanner.Taken();
    return tag;
}

struct Entity {
    std::string character;
    std::size_t length = 0;  // in bytes
};

/// The character reference or named entity at the beginning of a text.
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

class MarkupParser {
public:
    explicit MarkupParser(std::string_view text) : text_(text) {}

    std::vector<Span> Parse() {
        while (!text_.empty()) {
            if (const auto tag = ReadTag(text_)) {
                Apply(*tag);
                Skip(tag->length);
            } else if (const auto entity = ReadEntity(text_)) {
                // A span of its own: its one character is several in the original.
                Finish();
                Say(entity->character);
                Finish();
                Skip(entity->length);
            } else {
                Say(text_.substr(0, 1));
                Skip(1);
            }
        }
        Finish();
        return std::move(spans_);
    }

private:
    void Apply(const Tag& tag) {
        Finish();
        if (tag.name == "silence" && tag.begins)
            spans_.push_back({.text = {},
                              .position = position_,
                              .emphasised = false,
                              .spelled = false,
                              .silence = std::chrono::milliseconds(*Milliseconds(tag))});
        if (tag.name == "emph") Nest(emphasis_, tag);
        if (tag.name == "spell") Nest(spelling_, tag);
    }

    static void Nest(int& depth, const Tag& tag) {
        depth = std::max(0, depth + (tag.begins ? 1 : 0) - (tag.ends ? 1 : 0));
    }

    void Say(std::string_view bytes) {
        if (span_.text.empty()) span_.position = position_;
        span_.text += bytes;
    }

    void Finish() {
        if (!span_.text.empty()) {
            span_.emphasised = emphasis_ > 0;
            span_.spelled = spelling_ > 0;
            spans_.push_back(std::exchange(span_, {}));
        }
    }

    void Skip(std::size_t bytes) {
        position_ += CharacterCount(text_.substr(0, bytes));
        text_.remove_prefix(bytes);
    }

    std::string_view text_;
    std::size_t position_ = 0;
    Span span_;
    std::vector<Span> spans_;
    int emphasis_ = 0;
    int spelling_ = 0;
};

}  // namespace

std::vector<Span> ParseMarkup(std::string_view text) {
    return MarkupParser(text).Parse();
}

std::vector<Span> PlainText(std::string_view text) {
    std::vector<Span> spans;
    if (!text.empty()) spans.emplace_back().text = text;
    return spans;
}

}  // namespace corvane::engine
