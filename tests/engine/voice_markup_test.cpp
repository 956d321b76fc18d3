// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <string>
#include <string_view>

#include "engine/voice/markup.h"
#include "engine/voice/notation.h"
#include "engine/voice/phones.h"
#include "engine/voice/piece.h"
#include "engine/voice/utf8.h"
#include "engine/voice/words.h"

namespace corvane::engine {
namespace {

/// Spans as one line: position:text, with kind and manner before the text.
std::string Told(const std::vector<Span>& spans) {
    std::string line;
    for (const Span& span : spans) {
        if (!line.empty()) line += '|';
        line += std::to_string(span.position) + ':';
        if (span.manner.emphasised) line += "emph ";
        if (span.manner.spelled) line += "spell ";
        if (span.manner.rate != 0) line += "rate " + std::to_string(span.manner.rate) + ' ';
        if (span.manner.pitch != 0) line += "pitch " + std::to_string(span.manner.pitch) + ' ';
        if (span.manner.volume != 100) line += "volume " + std::to_string(span.manner.volume) + ' ';
        if (span.kind == Span::Kind::silence)
            line += "silence " + std::to_string(span.silence.count());
        if (span.kind == Span::Kind::bookmark) line += "bookmark ";
        if (span.kind == Span::Kind::phonemes)
            line += "phonemes " + std::to_string(span.length) + ' ';
        line += span.text;
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

constexpr std::array kManners = std::to_array<Reading>({
    {"<rate absspeed=\"5\">fast</rate>.", "19:rate 5 fast|30:."},
    {"<rate absspeed=\"5\"><rate speed=\"-2\">a</rate>b</rate>c", "36:rate 3 a|44:rate 5 b|52:c"},
    {"<rate speed=\"+9\"><rate speed=\"9\">a", "33:rate 10 a"},
    {"<rate absspeed=\"-99\">a</rate><rate absspeed=\"99999999999\">b",
     "21:rate -10 a|58:rate 10 b"},
    {"<volume level='50'/>soft", "20:volume 50 soft"},
    {"<volume level='500'>loud</volume><volume level='-1'>none", "20:loud|52:volume 0 none"},
    {"<pitch absmiddle=\"-10\">low<pitch middle=\"+5\"/>er</pitch>er",
     "23:pitch -10 low|46:pitch -5 er|56:pitch 5 er"},
    {"<emph><rate speed=\"1\"/>a</emph>b", "23:emph rate 1 a|31:rate 1 b"},
    {"<rate absspeed=\"soon\">a<rate>b<rate speed=\"--1\">c", "22:a|29:b|48:c"},
    {"<emph>a<spell>b</emph>c</spell>d", "6:emph a|14:emph spell b|22:c|31:d"},
});

constexpr std::array kPronunciations = std::to_array<Reading>({
    {"<pron sym=\"h eh 1 l ow\"/>x", "25:phonemes 0 h|'E|l|oU|25:x"},
    {"<pron sym=\"h eh l ow 2\">hi <emph>you</emph></pron> x", "24:phonemes 19 h|E|l|,oU|50: x"},
    {"<pron sym=\"m iy - t\">not ended", "21:phonemes 0 m|i:|t|21:not ended"},
    {"<emph><pron sym=\"AE &amp; x & dh\"/>", "35:emph phonemes 0 a D"},
    {"<pron sym=\"1 ? \">read</pron><pron>this</pron>", "17:read|34:this"},
});

constexpr std::array kBookmarks = std::to_array<Reading>({
    {"a<bookmark mark=\"7 up\"/>b", "0:a|1:bookmark 7 up|24:b"},
    {"a<bookmark mark=\"\"/><bookmark/>b", "0:a|31:b"},
});

constexpr std::array kWithoutEffect = std::to_array<Reading>({
    {"<voice required=\"Gender=Female;Age!=Child\">x</voice>", "43:x"},
    {"<sapi><lang langid=\"409\"><context id=\"date\"><partofsp part=\"verb\">x", "66:x"},
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
INSTANTIATE_TEST_SUITE_P(Manners, Markup, ::testing::ValuesIn(kManners));
INSTANTIATE_TEST_SUITE_P(Pronunciations, Markup, ::testing::ValuesIn(kPronunciations));
INSTANTIATE_TEST_SUITE_P(Bookmarks, Markup, ::testing::ValuesIn(kBookmarks));
INSTANTIATE_TEST_SUITE_P(WithoutEffect, Markup, ::testing::ValuesIn(kWithoutEffect));
INSTANTIATE_TEST_SUITE_P(Text, Markup, ::testing::ValuesIn(kText));
INSTANTIATE_TEST_SUITE_P(Entities, Markup, ::testing::ValuesIn(kEntities));

TEST(DeepMarkup, IsReadAndChangesNothingMore) {
    std::string text;
    for (int i = 0; i < 100'000; ++i) text += "<emph>";
    text += "x";
    EXPECT_EQ(Told(ParseMarkup(text)), "600000:emph x");
}

TEST(BrokenText, CountsEachStrayByteAsACharacter) {
    EXPECT_EQ(Told(ParseMarkup("\x80\xFF<emph>\xC3")), "0:\x80\xFF|8:emph \xC3");
}

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

TEST(Pieces, BlankBehindAFullPieceGoesToTheNext) {
    const auto pieces = CutIntoPieces(PlainText(std::string(kLongestPiece, 'x') + " y"));
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_EQ(TextOf(pieces[0]).size(), kLongestPiece);
    EXPECT_EQ(TextOf(pieces[1]), " y");
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
    const auto spans = ParseMarkup(text);
    const Notation notation = Notate(CutIntoPieces(spans).at(0), FindWords(spans));
    EXPECT_EQ(notation.origins.size(), CharacterCount(notation.text));
    return notation.text;
}

TEST(NotationText, EmphasisIsSlowerHigherAndLouder) {
    EXPECT_EQ(NotationOf("<emph>x</emph>y"),
              "\x01"
              "149S\x01"
              "61P\x01"
              "120Ax\x01"
              "175S\x01"
              "50P\x01"
              "100Ay");
}

TEST(NotationText, SpelledTextIsLettersAndNamesOfSigns) {
    EXPECT_EQ(NotationOf("<spell>c-a</spell>"), " c dash [['eI]] ");
}

TEST(NotationText, TypedSettingsAndPhonemesAreDefused) {
    EXPECT_EQ(NotationOf("a\x01"
                         "9S[[b]]\t[[[&#1;"),
              "a 9S[ b]] [ [ ");
    EXPECT_EQ(NotationOf("[&#91;<spell>[[</spell>"), "[  left bracket left bracket ");
}

TEST(NotationText, NeighboursInOneMannerNeedNoSetting) {
    EXPECT_EQ(NotationOf("<volume level=\"50\">a</volume><volume level=\"50\">b"),
              "\x01"
              "50Aab\x01"
              "100A");
}

TEST(NotationText, TheFastestAndTheSlowestAreWhatTheSynthesiserCanDo) {
    EXPECT_EQ(NotationOf("<rate absspeed=\"10\">a<rate absspeed=\"-10\">b"),
              "\x01"
              "450Sa\x01"
              "80Sb\x01"
              "175S");
}

TEST(NotationText, WhatTheRecogniserHearsIsSaidWithAGuessedStress) {
    EXPECT_EQ(PronunciationOf("HH AH L OW"), "h ax l ow 1");
    EXPECT_EQ(PronunciationOf("K AO R V EY N"), "k ao 1 r v ey n");
    EXPECT_EQ(PronunciationOf("B AH N AE N AH"), "b ax n ae 1 n ax");
    EXPECT_EQ(PronunciationOf("M AH DH ER"), "m ah 1 dh er");
    EXPECT_EQ(PronunciationOf("K AH M P AH N IY"), "k ah 1 m p ax n iy");
    EXPECT_EQ(PronunciationOf("S IY "), "s iy 1");
    EXPECT_EQ(PronunciationOf("SH T"), "sh t");
    EXPECT_EQ(PronunciationOf("  "), "");
}

TEST(NotationText, PronunciationIsPhonemes) {
    EXPECT_EQ(NotationOf("a[<pron sym=\"h ay\">b</pron>"), "a[ [[h|aI]] ");
}

TEST(NotationText, ComparisonsAreNamedAndBracketsAreNot) {
    EXPECT_EQ(NotationOf("a < b &gt; c <b>"), "a  less than  b  greater than  c <b>");
    EXPECT_EQ(NotationOf("a<b, 5&gt;3 <18"), "a less than b, 5 greater than 3  less than 18");
}

TEST(NotationText, EmptyLineEndsASentence) {
    EXPECT_EQ(NotationOf("a\r\n \r\nb\nc"), "a    \n\nb c");
}

TEST(NotationText, WhatIsNoCharacterIsABlank) {
    EXPECT_EQ(NotationOf("a\x80\xED\xA0\x80\xC2\x85z\xE2\x82\xAC"), "a   z\xE2\x82\xAC");
}

}  // namespace
}  // namespace corvane::engine
