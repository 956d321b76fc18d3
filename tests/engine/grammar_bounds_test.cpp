// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// What a file can do to the recogniser, whoever wrote it: from the loader to the search.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <random>
#include <string>

#include "engine/grammar/grammar_loader.h"
#include "engine/grammar/letter_to_sound.h"
#include "engine/grammar/word_graph.h"
#include "platform/error.h"
#include "support/room.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

using testing::GrammarOf;
using testing::Listening;
using testing::Room;
using testing::RuleOf;
using testing::Say;
using testing::TemporaryFile;

/// The reason for which it is no grammar; empty when it is one.
std::string RefusalOf(const std::function<void()>& load) {
    try {
        load();
    } catch (const RuntimeError& error) {
        return error.what();
    }
    return {};
}

std::string RefusalOf(const std::string& xml) {
    return RefusalOf([&] { (void)ParseGrammar(xml); });
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::string Rules(int count, const std::function<std::string(int)>& phrase) {
    std::string rules;
    for (int i = 0; i < count; ++i) rules += RuleOf("r" + std::to_string(i), phrase(i));
    return rules;
}

std::string NumberedWord(int i) {
    return "word" + std::to_string(i);
}

/// A made-up word for each number, said in one way.
std::string Syllables(int i) {
    std::string word;
    for (int n = 0; n < 4; ++n, i /= 12)
        word += std::string(1, "bdfgklmnprst"[i % 12]) + "aeo"[n % 3];
    return word;
}

std::string RandomBytes(std::size_t count) {
    std::mt19937 random(20011);
    std::uniform_int_distribution<int> byte(0, 255);
    std::string bytes(count, '\0');
    for (char& b : bytes) b = static_cast<char>(byte(random));
    return bytes;
}

TEST(GrammarBounds, RandomBytesAreNoGrammar) {
    EXPECT_NE(RefusalOf(RandomBytes(GrammarLimits::kBytes)), "");
    const TemporaryFile file(RandomBytes(10'000'000));
    EXPECT_TRUE(Contains(RefusalOf([&] { (void)LoadGrammar(file.Path()); }), "too large"));
}

TEST(GrammarBounds, HugeFileIsNotReadWhole) {
    const TemporaryFile file;
    // Of holes alone: it takes no space, but who read it all would take as much memory.
    std::filesystem::resize_file(file.Path(), 100'000'000'000);
    EXPECT_TRUE(Contains(RefusalOf([&] { (void)LoadGrammar(file.Path()); }), "too large"));
}

TEST(GrammarBounds, OnlyARegularFileIsOpened) {
    const TemporaryFile name;
    const std::string pipe = name.Path() + ".pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path :
         {pipe, std::filesystem::temp_directory_path().string(), std::string("/dev/zero"),
          std::string("/dev/full"), name.Path() + "/below_a_file", std::string()}) {
        try {
            (void)LoadGrammar(path);
            ADD_FAILURE() << path << " was accepted";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), kFileNotFound) << path;
        }
    }
    std::filesystem::remove(pipe);
}

TEST(GrammarBounds, EntitiesThatGrowAreNotExpanded) {
    std::string entities = "<!ENTITY a0 \"lol\">";
    for (int i = 1; i < 30; ++i) {
        const std::string last = "&a" + std::to_string(i - 1) + ";";
        entities += "<!ENTITY a" + std::to_string(i) + " \"" + last + last + "\">";
    }
    const std::string refusal =
        RefusalOf("<!DOCTYPE GRAMMAR [" + entities + "]>" + GrammarOf(RuleOf("laughs", "&a29;")));
    EXPECT_TRUE(Contains(refusal, "a document type")) << refusal;
}

TEST(GrammarBounds, AsManyRulesAsAllowedAreReadAndOneMoreIsNot) {
    const int most = static_cast<int>(GrammarLimits::kRules);
    EXPECT_EQ(ParseGrammar(GrammarOf(Rules(most, NumberedWord))).rules.size(),
              GrammarLimits::kRules);
    EXPECT_TRUE(Contains(RefusalOf(GrammarOf(Rules(most + 1, NumberedWord))), "too many rules"));
}

