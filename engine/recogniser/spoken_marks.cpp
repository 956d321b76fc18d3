// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/spoken_marks.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <utility>

namespace corvane::engine {
namespace {

using Joins = SpokenMark::Joins;

constexpr std::array kMarks{
    SpokenMark{.name = "comma",
               .token = "@comma",
               .sound = "comma",
               .text = ",",
               .joins = Joins::before,
               .share = 0.4},
    SpokenMark{.name = "period",
               .token = "@period",
               .sound = "period",
               .text = ".",
               .joins = Joins::before,
               .ends_sentence = true,
               .share = 0.25},
    SpokenMark{.name = "full stop",
               .token = "@full_stop",
               .sound = "full stop",
               .text = ".",
               .joins = Joins::before,
               .ends_sentence = true,
               .share = 0.1},
    SpokenMark{.name = "question mark",
               .token = "@question_mark",
               .sound = "question mark",
               .text = "?",
               .joins = Joins::before,
               .ends_sentence = true,
               .share = 0.1},
    SpokenMark{.name = "exclamation point",
               .token = "@exclamation_point",
               .sound = "exclamation point",
               .text = "!",
               .joins = Joins::before,
               .ends_sentence = true,
               .share = 0.1},
    SpokenMark{.name = "exclamation mark",
               .token = "@exclamation_mark",
               .sound = "exclamation mark",
               .text = "!",
               .joins = Joins::before,
               .ends_sentence = true,
               .share = 0.1},
    SpokenMark{.name = "colon",
               .token = "@colon",
               .sound = "colon",
               .text = ":",
               .joins = Joins::before,
               .share = 0.08},
    SpokenMark{.name = "semicolon",
               .token = "@semicolon",
               .sound = "semi colon",
               .text = ";",
               .joins = Joins::before,
               .share = 0.08},
    SpokenMark{.name = "open quote",
               .token = "@open_quote",
               .sound = "open quote",
               .text = "\"",
               .joins = Joins::after,
               .share = 0.08},
    SpokenMark{.name = "close quote",
               .token = "@close_quote",
               .sound = "close quote",
               .text = "\"",
               .joins = Joins::before,
               .share = 0.08},
    SpokenMark{.name = "hyphen",
               .token = "@hyphen",
               .sound = "hyphen",
               .text = "-",
               .joins = Joins::both,
               .share = 0.05},
    SpokenMark{.name = "dash", .token = "@dash", .sound = "dash", .text = "-", .share = 0.01},
    SpokenMark{.name = "new line",
               .token = "@new_line",
               .sound = "new line",
               .text = "\r",
               .breaks_line = true,
               .share = 0.03},
    SpokenMark{.name = "new paragraph",
               .token = "@new_paragraph",
               .sound = "new paragraph",
               .text = "\r\r",
               .breaks_line = true,
               .share = 0.03},
};

constexpr std::array<std::string_view, 6> kEditingPhrases{
    "delete", "train that", "quit dictation", kClearEverything, kScratchThat, "print page"};

GrammarRule RuleOf(std::string_view words) {
    Phrase phrase;
    std::istringstream stream{std::string(words)};
    for (std::string word; stream >> word;) phrase.push_back(word);
    GrammarRule rule;
    rule.elements.push_back({.choices = {std::move(phrase)}});
    return rule;
}

}  // namespace

std::span<const SpokenMark> SpokenMarks() {
    return kMarks;
}

const SpokenMark* MarkOfToken(std::string_view token) {
    const auto* const mark = std::ranges::find(kMarks, token, &SpokenMark::token);
    return mark == kMarks.end() ? nullptr : mark;
}

const SpokenMark* MarkNamed(std::string_view name) {
    const auto* const mark = std::ranges::find(kMarks, name, &SpokenMark::name);
    return mark == kMarks.end() ? nullptr : mark;
}

bool IsEditingPhrase(std::string_view words) {
    return std::ranges::find(kEditingPhrases, words) != kEditingPhrases.end();
}

Grammar DictationPhrases() {
    Grammar grammar;
    for (const std::string_view words : kEditingPhrases) grammar.rules.push_back(RuleOf(words));
    for (const SpokenMark& mark : kMarks) grammar.rules.push_back(RuleOf(mark.name));
    return grammar;
}

}  // namespace corvane::engine
