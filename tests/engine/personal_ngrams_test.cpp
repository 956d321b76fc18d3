// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/lexicon/personal_ngrams.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvane::engine {
namespace {

using Sentences = std::vector<std::string>;

bool HasLine(const std::string& text, const std::string& begin) {
    return text.find("\n" + begin) != std::string::npos;
}

TEST(PersonalNgrams, ATextIsCutIntoSentencesWithoutSignsAndCapitals) {
    EXPECT_EQ(SentencesOf("Dear Zorbel,\nI don't KNOW: \"well-known\" -- 'so' it is (now)."),
              (Sentences{"dear zorbel", "i don't know", "well-known so it is now"}));
    EXPECT_EQ(SentencesOf(" ... \n\n !"), Sentences());
    EXPECT_EQ(SentencesOf(""), Sentences());
    EXPECT_EQ(SentencesOf(std::string(5, '\0') + "a<b>c"), (Sentences{"a b c"}));
}

TEST(PersonalNgrams, PairsOfTheTextAreLikelierThanItsWordsElsewhere) {
    const std::string ngrams = NgramsOf({.words = {}, .sentences = {"open the zorbel"}});
    EXPECT_TRUE(HasLine(ngrams, "ngram 1=6\n"));
    EXPECT_TRUE(HasLine(ngrams, "ngram 2=4\n"));
    // One in a thousand by itself, every other time behind "the".
    EXPECT_TRUE(HasLine(ngrams, "-3.0")) << ngrams;
    EXPECT_TRUE(HasLine(ngrams, "-0.30")) << ngrams;
    EXPECT_TRUE(ngrams.find(" the zorbel\n") != std::string::npos);
}

TEST(PersonalNgrams, WordsAloneHaveNoPairs) {
    const std::string ngrams = NgramsOf({.words = {{"zorbel", {"Z AO R"}}}, .sentences = {}});
    EXPECT_TRUE(HasLine(ngrams, "ngram 1=4\n"));
    EXPECT_EQ(ngrams.find("2-grams"), std::string::npos);
    EXPECT_TRUE(ngrams.find(" zorbel ") != std::string::npos);
}

}  // namespace
}  // namespace corvane::engine