TEST(GrammarBounds, HundredThousandRulesAreRefused) {
    EXPECT_TRUE(Contains(RefusalOf(GrammarOf(Rules(100'000, NumberedWord))), "too many rules"));
}

TEST(GrammarBounds, RuleMayNotHaveMorePhrasesThanAllowed) {
    std::string phrases;
    for (std::size_t i = 0; i < GrammarLimits::kElements; ++i) phrases += "<O>a</O>";
    const auto in_rule = [](const std::string& body) {
        return GrammarOf(R"(<RULE NAME="r" TOPLEVEL="ACTIVE">)" + body + "</RULE>");
    };
    EXPECT_EQ(RefusalOf(in_rule(phrases)), "");
    EXPECT_TRUE(Contains(RefusalOf(in_rule(phrases + "<P>b</P>")), "too many phrases in a rule"));
}

TEST(GrammarBounds, SmallFileWithTooLargeAGraphIsRefused) {
    const auto hundred_words = [](int i) {
        std::string phrase = NumberedWord(i);
        for (int word = 0; word < 100; ++word) phrase += " a";
        return phrase;
    };
    const std::string refusal = RefusalOf(GrammarOf(Rules(300, hundred_words)));
    EXPECT_TRUE(Contains(refusal, "too many ways to speak")) << refusal;
}

TEST(GrammarBounds, LongWordHasNoSound) {
    EXPECT_EQ(LetterToSound(std::string(1'000'000, 'a')), "");
    EXPECT_EQ(LetterToSound(std::string(kLongestWord + 1, 'a')), "");
    EXPECT_NE(LetterToSound("pneumonoultramicroscopicsilicovolcanoconiosis"), "");
}

class GrammarBoundsHeard : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }

    /// What the rules hear of a phrase.
    static std::string Heard(const std::string& rules, const std::string& phrase) {
        const TemporaryFile file(GrammarOf(rules));
        Room room;
        const Listening listening(*room.engine, file.Path());
        room.HearToTheEnd(Say(phrase));
        return listening.recognised.size() == 1 ? testing::Told(listening.recognised[0]) : "none";
    }
};

TEST_F(GrammarBoundsHeard, MegabyteKeywordHarmsNoOtherRule) {
    const std::string one_word(1'000'000, 'x');
    std::string many_words;
    for (int i = 0; many_words.size() < 1'000'000; ++i) many_words += NumberedWord(i) + " ";
    EXPECT_EQ(Heard(RuleOf("word", one_word) + RuleOf("words", many_words) +
                        RuleOf("good", "maximize window"),
                    "maximize window"),
              "good: maximize window");
}

TEST_F(GrammarBoundsHeard, OneOfTenThousandKeywordsIsHeard) {
    EXPECT_EQ(
        Heard(Rules(10'000, Syllables) + RuleOf("good", "maximize window"), "maximize window"),
        "good: maximize window");
}

TEST_F(GrammarBoundsHeard, LongestChainOfOptionalWordsIsSearched) {
    std::string rules;
    for (int rule = 0; rule < 200; ++rule) {
        rules += "<RULE NAME=\"r" + std::to_string(rule) + "\" TOPLEVEL=\"ACTIVE\">";
        for (std::size_t i = 1; i < GrammarLimits::kElements; ++i)
            rules += "<O>" + Syllables(static_cast<int>(i) + 20 * rule) + "</O>";
        rules += "<P>never</P></RULE>\n";
    }
    EXPECT_EQ(Heard(rules + RuleOf("good", "maximize window"), "maximize window"),
              "good: maximize window");
}

TEST_F(GrammarBoundsHeard, RefusedGrammarLeavesTheEngineAwakeForTheNext) {
    const TemporaryFile bad(RandomBytes(1000));
    const TemporaryFile good(GrammarOf(RuleOf("good", "maximize window")));
    Room room;
    const auto context = room.engine->CreateSpSharedRecoContext();
    const auto grammar = context->CreateGrammar(0);
    EXPECT_THROW(grammar->CmdLoadFromFile(bad.Path(), SLODynamic), RuntimeError);
    EXPECT_EQ(grammar->Rules()->Count(), 0);
    const Listening listening(*room.engine, good.Path());
    room.HearToTheEnd(Say("maximize window"));
    ASSERT_EQ(listening.recognised.size(), 1U);
    EXPECT_EQ(testing::Told(listening.recognised[0]), "good: maximize window");
}

}  // namespace
}  // namespace corvane::engine
