// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Any bytes as a text to be said: what is promised of markup, words, pieces and notation holds.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/voice/markup.h"
#include "engine/voice/notation.h"
#include "engine/voice/piece.h"
#include "engine/voice/utf8.h"
#include "engine/voice/words.h"
#include "require.h"

using namespace corvane::engine;
using corvane::fuzz::Require;

namespace {

void CheckSpans(const std::vector<Span>& spans, std::size_t characters) {
    std::size_t behind = 0;
    for (const Span& span : spans) {
        Require(span.position >= behind, "spans overlap");
        behind = span.position + span.length;
        Require(behind <= characters, "a span reaches beyond the text");
        Require(span.text.empty() == (span.kind == Span::Kind::silence), "an empty span");
    }
}

void CheckWords(const std::vector<Word>& words, std::size_t characters) {
    std::size_t behind = 0;
    for (const Word& word : words) {
        Require(word.length > 0, "an empty word");
        Require(word.position >= behind, "words overlap");
        behind = word.position + word.length;
        Require(behind <= characters, "a word reaches beyond the text");
    }
}

/// Control characters only where they are settings of ours, no fault in the UTF-8, and phonemes
/// closed.
void CheckNotation(const Notation& notation) {
    const std::string_view text = notation.text;
    Require(notation.origins.size() == CharacterCount(text), "an origin is missing");
    std::size_t character = 0;
    for (std::size_t at = 0; at < text.size(); at += CharacterBytes(text.substr(at))) {
        const std::uint32_t code = DecodeUtf8(text.substr(at));
        Require(code >= ' ' || code == '\n' ||
                    (code == 1 && notation.origins[character] == Notation::kNowhere),
                "a character that is none");
        ++character;
    }
}

void Check(const std::vector<Span>& spans, std::size_t characters) {
    CheckSpans(spans, characters);
    const std::vector<Word> words = FindWords(spans);
    CheckWords(words, characters);
    std::string said;
    for (const Piece& piece : CutIntoPieces(spans)) {
        std::size_t bytes = 0;
        for (const Span& span : piece.spans) {
            if (span.kind == Span::Kind::text) said += span.text;
            if (span.kind == Span::Kind::text) bytes += span.text.size();
        }
        Require(bytes <= kLongestPiece, "a piece is too long");
        Require(piece.spans.empty() || piece.silence.count() == 0, "a silence with text");
        CheckNotation(Notate(piece, words));
    }
    std::string whole;
    for (const Span& span : spans)
        if (span.kind == Span::Kind::text) whole += span.text;
    Require(said == whole, "the pieces are not the text");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const std::size_t characters = CharacterCount(text);
    Check(ParseMarkup(text), characters);
    Check(PlainText(text), characters);
    return 0;
}
