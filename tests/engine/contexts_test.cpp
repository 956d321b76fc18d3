// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <chrono>

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
using testing::Told;
using std::chrono_literals::operator""ms;

const std::string kTime =
    R"(<RULE NAME="the time" TOPLEVEL="ACTIVE"><P>what time is it</P><O>Please</O></RULE>)";

class Contexts : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }

    TemporaryFile time_file{GrammarOf(kTime)};
    TemporaryFile window_file{GrammarOf(RuleOf("maximize", "maximize window"))};
    Room room;
};

TEST_F(Contexts, PhraseIsReportedInTheGrammarsOwnSpelling) {
    Listening listening(*room.engine, time_file.Path());
    room.HearToTheEnd(Say("what time is it please"));
    ASSERT_EQ(listening.recognised.size(), 1U);
    const auto phrase = listening.recognised[0]->PhraseInfo();
    EXPECT_EQ(phrase->Rule()->Name(), "the time");
    EXPECT_EQ(phrase->Rule()->Confidence(), SECHighConfidence);
    EXPECT_EQ(phrase->GetText(0, -1, true), "what time is it Please");
    EXPECT_EQ(phrase->GetText(1, 2, true), "time is");
    EXPECT_THROW((void)phrase->GetText(5, -1, true), RuntimeError);
}

TEST_F(Contexts, PositionIsWhereThePhraseBeginsInTheStream) {
    Listening listening(*room.engine, time_file.Path());
    room.HearToTheEnd(testing::Joined(testing::Stillness(2000ms), Say("what time is it")));
    ASSERT_EQ(listening.positions.size(), 1U);
    EXPECT_GE(listening.positions[0], 32000 * 23 / 10);
    EXPECT_LE(listening.positions[0], 32000 * 28 / 10);
}

TEST_F(Contexts, HypothesesComeBeforeTheRecognitionAndAreNeverSure) {
    Listening listening(*room.engine, time_file.Path());
    room.HearToTheEnd(Say("what time is it please"));
    ASSERT_FALSE(listening.supposed.empty());
    for (const auto& result : listening.supposed) {
        EXPECT_LT(result->PhraseInfo()->Rule()->Confidence(), SECHighConfidence);
        EXPECT_EQ(result->PhraseInfo()->Rule()->Name(), "the time");
    }
}

TEST_F(Contexts, EventsOutsideTheInterestsAreNotRaised) {
    Listening only_final(*room.engine, time_file.Path(), SRERecognition);
    Listening only_guesses(*room.engine, window_file.Path(), SREHypothesis);
    room.HearToTheEnd(testing::Joined(Say("what time is it"), Say("maximize window")));
    EXPECT_EQ(only_final.recognised.size(), 1U);
    EXPECT_TRUE(only_final.supposed.empty());
    EXPECT_TRUE(only_guesses.recognised.empty());
    EXPECT_FALSE(only_guesses.supposed.empty());
}

TEST_F(Contexts, InterestsTakenBackHoldForWhatIsQueued) {
    Listening listening(*room.engine, time_file.Path());
    room.microphone.Hear(Say("what time is it"));
    room.microphone.HangUp();
    room.engine->WaitForEndOfStream();
    listening.context->SetEventInterests(0);
    room.messages.Run();
    EXPECT_TRUE(listening.recognised.empty());
    EXPECT_TRUE(listening.supposed.empty());
}

TEST_F(Contexts, DisconnectedHandlersMissWhatIsQueued) {
    Listening listening(*room.engine, time_file.Path());
    room.microphone.Hear(Say("what time is it"));
    room.microphone.HangUp();
    room.engine->WaitForEndOfStream();
    listening.context->Advise({});
    room.messages.Run();
    EXPECT_TRUE(listening.recognised.empty());
    EXPECT_TRUE(listening.supposed.empty());
}

TEST_F(Contexts, ReplacedContextIsSilentAndItsSuccessorHearsOnce) {
    Listening listening(*room.engine, time_file.Path());
    Listening successor(*room.engine, time_file.Path());
    listening.context.reset();
    room.HearToTheEnd(Say("what time is it"));
    EXPECT_TRUE(listening.recognised.empty());
    EXPECT_EQ(successor.recognised.size(), 1U);
}

TEST_F(Contexts, ReleasedContextMissesWhatIsQueued) {
    Listening listening(*room.engine, time_file.Path());
    room.microphone.Hear(Say("what time is it"));
    room.microphone.HangUp();
    room.engine->WaitForEndOfStream();
    listening.context.reset();
    room.messages.Run();
    EXPECT_TRUE(listening.recognised.empty());
}

