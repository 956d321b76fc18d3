// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/phrase_rivals.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "engine/speech_engine.h"

namespace corvane::engine {
namespace {

constexpr std::int16_t kPoor = 40;

/// A graph of hand-made words, and an utterance in which given phones fit perfectly.
class PhraseRivalsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(model_);
        scores_.senones = model_->Senones();
    }

    int NewState() { return graph_.states++; }

    int NewWord(const std::string& spelling, int rule, const std::string& phones) {
        graph_.words.push_back({.spelling = spelling, .rule = rule, .pronunciations = {phones}});
        return static_cast<int>(graph_.words.size()) - 1;
    }

    void Connect(int from, int to, int word = WordGraph::kNoWord) {
        graph_.arcs.push_back({.from = from, .to = to, .word = word});
    }

    /// A rule that is one word.
    int AddRule(const std::string& spelling, int rule, const std::string& phones) {
        const int word = NewWord(spelling, rule, phones);
        const int state = NewState();
        const int end = NewState();
        Connect(WordGraph::kStart, state);
        Connect(state, end, word);
        Connect(end, WordGraph::kFinal);
        return word;
    }

    /// The phones one after the other, whatever stands beside them, with stillness around.
    void Say(const std::string& phones) {
        std::istringstream names("SIL " + phones + " SIL");
        for (std::string name; names >> name;)
            for (std::size_t phone = 0; phone < model_->Phones(); ++phone)
                if (phone == *model_->Phone(name)) Fit(phone);
    }

    [[nodiscard]] RivalMargins MarginsOf(const std::vector<int>& words) const {
        return PhraseRivals(graph_, *model_).Margins(words, scores_);
    }

    std::optional<ModelDefinition> model_ =
        ModelDefinition::Load(SpeechEngineConfig().acoustic_model);
    WordGraph graph_;
    SenoneScores scores_;

private:
    /// Every senone of a phone, in whatever place, is at its best for some frames a state.
    void Fit(std::size_t phone) {
        constexpr int kFrames = 3;
        for (std::size_t state = 0; state < ModelDefinition::kStates; ++state)
            for (int i = 0; i < kFrames; ++i) {
                const std::size_t begin = scores_.costs.size();
                scores_.costs.resize(begin + scores_.senones, kPoor);
                scores_.costs[begin + model_->Alone(phone)[state]] = 0;
                for (std::size_t before = 0; before < model_->Phones(); ++before)
                    for (std::size_t after = 0; after < model_->Phones(); ++after)
                        for (const auto position :
                             {ModelDefinition::Position::inside, ModelDefinition::Position::first,
                              ModelDefinition::Position::last, ModelDefinition::Position::only})
                            scores_.costs[begin + model_->Between(before, phone, after,
                                                                  position)[state]] = 0;
            }
    }
};

TEST_F(PhraseRivalsTest, AWordWithoutAnyOtherHasNoRival) {
    const int no = AddRule("no", 0, "N OW");
    Say("N OW");
    const RivalMargins margins = MarginsOf({no});
    EXPECT_EQ(margins.rule, RivalMargins::kNone);
    EXPECT_EQ(margins.choice, RivalMargins::kNone);
}

TEST_F(PhraseRivalsTest, AnotherRuleThatFitsAsWellIsClose) {
    const int no = AddRule("no", 0, "N OW");
    AddRule("mow", 1, "N OW");
    AddRule("cat", 2, "K AE T");
    Say("N OW");
    EXPECT_EQ(MarginsOf({no}).rule, 0.0);
}

TEST_F(PhraseRivalsTest, AnotherRuleThatFitsWorseIsAsFarAsItsSound) {
    const int no = AddRule("no", 0, "N OW");
    AddRule("go", 1, "G OW");
    Say("N OW");
    const RivalMargins margins = MarginsOf({no});
    EXPECT_GT(margins.rule, 300.0);
    EXPECT_LE(margins.rule, RivalMargins::kNone);
}

TEST_F(PhraseRivalsTest, AReadingThatFitsWorseThanItsRivalIsBelowIt) {
    const int no = AddRule("no", 0, "N OW");
    AddRule("go", 1, "G OW");
    Say("G OW");
    EXPECT_LT(MarginsOf({no}).rule, 0.0);
}

