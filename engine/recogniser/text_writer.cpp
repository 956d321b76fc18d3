// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/text_writer.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <sstream>
#include <string_view>
#include <utility>

#include "engine/recogniser/spoken_marks.h"

namespace corvane::engine {
namespace {

/// Words that have a capital everywhere, and no other meaning without it; sorted.
constexpr auto kNames = std::to_array<std::string_view>(
    {"africa",   "african", "america", "american", "asia",     "asian",     "august",   "australia",
     "britain",  "british", "canada",  "canadian", "chinese",  "christmas", "december", "dutch",
     "easter",   "england", "english", "europe",   "european", "february",  "france",   "french",
     "friday",   "german",  "germany", "i",        "i'd",      "i'll",      "i'm",      "i've",
     "india",    "indian",  "ireland", "irish",    "italian",  "italy",     "january",  "japan",
     "japanese", "july",    "june",    "london",   "mexican",  "mexico",    "monday",   "november",
     "october",  "paris",   "russia",  "russian",  "saturday", "scotland",  "scottish", "september",
     "spain",    "spanish", "sunday",  "thursday", "tuesday",  "wednesday", "york"});
static_assert(std::ranges::is_sorted(kNames));

/// What the dictionary spells otherwise than a reader expects it.
constexpr auto kSpellings = std::to_array<std::pair<std::string_view, std::string_view>>(
    {{"dr", "Dr."}, {"mr", "Mr."}, {"mrs", "Mrs."}, {"ms", "Ms."}, {"ok", "OK"}, {"tv", "TV"}});

std::string Joined(std::span<const std::string> words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

std::vector<std::string> WordsOf(std::string_view text) {
    std::istringstream stream{std::string(text)};
    return {std::istream_iterator<std::string>(stream), {}};
}

/// No sentence begins with "of": what seems a mark in front of it is a period of time, or a new
/// line of houses.
bool IsWordBefore(const SpokenMark& mark, const std::string& next) {
    return (mark.ends_sentence || mark.breaks_line) && next == "of";
}

/// The dictionary is of one case and of ASCII letters.
std::string WithCapital(std::string word) {
    if (!word.empty() && word[0] >= 'a' && word[0] <= 'z')
        word[0] = static_cast<char>(word[0] - 'a' + 'A');
    return word;
}

/// Gathers phrases out of words and marks.
class Page {
public:
    void Word(std::string text, std::size_t place) {
        if (!GoesOn()) Open(place);
        std::vector<std::string>& words = phrases_.back().words;
        if (joined_ && !words.empty())
            words.back() += text;
        else
            words.push_back(std::move(text));
        joined_ = false;
        phrases_.back().last = place;
    }

    void Sign(const SpokenMark& mark, std::size_t place) {
        using Joins = SpokenMark::Joins;
        joined_ = joined_ || mark.joins == Joins::before || mark.joins == Joins::both;
        Word(std::string(mark.text), place);
        joined_ = mark.joins == Joins::after || mark.joins == Joins::both;
    }

    void Break(const SpokenMark& mark, std::size_t place) {
        for (const char sign : mark.text) {
            Open(place);
            phrases_.back().words.emplace_back(1, sign);
        }
        open_ = false;
    }

    /// Whether a word would go on with the last phrase instead of beginning one.
    [[nodiscard]] bool GoesOn() const { return open_ && !phrases_.empty(); }

    [[nodiscard]] std::vector<WrittenPhrase> Take() { return std::move(phrases_); }

private:
    void Open(std::size_t place) {
        phrases_.push_back({.words = {}, .first = place, .last = place});
        open_ = true;
        joined_ = false;
    }

    std::vector<WrittenPhrase> phrases_;
    bool open_ = false;    ///< the last phrase goes on
    bool joined_ = false;  ///< the next word belongs to the last one
};

}  // namespace

std::vector<WrittenPhrase> TextWriter::Write(std::span<const std::string> spoken) {
    if (spoken.empty()) return {};
    const std::string whole = Joined(spoken);
    if (IsEditingPhrase(whole)) {
        Edit(whole);
        return {{.words = {spoken.begin(), spoken.end()}, .first = 0, .last = spoken.size() - 1}};
    }
    if (const SpokenMark* mark = MarkNamed(whole)) {
        const std::string token(mark->token);
        std::vector<WrittenPhrase> phrases = Write(std::span(&token, 1));
        for (WrittenPhrase& phrase : phrases) phrase.last = spoken.size() - 1;
        return phrases;
    }
    Page page;
    for (std::size_t i = 0; i < spoken.size(); ++i) {
        const SpokenMark* const mark = MarkOfToken(spoken[i]);
        const bool is_word = !mark || (i + 1 < spoken.size() && IsWordBefore(*mark, spoken[i + 1]));
        // Phrases are scratched one by one, line breaks never.
        if (!page.GoesOn() && (is_word || !mark->breaks_line)) capital_before_ = capital_;
        if (mark && is_word) {
            for (const std::string& word : WordsOf(mark->name)) {
                page.Word(Spelled(word), i);
                capital_ = false;
            }
        } else if (mark) {
            if (mark->breaks_line)
                page.Break(*mark, i);
            else
                page.Sign(*mark, i);
            capital_ = capital_ || mark->ends_sentence || mark->breaks_line;
        } else {
            page.Word(Spelled(spoken[i]), i);
            capital_ = false;
        }
    }
    return page.Take();
}

std::string TextWriter::Spelled(const std::string& word) const {
    if (const auto* const other =
            std::ranges::find(kSpellings, word, &decltype(kSpellings)::value_type::first);
        other != kSpellings.end())
        return std::string(other->second);
    if (capital_ || std::ranges::binary_search(kNames, word)) return WithCapital(word);
    return word;
}

// Only what changes where a sentence begins is of interest here.
void TextWriter::Edit(const std::string& phrase) {
    if (phrase == kScratchThat) capital_ = capital_before_;
    if (phrase == kClearEverything) StartAnew();
}

}  // namespace corvane::engine
