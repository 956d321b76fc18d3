// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/notation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>

#include "engine/voice/utf8.h"

namespace corvane::engine {
namespace {

constexpr std::array kSignNames =
    std::to_array<std::pair<char, std::string_view>>({{'!', "exclamation mark"},
                                                      {'"', "quote"},
                                                      {'#', "hash"},
                                                      {'$', "dollar"},
                                                      {'%', "percent"},
                                                      {'&', "ampersand"},
                                                      {'\'', "apostrophe"},
                                                      {'(', "left paren"},
                                                      {')', "right paren"},
                                                      {'*', "star"},
                                                      {'+', "plus"},
                                                      {',', "comma"},
                                                      {'-', "dash"},
                                                      {'.', "dot"},
                                                      {'/', "slash"},
                                                      {':', "colon"},
                                                      {';', "semicolon"},
                                                      {'<', "less than"},
                                                      {'=', "equals"},
                                                      {'>', "greater than"},
                                                      {'?', "question mark"},
                                                      {'@', "at"},
                                                      {'[', "left bracket"},
                                                      {'\\', "backslash"},
                                                      {']', "right bracket"},
                                                      {'^', "caret"},
                                                      {'_', "underscore"},
                                                      {'`', "back quote"},
                                                      {'{', "left brace"},
                                                      {'|', "bar"},
                                                      {'}', "right brace"},
                                                      {'~', "tilde"}});

std::string_view SignName(std::uint32_t character) {
    const auto sign = std::ranges::find(kSignNames, character, [](const auto& row) {
        return static_cast<std::uint32_t>(row.first);
    });
    return sign == kSignNames.end() ? std::string_view() : sign->second;
}

/// The synthesiser's settings: words a minute, pitch of 0 to 99, amplitude in percent.
struct Settings {
    int speed;
    int pitch;
    int amplitude;
};

Settings SettingsFor(const Manner& manner) {
    constexpr double kNormalSpeed = 175;
    constexpr double kNormalPitch = 50;
    constexpr double kPitchStep = 2.8;
    const double speed =
        kNormalSpeed * std::pow(3.0, manner.rate / 10.0) * (manner.emphasised ? 0.85 : 1.0);
    const double pitch = kNormalPitch + kPitchStep * (manner.pitch + (manner.emphasised ? 4 : 0));
    const double amplitude = manner.volume * (manner.emphasised ? 1.2 : 1.0);
    return {.speed = std::clamp(static_cast<int>(std::lround(speed)), 80, 450),
            .pitch = std::clamp(static_cast<int>(std::lround(pitch)), 0, 99),
            .amplitude = static_cast<int>(std::lround(amplitude))};
}

class Notator {
public:
    explicit Notator(std::span<const Word> words) : words_(words) {}

    Notation Notate(const Piece& piece) {
        for (const Span& span : piece.spans) {
            if (span.kind == Span::Kind::bookmark) continue;
            Set(span.manner);
            if (span.kind == Span::Kind::phonemes)
                Pronounce(span);
            else if (span.manner.spelled)
                Spell(span);
            else
                Read(span);
        }
        // Settings would hold for the next piece too.
        Set({});
        return std::move(notation_);
    }

private:
    void Set(const Manner& manner) {
        const Settings wanted = SettingsFor(manner);
        Set(settings_.speed, wanted.speed, 'S');
        Set(settings_.pitch, wanted.pitch, 'P');
        Set(settings_.amplitude, wanted.amplitude, 'A');
    }

    void Set(int& setting, int value, char command) {
        if (setting == value) return;
        setting = value;
        Append("\x01" + std::to_string(value) + command, Notation::kNowhere);
    }

    void Pronounce(const Span& span) {
        // The blank, or a bracket in front would be read as one of these.
        Append(" [[" + span.text + "]] ", span.position);
    }

    /// Calls act(character, its bytes, its position) for each character of a span.
    template <typename Act>
    static void ForEachCharacter(const Span& span, Act act) {
        std::size_t position = span.position;
        for (std::string_view rest = span.text; !rest.empty(); ++position) {
            const std::size_t bytes = CharacterBytes(rest);
            act(DecodeUtf8(rest), rest.substr(0, bytes), position);
            rest.remove_prefix(bytes);
        }
    }

    void Spell(const Span& span) {
        ForEachCharacter(
            span, [this](std::uint32_t character, std::string_view bytes, std::size_t position) {
                Append(" ", position);
                if (character == 'a' || character == 'A')
                    Append("[['eI]]", position);  // between other letters it would be the article
                else if (const std::string_view name = SignName(character); !name.empty())
                    Append(name, position);
                else if (!PartsWords(character))
                    Append(bytes, position);
            });
        Append(" ", span.position + span.length);
    }

    void Read(const Span& span) {
        std::size_t line_end = Notation::kNowhere;  // with nothing but blanks behind it so far
        ForEachCharacter(
            span, [&](std::uint32_t character, std::string_view bytes, std::size_t position) {
                const bool is_word = IsWord(position);
                if (character == '\n' && line_end != Notation::kNowhere)
                    Append("\n\n", position);  // an empty line ends a sentence
                else if ((character == '<' || character == '>') && is_word)
                    Append(" " + std::string(SignName(character)) + " ", position);
                else if (IsControl(character))
                    Append(" ", position);
                else if (character == '[' && notation_.text.ends_with('['))
                    Append(" ", position);  // two of them open phonemes
                else
                    Append(bytes, position);
                if (character == '\n')
                    line_end = position;
                else if (!PartsWords(character))
                    line_end = Notation::kNowhere;
            });
    }

    /// Bytes that are no character, and control characters.
    static bool IsControl(std::uint32_t character) {
        return character < ' ' || (character >= 0x7F && character < 0xA0);
    }

    /// Whether a word begins at a position. Asked in rising order.
    bool IsWord(std::size_t position) {
        while (!words_.empty() && words_.front().position < position) words_ = words_.subspan(1);
        return !words_.empty() && words_.front().position == position;
    }

    void Append(std::string_view text, std::size_t origin) {
        notation_.text += text;
        notation_.origins.resize(notation_.origins.size() + CharacterCount(text), origin);
    }

    std::span<const Word> words_;
    Notation notation_;
    Settings settings_ = SettingsFor({});
};

}  // namespace

Notation Notate(const Piece& piece, std::span<const Word> words) {
    return Notator(words).Notate(piece);
}

}  // namespace corvane::engine