TEST_F(Contexts, ContextMayBeReplacedByItsOwnHandler) {
    auto context = room.engine->CreateSpSharedRecoContext();
    auto grammar = context->CreateGrammar(0);
    grammar->CmdLoadFromFile(time_file.Path(), SLODynamic);
    grammar->CmdSetRuleIdState(0, SGDSActive);
    std::string told;
    std::unique_ptr<Listening> successor;
    context->Advise({.Recognition =
                         [&](std::int32_t, const Variant&, std::int32_t,
                             const std::shared_ptr<ISpeechRecoResult>& result) {
                             successor =
                                 std::make_unique<Listening>(*room.engine, window_file.Path());
                             context.reset();
                             grammar.reset();
                             told = Told(result);
                         },
                     .Hypothesis = {},
                     .AudioLevel = {},
                     .Interference = {},
                     .Adaptation = {}});
    context->SetEventInterests(SRERecognition);
    room.microphone.Hear(Say("what time is it"));
    ASSERT_TRUE(room.messages.WaitForOne());
    room.messages.Run();
    EXPECT_EQ(told, "the time: what time is it");
    ASSERT_TRUE(successor);
    room.HearToTheEnd(Say("maximize window"));
    EXPECT_EQ(successor->recognised.size(), 1U);
}

TEST_F(Contexts, ResultOutlivesContextGrammarAndEngine) {
    std::shared_ptr<ISpeechRecoResult> result;
    {
        Listening listening(*room.engine, time_file.Path());
        room.HearToTheEnd(Say("what time is it"));
        ASSERT_EQ(listening.recognised.size(), 1U);
        result = listening.recognised[0];
    }
    room.engine.reset();
    result->DiscardResultInfo(SDTAll);
    EXPECT_EQ(Told(result), "the time: what time is it");
}

TEST_F(Contexts, EachPhraseGoesToTheContextWhoseRuleMatched) {
    Listening clock(*room.engine, time_file.Path());
    Listening window(*room.engine, window_file.Path());
    room.HearToTheEnd(testing::Joined(Say("maximize window"), Say("what time is it")));
    ASSERT_EQ(clock.recognised.size(), 1U);
    ASSERT_EQ(window.recognised.size(), 1U);
    EXPECT_EQ(Told(clock.recognised[0]), "the time: what time is it");
    EXPECT_EQ(Told(window.recognised[0]), "maximize: maximize window");
}

TEST_F(Contexts, RulesAreHeardOnlyWhileTheyAreActive) {
    Listening clock(*room.engine, time_file.Path());
    Listening window(*room.engine, window_file.Path());
    clock.grammar->CmdSetRuleIdState(0, SGDSInactive);
    room.HearToTheEnd(Say("what time is it"));
    EXPECT_TRUE(clock.recognised.empty());
    EXPECT_NE(window.context, nullptr);
}

TEST_F(Contexts, GrammarChangedInTheMiddleOfSpeechJudgesAllOfIt) {
    const TemporaryFile beginning(GrammarOf(RuleOf("beginning", "what time")));
    Listening clock(*room.engine, beginning.Path());
    const testing::Sound sound = Say("what time is it please");
    const auto half = static_cast<std::ptrdiff_t>(sound.size() / 2);
    room.microphone.Hear({sound.begin(), sound.begin() + half});
    ASSERT_TRUE(room.messages.WaitForOne()) << "no hypothesis";
    clock.grammar->CmdLoadFromFile(time_file.Path(), SLODynamic);
    clock.grammar->CmdSetRuleIdState(0, SGDSActive);
    room.HearToTheEnd({sound.begin() + half, sound.end()});
    ASSERT_EQ(clock.recognised.size(), 1U);
    EXPECT_EQ(Told(clock.recognised[0]), "the time: what time is it Please");
}

TEST_F(Contexts, EngineMayEndWhileSomebodySpeaks) {
    Listening listening(*room.engine, time_file.Path());
    room.microphone.Hear(Say("what time is it please"));
    ASSERT_TRUE(room.messages.WaitForOne());
    room.engine.reset();
    room.messages.Run();
    listening.grammar->CmdSetRuleIdState(0, SGDSInactive);
}

class Grammars : public ::testing::Test {
protected:
    Room room;
    std::shared_ptr<ISpeechRecoContext> context = room.engine->CreateSpSharedRecoContext();
    std::shared_ptr<ISpeechRecoGrammar> grammar = context->CreateGrammar(0);
};

