// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/piece.h"

#include <string_view>
#include <utility>

#include "engine/voice/utf8.h"

namespace corvane::engine {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

struct Cut {
    std::size_t length = 0;  // in bytes; 0 where no good place is in reach
    bool ends_sentence = false;
};

/// The best place to cut a text that is longer than `room`.
Cut FindCut(std::string_view text, std::size_t room) {
    std::size_t word_end = 0;
    for (std::size_t at = room; at-- > 0;) {
        if (!IsBlank(text[at])) continue;
        if (word_end == 0) word_end = at + 1;
        if (at > 0 && std::string_view(".!?").find(text[at - 1]) != std::string_view::npos)
            return {.length = at + 1, .ends_sentence = true};
    }
    return {.length = word_end, .ends_sentence = false};
}

/// The last place before `room` where a character ends.
std::size_t CharacterEnd(std::string_view text, std::size_t room) {
    std::size_t end = 0;
    while (end + CharacterBytes(text.substr(end)) <= room) end += CharacterBytes(text.substr(end));
    return end;
}

class Cutter {
public:
    std::deque<Piece> Cut(const std::vector<Span>& spans) {
        for (const Span& span : spans) {
            if (span.kind == Span::Kind::silence) {
                Close(false);
                pieces_.push_back({.spans = {}, .silence = span.silence, .ends_sentence = false});
            } else if (span.kind == Span::Kind::text) {
                Add(span);
            } else {
                const bool is_said = span.kind == Span::Kind::phonemes;
                if (is_said && span.text.size() + length_ > kLongestPiece) Close(false);
                Take(span);
            }
        }
        Close(false);
        return std::move(pieces_);
    }

private:
    void Add(const Span& span) {
        std::string_view rest = span.text;
        std::size_t position = span.position;
        while (rest.size() + length_ > kLongestPiece) {
            auto [cut, ends_sentence] = FindCut(rest, kLongestPiece - length_);
            if (cut == 0 && length_ > 0) {
                Close(false);
                continue;
            }
            if (cut == 0) cut = CharacterEnd(rest, kLongestPiece);
            Span part = Part(span, rest.substr(0, cut), position);
            position += part.length;
            rest.remove_prefix(cut);
            Take(std::move(part));
            Close(ends_sentence);
        }
        if (rest.size() == span.text.size())
            Take(span);
        else if (!rest.empty())
            Take(Part(span, rest, position));
    }

    /// Only of a span that is more than one character, so that one is one in the original too.
    static Span Part(const Span& span, std::string_view text, std::size_t position) {
        return {.kind = span.kind,
                .text = std::string(text),
                .position = position,
                .length = CharacterCount(text),
                .manner = span.manner,
                .silence = {}};
    }

    void Take(Span span) {
        if (span.kind != Span::Kind::bookmark) length_ += span.text.size();
        piece_.spans.push_back(std::move(span));
    }

    void Close(bool ends_sentence) {
        if (piece_.spans.empty()) return;
        piece_.ends_sentence = ends_sentence;
        pieces_.push_back(std::exchange(piece_, {}));
        length_ = 0;
    }

    std::deque<Piece> pieces_;
    Piece piece_;
    std::size_t length_ = 0;
};

}  // namespace

std::deque<Piece> CutIntoPieces(const std::vector<Span>& spans) {
    return Cutter().Cut(spans);
}

}  // namespace corvane::engine
