// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/text_writer.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "engine/recogniser/spoken_marks.h"

namespace corvane::engine {
namespace {

std::vector<std::string> WordsOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

/// What is written of words and tokens such as "@comma", each phrase between bars.
std::string Write(TextWriter& writer, const std::string& spoken) {
    std::string text;
    for (const WrittenPhrase& phrase : writer.Write(WordsOf(spoken))) {
        text += text.empty() ? "" : "|";
        for (std::size_t i = 0; i < phrase.words.size(); ++i)
            text += (i == 0 ? "" : " ") + phrase.words[i];
    }
    return text;
}

std::string Written(const std::string& spoken) {
    TextWriter writer;
    return Write(writer, spoken);
}

TEST(TextWriter, NothingSaidIsNothingWritten) {
    EXPECT_EQ(Written(""), "");
}

TEST(TextWriter, FirstWordHasACapital) {
    EXPECT_EQ(Written("the train was late"), "The train was late");
}

TEST(TextWriter, IHasACapitalEverywhere) {
    EXPECT_EQ(Written("so i said i'm late"), "So I said I'm late");
}

TEST(TextWriter, NamesOfDaysMonthsAndPeoplesHaveCapitals) {
    EXPECT_EQ(Written("on monday the french left and in may it rained"),
              "On Monday the French left and in may it rained");
}

TEST(TextWriter, TitlesAreSpelledAsOneReadsThem) {
    EXPECT_EQ(Written("so mr miller met mrs jones"), "So Mr. miller met Mrs. jones");
}

TEST(TextWriter, SignsStandAtTheWordBeforeThem) {
    EXPECT_EQ(Written("bread @comma butter @semicolon @colon cheese @period"),
              "Bread, butter;: cheese.");
}

TEST(TextWriter, CapitalFollowsTheEndOfASentence) {
    EXPECT_EQ(Written("stop @exclamation_mark who @question_mark me @full_stop now @colon then"),
              "Stop! Who? Me. Now: then");
}

TEST(TextWriter, QuotesStandAtWhatTheyHold) {
    EXPECT_EQ(Written("he said @comma @open_quote i am late @period @close_quote then he left"),
              "He said, \"I am late.\" Then he left");
}

TEST(TextWriter, QuoteThatBeginsASentenceLeavesTheCapitalToItsWord) {
    EXPECT_EQ(Written("@open_quote no @close_quote"), "\"No\"");
}

TEST(TextWriter, HyphenJoinsItsWordsAndDashPartsThem) {
    EXPECT_EQ(Written("a well @hyphen known man @dash my friend"), "A well-known man - my friend");
}

TEST(TextWriter, LineBreakIsAPhraseOfItsOwn) {
    EXPECT_EQ(Written("yours sincerely @comma @new_line peter"), "Yours sincerely,|\r|Peter");
}

TEST(TextWriter, ParagraphIsTwoLineBreaks) {
    EXPECT_EQ(Written("the end @new_paragraph again"), "The end|\r|\r|Again");
}

TEST(TextWriter, SignBehindALineBreakStandsAlone) {
    EXPECT_EQ(Written("one @new_line @comma two"), "One|\r|, Two");
}

TEST(TextWriter, PhraseScratchedBehindALineBreakLeavesTheCapitalToTheNext) {
    TextWriter writer;
    Write(writer, "we walk");
    EXPECT_EQ(Write(writer, "home @period @new_line then"), "home.|\r|Then");
    Write(writer, "scratch that");
    EXPECT_EQ(Write(writer, "now"), "Now");
}

TEST(TextWriter, MarkSaidAloneStandsAlone) {
    EXPECT_EQ(Written("@comma"), ",");
    EXPECT_EQ(Written("@new_line"), "\r");
    EXPECT_EQ(Written("@new_paragraph"), "\r|\r");
}

TEST(TextWriter, NameOfAMarkSaidAloneIsTheMark) {
    for (const SpokenMark& mark : SpokenMarks()) {
        TextWriter by_name;
        EXPECT_EQ(Write(by_name, std::string(mark.name)), Written(std::string(mark.token)));
        EXPECT_EQ(by_name.Write(WordsOf(std::string(mark.name))).front().last,
                  WordsOf(std::string(mark.name)).size() - 1);
    }
}

TEST(TextWriter, NameOfAMarkWithinWordsIsWords) {
    EXPECT_EQ(Written("a long period of time"), "A long period of time");
}

TEST(TextWriter, MarkBeforeOfIsTheWordsItIsCalledBy) {
    EXPECT_EQ(Written("a new @period of peace"), "A new period of peace");
    EXPECT_EQ(Written("a @new_line of houses"), "A new line of houses");
    EXPECT_EQ(Written("@question_mark of course"), "Question mark of course");
    EXPECT_EQ(Written("yes @comma of course"), "Yes, of course");
}

TEST(TextWriter, SentenceGoesOnInTheNextUtterance) {
    TextWriter writer;
    EXPECT_EQ(Write(writer, "i went home"), "I went home");
    EXPECT_EQ(Write(writer, "and slept"), "and slept");
    EXPECT_EQ(Write(writer, "@period"), ".");
    EXPECT_EQ(Write(writer, "it was late"), "It was late");
}

TEST(TextWriter, EditingPhrasesAreLeftAsTheyAre) {
    for (const std::string phrase : {"delete", "train that", "quit dictation", "clear everything",
                                     "scratch that", "print page"})
        EXPECT_EQ(Written(phrase), phrase);
}

TEST(TextWriter, EditingPhraseWithinWordsIsText) {
    EXPECT_EQ(Written("please print page three"), "Please print page three");
}

TEST(TextWriter, BehindScratchedTextItGoesOnAsBefore) {
    TextWriter writer;
    EXPECT_EQ(Write(writer, "the end @period"), "The end.");
    EXPECT_EQ(Write(writer, "now we go"), "Now we go");
    EXPECT_EQ(Write(writer, "scratch that"), "scratch that");
    EXPECT_EQ(Write(writer, "then we went"), "Then we went");
}

TEST(TextWriter, ScratchingTwiceTakesBackOnePhrase) {
    TextWriter writer;
    EXPECT_EQ(Write(writer, "so it was"), "So it was");
    EXPECT_EQ(Write(writer, "and that is all"), "and that is all");
    EXPECT_EQ(Write(writer, "scratch that"), "scratch that");
    EXPECT_EQ(Write(writer, "scratch that"), "scratch that");
    EXPECT_EQ(Write(writer, "or not"), "or not");
}

TEST(TextWriter, ClearedTextBeginsAnew) {
    TextWriter writer;
    EXPECT_EQ(Write(writer, "hello there"), "Hello there");
    EXPECT_EQ(Write(writer, "clear everything"), "clear everything");
    EXPECT_EQ(Write(writer, "hello again"), "Hello again");
}

TEST(TextWriter, StartedAnewItBeginsASentence) {
    TextWriter writer;
    EXPECT_EQ(Write(writer, "hello there"), "Hello there");
    writer.StartAnew();
    EXPECT_EQ(Write(writer, "hello again"), "Hello again");
}

TEST(TextWriter, PhrasesTellOfWhichWordsTheyAreMade) {
    TextWriter writer;
    const auto phrases =
        writer.Write(WordsOf("the end @period @new_line good @hyphen bye then @comma"));
    ASSERT_EQ(phrases.size(), 3U);
    EXPECT_EQ(phrases[0].first, 0U);
    EXPECT_EQ(phrases[0].last, 2U);
    EXPECT_EQ(phrases[1].first, 3U);
    EXPECT_EQ(phrases[1].last, 3U);
    EXPECT_EQ(phrases[2].first, 4U);
    EXPECT_EQ(phrases[2].last, 8U);
    EXPECT_EQ(phrases[2].words, (std::vector<std::string>{"Good-bye", "then,"}));
}

}  // namespace
}  // namespace corvane::engine
