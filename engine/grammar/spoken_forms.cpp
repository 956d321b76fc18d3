// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/spoken_forms.h"

#include <algorithm>
#include <array>

#include "engine/grammar/transliteration.h"

namespace corvane::engine {
namespace {

bool IsUpper(char c) {
    return c >= 'A' && c <= 'Z';
}

bool IsLetter(char c) {
    return IsUpper(c) || (c >= 'a' && c <= 'z');
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

char Lower(char c) {
    return IsUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

char Upper(char c) {
    return IsLetter(c) && !IsUpper(c) ? static_cast<char>(c - 'a' + 'A') : c;
}

bool IsVowel(char c) {
    return std::string_view("aeiouy").find(Lower(c)) != std::string_view::npos;
}

/// Any longer row of capitals is a word that was shouted.
constexpr std::size_t kLongestAcronym = 6;
/// Small letters may be an acronym too, but only a short one, and in a longer word a very short
/// one.
constexpr std::size_t kLongestSmallAcronym = 4;
constexpr std::size_t kLongestInnerAcronym = 2;
constexpr std::size_t kLongestNumber = 6;

SpokenForm AsWord(std::string_view letters) {
    std::string word(letters);
    std::ranges::transform(word, word.begin(), Lower);
    return {word};
}

SpokenForm Spelled(std::string_view letters) {
    SpokenForm form;
    for (const char c : letters)
        if (IsLetter(c)) form.push_back(std::string(1, Upper(c)));
    return form;
}

std::vector<SpokenForm> ReadLetters(std::string_view letters, bool alone) {
    const auto count = static_cast<std::size_t>(std::ranges::count_if(letters, IsLetter));
    if (count == 0) return {};
    if (count == 1) return {Spelled(letters)};
    const bool can_be_word = std::ranges::any_of(letters, IsVowel);
    const bool capitals =
        std::ranges::none_of(letters, [](char c) { return IsLetter(c) && !IsUpper(c); });
    const std::size_t longest = capitals || !can_be_word ? kLongestAcronym
                                : alone                  ? kLongestSmallAcronym
                                                         : kLongestInnerAcronym;
    const bool acronym = count <= longest;
    std::vector<SpokenForm> forms;
    if (acronym) forms.push_back(Spelled(letters));
    if (can_be_word || !acronym) forms.push_back(AsWord(letters));
    // What is written small is rather a word.
    if (!capitals && can_be_word) std::ranges::reverse(forms);
    return forms;
}

constexpr std::array<const char*, 20> kSmallNumbers{
    "zero",     "one",     "two",     "three",     "four",     "five",    "six",
    "seven",    "eight",   "nine",    "ten",       "eleven",   "twelve",  "thirteen",
    "fourteen", "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
constexpr std::array<const char*, 10> kTens{"",      "",      "twenty",  "thirty", "forty",
                                            "fifty", "sixty", "seventy", "eighty", "ninety"};

void SayNumber(std::size_t number, SpokenForm& form) {
    if (number >= 1000) {
        SayNumber(number / 1000, form);
        form.emplace_back("thousand");
        if (number % 1000 != 0) SayNumber(number % 1000, form);
    } else if (number >= 100) {
        form.emplace_back(kSmallNumbers[number / 100]);
        form.emplace_back("hundred");
        if (number % 100 != 0) SayNumber(number % 100, form);
    } else if (number >= 20) {
        form.emplace_back(kTens[number / 10]);
        if (number % 10 != 0) form.emplace_back(kSmallNumbers[number % 10]);
    } else {
        form.emplace_back(kSmallNumbers[number]);
    }
}

/// What a sign is called; a second name where people differ. None for those that part words.
std::vector<SpokenForm> ReadSign(char sign) {
    switch (sign) {
        case '+':
            return {{"plus"}};
        case '&':
            return {{"and"}};
        case '@':
            return {{"at"}};
        case '%':
            return {{"percent"}};
        case '=':
            return {{"equals"}};
        case '$':
            return {{"dollar"}};
        case '*':
            return {{"star"}};
        case '#':
            return {{"sharp"}, {"hash"}};
        case '.':
            return {{}, {"dot"}};
        default:
            return {};
    }
}

enum class Kind { letters, digits, sign };

struct Part {
    Kind kind;
    std::string_view text;
};

/// A new word begins inside at a capital behind a small letter ("libreOffice") and at the last of
/// several capitals before a small one ("HTMLEditor").
bool BeginsWord(std::string_view text, std::size_t at) {
    if (!IsUpper(text[at])) return false;
    const bool small_before = IsLetter(text[at - 1]) && !IsUpper(text[at - 1]);
    const bool small_behind =
        at + 1 < text.size() && IsLetter(text[at + 1]) && !IsUpper(text[at + 1]);
    return small_before || (IsUpper(text[at - 1]) && small_behind);
}

Kind KindOf(char c) {
    if (IsDigit(c)) return Kind::digits;
    return IsLetter(c) || c == '\'' ? Kind::letters : Kind::sign;
}

std::vector<Part> PartsOf(std::string_view text, bool by_capitals) {
    std::vector<Part> parts;
    std::size_t begin = 0;
    for (std::size_t i = 1; i <= text.size(); ++i) {
        const Kind kind = KindOf(text[begin]);
        if (i < text.size() && kind != Kind::sign && KindOf(text[i]) == kind &&
            !(by_capitals && kind == Kind::letters && BeginsWord(text, i)))
            continue;
        parts.push_back({.kind = kind, .text = text.substr(begin, i - begin)});
        begin = i;
    }
    return parts;
}

std::vector<SpokenForm> Read(const Part& part, bool alone) {
    switch (part.kind) {
        case Kind::letters:
            return ReadLetters(part.text, alone);
        case Kind::digits:
            return SpokenNumber(part.text);
        case Kind::sign:
            return ReadSign(part.text.front());
    }
    return {};
}

/// All ways to read one part after the other, as long as there are few.
std::vector<SpokenForm> ReadAll(const std::vector<Part>& parts) {
    std::vector<SpokenForm> forms{{}};
    for (const Part& part : parts) {
        const std::vector<SpokenForm> ways = Read(part, parts.size() == 1);
        if (ways.empty()) continue;
        std::vector<SpokenForm> longer;
        for (const SpokenForm& way : ways)
            for (const SpokenForm& form : forms) {
                longer.push_back(form);
                longer.back().insert(longer.back().end(), way.begin(), way.end());
            }
        if (longer.size() > kMostForms) longer.resize(kMostForms);
        forms = std::move(longer);
    }
    return forms;
}

}  // namespace

std::vector<SpokenForm> SpokenNumber(std::string_view digits) {
    SpokenForm by_digits;
    std::size_t number = 0;
    for (const char c : digits) {
        const auto digit = static_cast<std::size_t>(c - '0');
        by_digits.emplace_back(kSmallNumbers[digit]);
        if (digits.size() <= kLongestNumber) number = 10 * number + digit;
    }
    std::vector<SpokenForm> forms;
    if (digits.size() <= kLongestNumber && digits.front() != '0') {
        SayNumber(number, forms.emplace_back());
        const bool pairs = digits.size() == 3 || digits.size() == 4;
        if (pairs && number % 100 >= 10) {
            SpokenForm& form = forms.emplace_back();
            SayNumber(number / 100, form);
            SayNumber(number % 100, form);
        }
    }
    if (forms.empty() || digits.size() > 1) forms.push_back(std::move(by_digits));
    return forms;
}

std::vector<SpokenForm> SpokenForms(std::string_view word) {
    const std::string text = Transliterated(word);
    if (text.empty()) return {};
    std::vector<SpokenForm> forms = ReadAll(PartsOf(text, true));
    // "iTunes" is no "i tunes" to everybody.
    for (SpokenForm& form : ReadAll(PartsOf(text, false))) forms.push_back(std::move(form));
    std::vector<SpokenForm> distinct;
    for (SpokenForm& form : forms)
        if (!form.empty() && distinct.size() < kMostForms &&
            std::ranges::find(distinct, form) == distinct.end())
            distinct.push_back(std::move(form));
    return distinct;
}

}  // namespace corvane::engine
