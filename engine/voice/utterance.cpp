// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/utterance.h"

#include <algorithm>
#include <span>
#include <utility>

#include "engine/voice/level.h"
#include "engine/voice/notation.h"
#include "engine/voice/synthesizer.h"
#include "engine/voice/word_times.h"

namespace corvane::engine {
namespace {

void MarkLevels(Spoken& spoken) {
    std::int64_t sample = 0;
    for (std::span<const std::int16_t> rest = spoken.sound; !rest.empty();) {
        const auto window = rest.first(std::min(rest.size(), kLevelWindow));
        spoken.marks.push_back({.sample = sample, .what = LevelMark{LevelOf(window)}});
        rest = rest.subspan(window.size());
        sample += std::ssize(window);
    }
}

/// A bookmark is reached with the first word behind it.
void MarkBookmarks(Spoken& spoken, const Piece& piece, std::span<const Word> words,
                   std::span<const std::size_t> times) {
    for (const Span& span : piece.spans) {
        if (span.kind != Span::Kind::bookmark) continue;
        const auto word =
            std::ranges::find_if(words, [&](const Word& w) { return w.position >= span.position; });
        const auto index = static_cast<std::size_t>(word - words.begin());
        const std::size_t sample = index < times.size() ? times[index] : spoken.sound.size();
        spoken.marks.push_back(
            {.sample = static_cast<std::int64_t>(sample), .what = BookmarkMark{span.text}});
    }
}

}  // namespace

Utterance::Utterance(std::string_view text, bool markup) {
    const std::vector<Span> spans = markup ? ParseMarkup(text) : PlainText(text);
    words_ = FindWords(spans);
    pieces_ = CutIntoPieces(spans);
}

Spoken Utterance::Next() {
    const Piece piece = std::move(pieces_.front());
    pieces_.pop_front();
    Spoken spoken;
    if (piece.spans.empty())
        spoken.sound.resize(static_cast<std::size_t>(piece.silence.count() * kVoiceRate / 1000));
    else
        spoken = Say(piece);
    MarkLevels(spoken);
    std::ranges::stable_sort(spoken.marks, {}, &Mark::sample);
    return spoken;
}

Spoken Utterance::Say(const Piece& piece) {
    const std::size_t end = piece.spans.back().position + piece.spans.back().length;
    // A word that is cut in two began in an earlier piece.
    std::span<const Word> words = std::span(words_).subspan(next_word_);
    words = words.first(static_cast<std::size_t>(
        std::ranges::lower_bound(words, end, {}, &Word::position) - words.begin()));
    next_word_ += words.size();

    const Notation notation = Notate(piece, words);
    Synthesis synthesis = Synthesize(notation.text, piece.ends_sentence);
    const std::vector<std::size_t> times = FindWordTimes(notation, synthesis, words);

    Spoken spoken{.sound = std::move(synthesis.sound), .marks = {}};
    MarkBookmarks(spoken, piece, words, times);
    for (std::size_t i = 0; i < times.size(); ++i)
        spoken.marks.push_back({.sample = static_cast<std::int64_t>(times[i]), .what = words[i]});
    return spoken;
}

}  // namespace corvane::engine
