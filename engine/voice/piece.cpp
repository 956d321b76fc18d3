// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/piece.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "engine/voice/utf8.h"

namespace corvane::engine {
namespace {

// Speed in words a minute, pitch of 0 to 99, amplitude in percent.
constexpr std::string_view kEmphasis =
    "\x01"
    "149S"
    "\x01"
    "61P"
    "\x01"
    "120A";
constexpr std::string_view kNoEmphasis =
    "\x01"
    "175S"
    "\x01"
    "50P"
    "\x01"
    "100A";

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
    for (std::size_t at = room; at > 0; --at) {
        if (!IsBlank(text[at])) continue;
        if (word_end == 0) word_end = at + 1;
        if (std::string_view(".!?").find(text[at - 1]) != std::string_view::npos)
            return {.length = at + 1, .ends_sentence = true};
    }
    return {.length = word_end, .ends_sentence = false};
}

class Cutter {
public:
    std::deque<Piece> Cut(const std::vector<Span>& spans) {
        for (const Span& span : spans) {
            if (span.text.empty()) {
                Close(false);
                pieces_.push_back({.spans = {}, .silence = span.silence, .ends_sentence = false});
            } else {
                Add(span);
            }
        }
        Close(false);
        return std::move(pieces_);
    }

private:
    void Add(Span span) {
        while (span.text.size() > kLongestPiece - length_) {
            auto [cut, ends_sentence] = FindCut(span.text, kLongestPiece - length_);
            if (cut == 0 && length_ > 0) {
                Close(false);
                continue;
            }
            if (cut == 0) {
                cut = kLongestPiece;
                while (cut > 1 && ContinuesCharacter(span.text[cut])) --cut;
            }
            Span rest = span;
            rest.text.erase(0, cut);
            span.text.resize(cut);
            rest.position += CharacterCount(span.text);
            Take(std::move(span));
            Close(ends_sentence);
            span = std::move(rest);
        }
        if (!span.text.empty()) Take(std::move(span));
    }

    void Take(Span span) {
        length_ += span.text.size();
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

void AppendText(std::string& notation, std::string_view text) {
    for (const char c : text) {
        const bool setting = static_cast<unsigned char>(c) < 0x20;
        const bool phonemes = c == '[' && notation.ends_with('[');
        notation += setting || phonemes ? ' ' : c;
    }
}

void AppendSpelled(std::string& notation, std::string_view text) {
    for (const char c : text) {
        const auto sign =
            std::ranges::find(kSignNames, c, &std::pair<char, std::string_view>::first);
        if (!ContinuesCharacter(c)) notation += ' ';
        if (c == 'a' || c == 'A')
            notation += "[['eI]]";  // between other letters it would be read as the article
        else if (sign != kSignNames.end())
            notation += sign->second;
        else
            AppendText(notation, {&c, 1});
    }
    notation += ' ';
}

}  // namespace

std::deque<Piece> CutIntoPieces(const std::vector<Span>& spans) {
    return Cutter().Cut(spans);
}

std::string Notation(const Piece& piece) {
    std::string notation;
    for (const Span& span : piece.spans) {
        if (span.emphasised) notation += kEmphasis;
        if (span.spelled)
            AppendSpelled(notation, span.text);
        else
            AppendText(notation, span.text);
        if (span.emphasised) notation += kNoEmphasis;
    }
    return notation;
}

}  // namespace corvane::engine
