// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <string>
#include <vector>

#include "engine/voice/utterance.h"
#include "engine/voice/word_times.h"
#include "engine/voice/words.h"

namespace corvane::engine {
namespace {

/// "position+length" of each word, parted by blanks.
std::string Told(const std::vector<Word>& words) {
    std::string line;
    for (const Word& word : words)
        line += (line.empty() ? "" : " ") + std::to_string(word.position) + '+' +
                std::to_string(word.length);
    return line;
}

struct Reading {
    const char* text;
    const char* told;
};

std::ostream& operator<<(std::ostream& out, const Reading& reading) {
    return out << reading.text;
}

class Words : public ::testing::TestWithParam<Reading> {};

TEST_P(Words, AreFound) {
    EXPECT_EQ(Told(FindWords(ParseMarkup(GetParam().text))), GetParam().told);
}

constexpr std::array kWords = std::to_array<Reading>({
    {"", ""},
    {" \t\r\n", ""},
    {"one two", "0+3 4+3"},
    {"\"Don't!\" he said (twice).", "1+5 9+2 12+4 18+5"},
    {"$5,000 is 50% of C++", "0+6 7+2 10+3 14+2 17+3"},
    {"well-known read/write a_b", "0+10 11+10 22+3"},
    {"so... - ... ? ok", "0+2 14+2"},
    {"www.example.com, a@b.org", "0+15 17+7"},
    {"\xC3\xA9t\xC3\xA9 \xE2\x80\x9Cna\xC3\xAFve\xE2\x80\x9D", "0+3 5+5"},
    {"word\xE2\x80\x94word\xE2\x80\xA6 so", "0+4 5+4 11+2"},
    {"a < b > c", "0+1 2+1 4+1 6+1 8+1"},
    {"<b>bold</b> <- << ", "1+9"},
    {"x<y, 5>3 (a<b<c)", "0+1 1+1 2+1 5+1 6+1 7+1 10+1 11+1 12+1 13+1 14+1"},
    {"<5 >18 <x >x", "0+1 1+1 3+1 4+2 8+1 11+1"},
    {"vector<int> a<=b a->b c=>d a>b<c", "0+10 12+4 17+4 22+4 27+1 28+1 29+1 30+1 31+1"},
    {"\xF0\x9F\x99\x82 & +", "0+1 2+1 4+1"},
    {"a\x80z", "0+1 2+1"},
});

constexpr std::array kWordsInMarkup = std::to_array<Reading>({
    {"The <emph>time</emph> is, 5", "0+3 10+4 22+2 26+1"},
    {"un<emph>believ</emph>able", "0+2 8+6 21+4"},
    {"Connect<silence msec=\"100\"/>opens", "0+7 28+5"},
    {"a<bookmark mark=\"1\"/>b", "0+1 21+1"},
    {"AT&amp;T", "0+8"},
    {"x &lt; y", "0+1 2+4 7+1"},
    {"x&lt;y", "0+1 1+4 5+1"},
    {"&quot;hi&quot;", "6+2"},
    {"<spell>a, b&amp;</spell>c", "7+1 8+1 10+1 11+5 24+1"},
    {"<pron sym=\"h ay\">hi there</pron><pron sym=\"h ay\"/>x", "17+8 50+1"},
});

INSTANTIATE_TEST_SUITE_P(Text, Words, ::testing::ValuesIn(kWords));
INSTANTIATE_TEST_SUITE_P(Markup, Words, ::testing::ValuesIn(kWordsInMarkup));

/// The words' marks of a text as they are spoken.
std::vector<Word> Spoken(const std::string& text) {
    std::vector<Word> words;
    for (Utterance utterance(text, true); !utterance.Done();) {
        const auto spoken = utterance.Next();
        EXPECT_TRUE(std::ranges::is_sorted(spoken.marks, {}, &Mark::sample));
        for (const Mark& mark : spoken.marks) {
            EXPECT_GE(mark.sample, 0);
            EXPECT_LE(mark.sample, std::ssize(spoken.sound));
            if (const auto* word = std::get_if<Word>(&mark.what)) words.push_back(*word);
        }
    }
    return words;
}

TEST(SpokenWords, EachIsMarkedOnceAndInOrder) {
    for (const std::string text :
         {"If x<y and 5>3, then <18 is a<b<c too.",
          "I am one of the many, and the 1,234,567 others are at www.example.com/index.html!",
          "\"It's 3:05 PM,\" said Dr. O'Neill-Smith; NASA's U.S. budget (c. $5.5bn) fell by 10%.",
          "a < b <emph>and</emph> c > d &amp; e, <rate speed=\"3\">so</rate> <spell>x-y</spell>",
          "<pron sym=\"h eh l ow\">hello you</pron> <volume level=\"20\">\xC3\xA9t\xC3\xA9",
          "[[b]] [[ ]] \x01 9S \x02 x"}) {
        EXPECT_EQ(Told(Spoken(text)), Told(FindWords(ParseMarkup(text)))) << text;
    }
}

TEST(SpokenWords, ALongTextIsMarkedAcrossItsPieces) {
    std::string text;
    for (int i = 0; i < 100; ++i)
        text += "Some words with a number " + std::to_string(i) + ", and ";
    EXPECT_EQ(Spoken(text), FindWords(ParseMarkup(text)));
}

TEST(SpokenWords, AnEndlessWordIsMarkedOnce) {
    EXPECT_EQ(Told(Spoken(std::string(1000, 'x') + " end")), "0+1000 1001+3");
}

TEST(SpokenWords, BookmarkIsReachedWithTheWordBehindIt) {
    Utterance utterance("one two <bookmark mark=\"a\"/>three<bookmark mark=\"b\"/>", true);
    const auto spoken = utterance.Next();
    std::vector<std::int64_t> words;
    std::vector<std::int64_t> bookmarks;
    for (const Mark& mark : spoken.marks) {
        if (std::holds_alternative<Word>(mark.what)) words.push_back(mark.sample);
        if (std::holds_alternative<BookmarkMark>(mark.what)) bookmarks.push_back(mark.sample);
    }
    ASSERT_EQ(words.size(), 3U);
    ASSERT_EQ(bookmarks.size(), 2U);
    EXPECT_EQ(bookmarks[0], words[2]);
    EXPECT_EQ(bookmarks[1], std::ssize(spoken.sound));
}

TEST(WordTimes, WhatTheSynthesiserDoesNotTellIsPlacedByItsLetters) {
    const std::vector<Word> words{{0, 2}, {3, 3}, {7, 5}};
    Notation notation{.text = "of the world", .origins = {}};
    for (std::size_t i = 0; i < notation.text.size(); ++i) notation.origins.push_back(i);
    const Synthesis synthesis{.sound = std::vector<std::int16_t>(10'000),
                              .beginnings = {{0, 100}, {7, 800}}};
    EXPECT_EQ(FindWordTimes(notation, synthesis, words), (std::vector<std::size_t>{100, 400, 800}));
}

TEST(WordTimes, NeverFallAndStayInTheSound) {
    const std::vector<Word> words{{0, 1}, {2, 1}, {4, 1}};
    const Notation notation{.text = "a b c", .origins = {0, 1, 2, 3, 4}};
    const Synthesis synthesis{.sound = std::vector<std::int16_t>(1000),
                              .beginnings = {{0, 500}, {2, 200}, {4, 9999}, {4, 100}, {99, 1}}};
    EXPECT_EQ(FindWordTimes(notation, synthesis, words), (std::vector<std::size_t>{500, 749, 999}));
}

TEST(WordTimes, NothingIsPlacedWithoutSound) {
    EXPECT_TRUE(FindWordTimes({}, {}, std::vector<Word>{{0, 1}}).empty());
}

}  // namespace
}  // namespace corvane::engine