TEST_F(Grammars, NewContextHasNoInterestsAndItsGrammarNoRules) {
    EXPECT_EQ(context->EventInterests(), 0);
    EXPECT_EQ(grammar->Rules()->Count(), 0);
    context->SetEventInterests(66608);
    EXPECT_EQ(context->EventInterests(), 66608);
}

TEST_F(Grammars, OneRuleIsEnough) {
    const TemporaryFile file(GrammarOf(kTime));
    grammar->CmdLoadFromFile(file.Path(), SLODynamic);
    ASSERT_EQ(grammar->Rules()->Count(), 1);
    EXPECT_EQ(grammar->Rules()->Item(0)->Id(), 0);
    EXPECT_NO_THROW(grammar->CmdSetRuleIdState(0, SGDSActive));
    EXPECT_THROW((void)grammar->Rules()->Item(1), RuntimeError);
    EXPECT_THROW((void)grammar->Rules()->Item(-1), RuntimeError);
}

TEST_F(Grammars, FailedLoadRaisesAndLeavesNoRules) {
    const TemporaryFile good(GrammarOf(kTime));
    const TemporaryFile bad(GrammarOf(kTime + kTime));
    for (const std::string& path : {std::string("/nowhere/keywords.xml"), bad.Path()}) {
        grammar->CmdLoadFromFile(good.Path(), SLODynamic);
        EXPECT_THROW(grammar->CmdLoadFromFile(path, SLODynamic), RuntimeError);
        EXPECT_EQ(grammar->Rules()->Count(), 0);
        EXPECT_THROW(grammar->CmdSetRuleIdState(0, SGDSActive), RuntimeError);
        EXPECT_NO_THROW(grammar->CmdSetRuleIdState(0, SGDSInactive));
        EXPECT_THROW(grammar->CmdSetRuleIdState(1, SGDSInactive), RuntimeError);
    }
}

TEST_F(Grammars, IdZeroStandsForRulesMarkedActiveAnyOtherForItsRule) {
    const TemporaryFile file(
        GrammarOf(R"(<RULE NAME="a" ID="3" TOPLEVEL="ACTIVE"><P>one</P></RULE>)"
                  R"(<RULE NAME="b" ID="4" TOPLEVEL="INACTIVE"><P>two</P></RULE>)"));
    grammar->CmdLoadFromFile(file.Path(), SLODynamic);
    EXPECT_EQ(grammar->Rules()->Item(1)->Id(), 4);
    EXPECT_NO_THROW(grammar->CmdSetRuleIdState(0, SGDSActive));
    EXPECT_NO_THROW(grammar->CmdSetRuleIdState(4, SGDSActive));
    EXPECT_THROW(grammar->CmdSetRuleIdState(5, SGDSActive), RuntimeError);
}

TEST_F(Grammars, ReleasedContextLeavesItsGrammarHarmless) {
    const TemporaryFile file(GrammarOf(kTime));
    context.reset();
    grammar->CmdLoadFromFile(file.Path(), SLODynamic);
    grammar->CmdSetRuleIdState(0, SGDSActive);
    EXPECT_EQ(grammar->Rules()->Count(), 1);
}

TEST(Engine, WithoutItsModelNoContextIsCreated) {
    SpeechEngineConfig config;
    config.acoustic_model = "/nowhere";
    Room room;
    SpeechEngine engine(
        config, [](const std::function<void()>&) {}, room.microphone.Source());
    EXPECT_THROW((void)engine.CreateSpSharedRecoContext(), RuntimeError);
}

TEST(Engine, WithoutItsDictionaryNoContextIsCreated) {
    SpeechEngineConfig config;
    config.dictionary = "/nowhere.dict";
    Room room;
    SpeechEngine engine(
        config, [](const std::function<void()>&) {}, room.microphone.Source());
    EXPECT_THROW((void)engine.CreateSpSharedRecoContext(), RuntimeError);
}

TEST(Engine, EndsWhileItWaitsForSound) {
    const TemporaryFile file(GrammarOf(kTime));
    Room room;
    const Listening listening(*room.engine, file.Path());
    room.engine.reset();
}

TEST(Engine, ReplacingTheContextManyTimesIsNoTrouble) {
    Room room;
    std::unique_ptr<Listening> listening;
    for (int i = 0; i < 50; ++i)
        listening =
            std::make_unique<Listening>(*room.engine, CORVANE_PROJECT_FOLDER "/data/keywords.xml");
    room.HearToTheEnd(testing::Stillness(500ms));
    EXPECT_GE(listening->grammar->Rules()->Count(), 33);
}

}  // namespace
}  // namespace corvane::engine
