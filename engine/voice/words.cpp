// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/words.h"

#include <string_view>
#include <utility>

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

bool IsDigit(std::uint32_t character) {
    return Between(character, '0', '9');
}

bool IsLetterOrDigit(std::uint32_t character) {
    return IsDigit(character) || Between(character | 0x20U, 'a', 'z') ||
           (character >= 0x80 && !IsUnsaid(character));
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
        } else if (spelled) {
            Finish();
            words_.push_back(place);
        } else {
            if (character == '<' && first_opening_ == kNone) first_opening_ = run_.size();
            if (character == '>') last_closing_ = run_.size();
            run_.push_back({.code = character, .place = place});
        }
    }

    /// The words of what has stood since the last blank.
    void Finish() {
        Word word;
        const auto end_word = [&] {
            if (word.length > 0) words_.push_back(std::exchange(word, {}));
        };
        for (std::size_t i = 0; i < run_.size(); ++i) {
            const auto& [code, place] = run_[i];
            if (IsComparison(i)) {
                end_word();
                words_.push_back(place);
            } else if (!IsUnsaid(code)) {
                if (word.length == 0) word.position = place.position;
                word.length = place.position + place.length - word.position;
            }
        }
        end_word();
        run_.clear();
        first_opening_ = last_closing_ = kNone;
    }

    /// Whether "<" or ">" is said: alone, in front of a number ("<5") or between letters and digits
    /// ("a<b"), but not as one of a pair of brackets ("<b>").
    [[nodiscard]] bool IsComparison(std::size_t at) const {
        const std::uint32_t sign = run_[at].code;
        if (sign != '<' && sign != '>') return false;
        if (run_.size() == 1) return true;
        const bool is_bracket =
            sign == '<' ? last_closing_ != kNone && last_closing_ > at : first_opening_ < at;
        if (is_bracket || at + 1 == run_.size()) return false;
        const std::uint32_t next = run_[at + 1].code;
        return at == 0 ? IsDigit(next)
                       : IsLetterOrDigit(run_[at - 1].code) && IsLetterOrDigit(next);
    }

    struct Character {
        std::uint32_t code;
        Word place;
    };
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    std::vector<Word> words_;
    std::vector<Character> run_;         ///< what has stood since the last blank
    std::size_t first_opening_ = kNone;  ///< the first "<" of the run
    std::size_t last_closing_ = kNone;   ///< its last ">"
    std::size_t behind_ = 0;             ///< the last span, in the original
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
