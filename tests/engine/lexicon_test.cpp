// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/lexicon.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/speech_engine.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

using Ways = std::vector<std::string>;

Grammar GrammarOfWord(const std::string& word) {
    return {.rules = {{.name = "r",
                       .id = 0,
                       .marked_active = true,
                       .elements = {{.optional = false, .choices = {{word}}}}}}};
}

class LexiconTest : public ::testing::Test {
protected:
    Ways WaysToSay(const std::string& word) {
        lexicon.Learn(GrammarOfWord(word));
        return lexicon.Pronunciations(word);
    }

    testing::TemporaryFile words{
        "a AH\na(2) EY\ncafe K AH F EY\ncafe(2) K AE F EY\n"
        "don't D OW N T\nit IH T\nzip Z IH P\nzip(2) Z AH P\n"
        "seven S EH V AH N\nplus P L AH S\nnotepad N OW T P AE D\n"};
    Lexicon lexicon{Dictionary(words.Path())};
};

TEST_F(LexiconTest, DictionaryIsAskedFirstInAnyCase) {
    EXPECT_EQ(WaysToSay("Cafe"), (Ways{"K AH F EY", "K AE F EY"}));
    EXPECT_EQ(WaysToSay("a"), (Ways{"AH", "EY"}));
}

TEST_F(LexiconTest, AccentsAndTypographicApostrophesAreFoundInTheDictionary) {
    EXPECT_EQ(WaysToSay("caf\u00E9"), (Ways{"K AH F EY", "K AE F EY"}));
    EXPECT_EQ(WaysToSay("don\u2019t"), Ways{"D OW N T"});
}

TEST_F(LexiconTest, PartsOfAWordAreSaidByTheDictionaryToo) {
    EXPECT_EQ(WaysToSay("7zip"), Ways{"S EH V AH N Z IH P"});
    EXPECT_EQ(WaysToSay("notepad++"), Ways{"N OW T P AE D P L AH S P L AH S"});
}

TEST_F(LexiconTest, AcronymIsSpelledAndSaidAsAWord) {
    EXPECT_EQ(WaysToSay("GIMP"), (Ways{"JH IY AY EH M P IY", "G IH M P"}));
    EXPECT_EQ(WaysToSay("IT"), (Ways{"IH T", "AY T IY"}));
    EXPECT_EQ(WaysToSay("it"), Ways{"IH T"});
}

TEST_F(LexiconTest, LetterInAWordIsSaidByItsNameNotAsTheArticle) {
    EXPECT_EQ(WaysToSay("BAK").front(), "B IY EY K EY");
}

TEST_F(LexiconTest, EveryLetterHasTheNameThatTheDictionaryGivesIt) {
    Lexicon real{Dictionary(SpeechEngineConfig().dictionary)};
    for (char letter = 'b'; letter <= 'z'; ++letter) {
        const std::string alone(1, letter);
        real.Learn(GrammarOfWord(alone));
        const std::string twice = alone + "-" + alone;
        real.Learn(GrammarOfWord(twice));
        ASSERT_FALSE(real.Pronunciations(twice).empty()) << letter;
        bool found = false;
        for (const std::string& name : real.Pronunciations(alone))
            found = found || real.Pronunciations(twice).front() == name + " " + name;
        EXPECT_TRUE(found) << letter << ": " << real.Pronunciations(twice).front();
    }
}

TEST_F(LexiconTest, WhatHasNoSoundHasNoPronunciation) {
    for (const char* word : {"---", "'", "\u65E5\u672C", "\xFF\xFE"})
        EXPECT_EQ(WaysToSay(word), Ways{}) << word;
    EXPECT_EQ(WaysToSay(std::string(kLongestWord + 1, 'a')), Ways{});
}

TEST_F(LexiconTest, EverythingWithALetterOrADigitCanBeSaid) {
    for (const char* word : {"c",
                             "KDE",
                             "usb",
                             "7zip",
                             "2048",
                             "LibreOffice",
                             "VLC",
                             "iTunes",
                             "wi-fi",
                             "mpv",
                             "\u00DCbersicht",
                             "\u041C\u043E\u0441\u043A\u0432\u0430",
                             "node.js",
                             "c#",
                             "at&t",
                             "\u00DF",
                             "xkcd",
                             "x86_64",
                             "(x)",
                             "'x",
                             "C:\\tools",
                             "strngthlss",
                             "aaaa",
                             "q"})
        EXPECT_FALSE(WaysToSay(word).empty()) << word;
}

TEST_F(LexiconTest, NeverMoreThanAFewWays) {
    EXPECT_LE(WaysToSay("KDE2048GIMP1999").size(), Lexicon::kMostWays);
}

}  // namespace
}  // namespace corvane::engine