TEST_F(PhraseRivalsTest, TheSameWordsInAnotherRuleAreNoRival) {
    const int no = AddRule("no", 0, "N OW");
    AddRule("no", 1, "N OW");
    Say("N OW");
    EXPECT_EQ(MarginsOf({no}).rule, RivalMargins::kNone);
}

TEST_F(PhraseRivalsTest, ALetterHasTheOthersOfItsListAsRivals) {
    const int state = NewState();
    const int end = NewState();
    Connect(WordGraph::kStart, state);
    Connect(end, WordGraph::kFinal);
    std::vector<int> letters;
    char letter = 'a';
    for (const char* name : {"B IY", "D IY", "EH F", "Y UW", "OW", "AA R"}) {
        letters.push_back(NewWord(std::string(1, letter++), 0, name));
        Connect(state, end, letters.back());
    }
    Say("B IY");
    const double far = MarginsOf({letters[0]}).choice;
    EXPECT_GT(far, 300.0);
    EXPECT_LT(far, RivalMargins::kNone);
    EXPECT_LT(MarginsOf({letters[1]}).choice, 0.0);
}

TEST_F(PhraseRivalsTest, AnotherWordOfTheSameRuleIsAnotherWayToSayIt) {
    const int state = NewState();
    const int end = NewState();
    Connect(WordGraph::kStart, state);
    Connect(end, WordGraph::kFinal);
    const int exit = NewWord("exit", 0, "B IY");
    Connect(state, end, exit);
    Connect(state, end, NewWord("quit", 0, "B IY"));
    Say("B IY");
    const RivalMargins margins = MarginsOf({exit});
    EXPECT_EQ(margins.choice, RivalMargins::kNone);
}

TEST_F(PhraseRivalsTest, AnOptionalWordMoreOrLessIsNoRival) {
    const int state = NewState();
    const int middle = NewState();
    const int end = NewState();
    const int copy = NewWord("copy", 0, "K AA P");
    Connect(WordGraph::kStart, state);
    Connect(state, middle, copy);
    Connect(middle, end, NewWord("it", 0, "IH T"));
    Connect(middle, end);
    Connect(end, WordGraph::kFinal);
    Say("K AA P IH T");
    const RivalMargins margins = MarginsOf({copy});
    EXPECT_EQ(margins.choice, RivalMargins::kNone);
    EXPECT_EQ(margins.rule, RivalMargins::kNone);
}

TEST_F(PhraseRivalsTest, RulesThatShareTheirFirstAndLastWordsAreRivalsByWhatLiesBetween) {
    const int run = NewWord("run", 0, "R AH N");
    const int no = NewWord("no", 0, "N OW");
    const int please = NewWord("please", 0, "P L IY Z");
    const int mow = NewWord("mow", 1, "N OW");
    const int cat = NewWord("cat", 2, "K AE T");
    const int shared_run = NewWord("run", 0, "R AH N");
    const int shared_please = NewWord("please", 0, "P L IY Z");
    for (const int word : {shared_run, shared_please})
        graph_.words[static_cast<std::size_t>(word)].shared = true;
    graph_.first_words = {0, 3, 4, 5};
    const int begun = NewState();
    const int named = NewState();
    Connect(WordGraph::kStart, begun, shared_run);
    Connect(begun, named, no);
    Connect(begun, named, cat);
    Connect(named, WordGraph::kFinal, shared_please);

    std::vector<int> heard{shared_run, no, shared_please};
    graph_.Attribute(heard);
    ASSERT_EQ(heard, (std::vector<int>{run, no, please}));
    Say("R AH N N OW P L IY Z");
    const RivalMargins apart = MarginsOf(heard);
    EXPECT_GT(apart.rule, 300.0);

    Connect(begun, named, mow);
    EXPECT_EQ(MarginsOf(heard).rule, 0.0);
}

TEST_F(PhraseRivalsTest, WordsThatTheGraphDoesNotAllowHaveNoMargins) {
    const int no = AddRule("no", 0, "N OW");
    Say("N OW");
    EXPECT_EQ(MarginsOf({no, no}).rule, RivalMargins::kNone);
    EXPECT_EQ(MarginsOf({}).rule, RivalMargins::kNone);
}

}  // namespace
}  // namespace corvane::engine
