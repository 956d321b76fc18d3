// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <string>
#include <string_view>

#include "engine/voice/markup.h"
#include "engine/voice/piece.h"

namespace corvane::engine {
namespace {

/// Spans as one line: position:text, with a manner before the text.
std::string Told(const std::vector<Span>& spans) {
    std::string line;
    for (const Span& span : spans) {
        if (!line.empty()) line += '|';
        line += std::to_string(span.position) + ':';
        if (span.emphasised) line += "emph ";
        if (span.spelled) line += "spell ";
        line += span.text.empty() ? "silence " + std::to_string(span.silence.count()) : span.text;
    }
    return line;
}

struct Reading {
    const char* text;
    const char* told;
};

std::ostream& operator<<(std::ostream& out, const Reading& reading) {
    return out << reading.text;
}

class Markup : public ::testing::TestWithParam<Reading> {};

TEST_P(Markup, IsRead) {
    EXPECT_EQ(Told(ParseMarkup(GetParam().text)), GetParam().told);
}

constexpr std::array kActing = std::to_array<Reading>({
    {"", ""},
    {"<emph>goodbye</emph> ", "6:emph goodbye|20: "},
    {"The <emph>time</emph> is, 5", "0:The |10:emph time|21: is, 5"},
    {"Drive <spell>c</spell> has", "0:Drive |13:spell c|22: has"},
    {"Connect <silence msec=\"100\"/> opens", "0:Connect |8:silence 100|29: opens"},
    {"<SILENCE MSEC = '7' />", "0:silence 7"},
    {"<silence msec=\"70000\"/>", "0:silence 65535"},
    {"<silence msec=\"99999999999\"></silence>", "0:silence 65535"},
    {"<emph>a<emph>b</emph>c</emph>d", "6:emph a|13:emph b|21:emph c|29:d"},
    {"<emph><spell>ab</spell></emph>", "13:emph spell ab"},
    {"<emph>to the end", "6:emph to the end"},
    {"no</emph> beginning", "0:no|9: beginning"},
    {"<emph/>nothing", "7:nothing"},
    {"\xC3\xA9t\xC3\xA9<emph>\xC3\xA9</emph>x", "0:\xC3\xA9t\xC3\xA9|9:emph \xC3\xA9|17:x"},
});

constexpr std::array kWithoutEffect = std::to_array<Reading>({
    {"<rate absspeed=\"5\">fast</rate>", "19:fast"},
    {"<volume level='50'/>soft", "20:soft"},
    {"<pron sym=\"h eh 1 l ow\"/>x", "25:x"},
    {"<voice required=\"Gender=Female;Age!=Child\">x</voice>", "43:x"},
    {"a<bookmark mark=\"1\"/>b", "0:a|21:b"},
    {"<lang langid=\"409\"><pitch middle=\"+5\"><context id=\"date\"><partofsp part=\"verb\">x",
     "79:x"},
});

constexpr std::array kText = std::to_array<Reading>({
    {"a < b", "0:a < b"},
    {"a <b> c", "0:a <b> c"},
    {"<", "0:<"},
    {"<emph", "0:<emph"},
    {"< emph>x", "0:< emph>x"},
    {"<emphasis>x", "0:<emphasis>x"},
    {"<silence/>", "0:<silence/>"},
    {"<silence msec=100/>", "0:<silence msec=100/>"},
    {"<silence msec=\"-1\"/>", "0:<silence msec=\"-1\"/>"},
    {"<silence msec=\"soon\"/>", "0:<silence msec=\"soon\"/>"},
    {"<silence msec=\"100/> <emph>x\"", "0:<silence msec=\"100/> |27:emph x\""},
    {"AT&T & co", "0:AT&T & co"},
    {"&nbsp;&#0;&#xD800;&#;", "0:&nbsp;&#0;&#xD800;&#;"},
});

constexpr std::array kEntities = std::to_array<Reading>({
    {"a&lt;b", "0:a|1:<|5:b"},
    {"&amp;&gt;&quot;&apos;", "0:&|5:>|9:\"|15:'"},
    {"&#65;&#x20AC;", "0:A|5:\xE2\x82\xAC"},
    {"&lt;emph>x", "0:<|4:emph>x"},
});

INSTANTIATE_TEST_SUITE_P(Acting, Markup, ::testing::ValuesIn(kActing));
INSTANTIATE_TEST_SUITE_P(WithoutEffect, Markup, ::testing::ValuesIn(kWithoutEffect));
INSTANTIATE_TEST_SUITE_P(Text, Markup, ::testing::ValuesIn(kText));
INSTANTIATE_TEST_SUITE_P(Entities, Markup, ::testing::ValuesIn(kEntities));

TEST(PlainText, IsReadAsItStands) {
    EXPECT_EQ(Told(PlainText("<emph>a</emph> &lt;")), "0:<emph>a</emph> &lt;");
    EXPECT_TRUE(PlainText("").empty());
}

std::string TextOf(const Piece& piece) {
    std::string text;
    for (const Span& span : piece.spans) text += span.text;
    return text;
}

TEST(Pieces, ShortTextIsOnePiece) {
    const auto pieces = CutIntoPieces(ParseMarkup("One. Two. The <emph>time</emph> is."));
    ASSERT_EQ(pieces.size(), 1U);
    EXPECT_EQ(pieces[0].spans.size(), 3U);
}

TEST(Pieces, SilenceStandsAlone) {
    const auto pieces = CutIntoPieces(ParseMarkup("a<silence msec=\"100\"/>b"));
    ASSERT_EQ(pieces.size(), 3U);
    EXPECT_TRUE(pieces[1].spans.empty());
    EXPECT_EQ(pieces[1].silence, std::chrono::milliseconds(100));
}

TEST(Pieces, LongTextIsCutAtTheEndOfASentence) {
    const std::string sentence = "This is a sentence of some forty letters. ";
    std::string text;
    for (int i = 0; i < 10; ++i) text += sentence;
    const auto pieces = CutIntoPieces(PlainText(text));
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_EQ(TextOf(pieces[0]).size(), 7 * sentence.size());
    EXPECT_TRUE(pieces[0].ends_sentence);
    EXPECT_EQ(pieces[1].spans[0].position, 7 * sentence.size());
    EXPECT_FALSE(pieces[1].ends_sentence);
}

TEST(Pieces, TextWithoutPunctuationIsCutBetweenWords) {
    std::string text;
    for (int i = 0; i < 400; ++i) text += "word ";
    std::string joined;
    for (const Piece& piece : CutIntoPieces(PlainText(text))) {
        EXPECT_LE(TextOf(piece).size(), kLongestPiece);
        EXPECT_TRUE(TextOf(piece).ends_with("word "));
        EXPECT_FALSE(piece.ends_sentence);
        joined += TextOf(piece);
    }
    EXPECT_EQ(joined, text);
}

TEST(Pieces, EndlessWordIsCutBetweenCharacters) {
    std::string text;
    for (int i = 0; i < 500; ++i) text += "\xE2\x82\xAC";
    std::size_t position = 0;
    for (const Piece& piece : CutIntoPieces(PlainText("x" + text))) {
        EXPECT_LE(TextOf(piece).size(), kLongestPiece);
        EXPECT_EQ(piece.spans[0].position, position);
        EXPECT_NE(static_cast<unsigned char>(TextOf(piece)[0]) & 0xC0U, 0x80U);
        position += position == 0 ? (kLongestPiece - 1) / 3 + 1 : kLongestPiece / 3;
    }
}

TEST(Pieces, BytesThatAreNoCharactersAreCutToo) {
    const std::string text(1000, '\x80');
    std::string joined;
    for (const Piece& piece : CutIntoPieces(PlainText(text))) joined += TextOf(piece);
    EXPECT_EQ(joined, text);
}

TEST(Pieces, WordOfManySpansIsCutBetweenThem) {
    std::string text;
    for (int i = 0; i < 400; ++i) text += "&amp;";
    std::string joined;
    for (const Piece& piece : CutIntoPieces(ParseMarkup(text))) {
        EXPECT_LE(TextOf(piece).size(), kLongestPiece);
        joined += TextOf(piece);
    }
    EXPECT_EQ(joined, std::string(400, '&'));
}

std::string NotationOf(std::string_view text) {
    return Notation(CutIntoPieces(ParseMarkup(text)).at(0));
}

TEST(Notation, EmphasisIsSlowerHigherAndLouder) {
    EXPECT_EQ(NotationOf("<emph>x</emph>y"),
              "\x01"
              "149S\x01"
              "61P\x01"
              "120Ax\x01"
              "175S\x01"
              "50P\x01"
              "100Ay");
}

TEST(Notation, SpelledTextIsLettersAndNamesOfSigns) {
    EXPECT_EQ(NotationOf("<spell>c-a</spell>"), " c dash [['eI]] ");
}

TEST(Notation, TypedSettingsAndPhonemesAreDefused) {
    EXPECT_EQ(NotationOf("a\x01"
                         "9S[[b]]\t[[[&#1;"),
              "a 9S[ b]] [ [ ");
    EXPECT_EQ(NotationOf("[&#91;<spell>[[</spell>"), "[  left bracket left bracket ");
}

}  // namespace
}  // namespace corvane::engine
