// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/words.h"

#include <optional>
#include <string_view>

#include "engine/voice/utf8.h"

namespace corvane::engine {
namespace {

bool Between(std::uint32_t character, std::uint32_t first, std::uint32_t last) {
    return character >= first && character <= last;
}

bool IsDash(std::uint32_t character) {
    return Between(character, 0x2012, 0x2015) || character == 0x2026;  // the ellipsis too
}

/// Punctuation that is never said.
bool IsUnsaid(std::uint32_t character) {
    constexpr std::string_view kUnsaid = "-^_|()[]{}`:.,;!?'\"<>";
    if (character < 0x80) return kUnsaid.find(static_cast<char>(character)) != std::string::npos;
    return character == 0xA1 || character == 0xAB || character == 0xB7 || character == 0xBB ||
           character == 0xBF || Between(character, 0x200B, 0x2027) ||
           Between(character, 0x2039, 0x203A) || character == 0x2060 ||
           Between(character, 0x3001, 0x3003) || Between(character, 0x3008, 0x3011) ||
           Between(character, 0xFE00, 0xFE0F) || character == 0xFEFF;
}

class WordFinder {
public:
    std::vector<Word> Find(const std::vector<Span>& spans) {
        for (const Span& span : spans) {
            // A tag stands between.
            if (span.kind != Span::Kind::text || span.position != behind_) Finish();
            if (span.kind == Span::Kind::phonemes && span.length > 0)
                words_.push_back({.position = span.position, .length = span.length});
            if (span.kind == Span::Kind::text) Read(span);
        }
        Finish();
        return std::move(words_);
    }

private:
    void Read(const Span& span) {
        const bool is_entity = span.length > 1 && CharacterBytes(span.text) == span.text.size();
        behind_ = span.position;
        for (std::string_view rest = span.text; !rest.empty();
             rest.remove_prefix(CharacterBytes(rest))) {
            const std::size_t position = behind_;
            behind_ += is_entity ? span.length : 1;
            Take(DecodeUtf8(rest), {.position = position, .length = behind_ - position},
                 span.manner.spelled);
        }
    }

    void Take(std::uint32_t character, const Word& place, bool spelled) {
        if (PartsWords(character)) {
            Finish();
            return;
        }
        if (spelled) {
            Finish();
            words_.push_back(place);
            return;
        }
        const bool is_comparison = character == '<' || character == '>';
        lone_comparison_ = is_comparison && !anything_ ? std::optional(place) : std::nullopt;
        anything_ = true;
        if (IsUnsaid(character)) return;
        if (word_.length == 0) word_.position = place.position;
        word_.length = place.position + place.length - word_.position;
    }

    void Finish() {
        if (word_.length > 0) words_.push_back(word_);
        if (lone_comparison_) words_.push_back(*lone_comparison_);
        word_ = {};
        lone_comparison_.reset();
        anything_ = false;
    }

    std::vector<Word> words_;
    Word word_;
    bool anything_ = false;  ///< has stood since the last blank
    std::optional<Word> lone_comparison_;
    std::size_t behind_ = 0;  ///< the last span, in the original
};

}  // namespace

bool PartsWords(std::uint32_t character) {
    return character <= ' ' || Between(character, 0x7F, 0xA0) || character == 0x1680 ||
           Between(character, 0x2000, 0x200A) || Between(character, 0x2028, 0x202F) ||
           character == 0x205F || character == 0x3000 || IsDash(character);
}

std::vector<Word> FindWords(const std::vector<Span>& spans) {
    return WordFinder().Find(spans);
}

}  // namespace corvane::engine
