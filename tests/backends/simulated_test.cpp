// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "simulated/simulated_desktop.h"
#include "simulated/spoken_grammar.h"
#include "support/desk.h"
#include "support/expect_error.h"

namespace corvane::simulated {
namespace {

using namespace std::chrono_literals;
using corvane::testing::GrammarOf;
using corvane::testing::SimpleRule;

TEST(SimulatedDesktop, ACallIsRecordedWithItsTimeOnceTimeHasMoved) {
    SimulatedDesktop desktop;
    desktop.runtime.SendKeys("^c", true);
    desktop.RunFor(1200ms);
    desktop.runtime.SendKeys("y", false);
    EXPECT_EQ(desktop.record.Transcript(), "SendKeys ^c wait\nt=1200 SendKeys y\n");
}

TEST(SimulatedDesktop, AnOperationCanBeToldToFailAfterSomeCallsAndToWorkAgain) {
    SimulatedDesktop desktop;
    desktop.runtime.Install("/p.exe");
    desktop.record.Fail("Shell", kPermissionDenied, 1);
    desktop.runtime.Shell("/p.exe", kNormalFocus);
    EXPECT_ERROR(kPermissionDenied, (desktop.runtime.Shell("/p.exe", kNormalFocus), 0));
    desktop.record.Heal("Shell");
    desktop.runtime.Shell("/p.exe", kNormalFocus);
    EXPECT_EQ(desktop.runtime.Started().size(), 2U);
}

TEST(SimulatedDesktop, APartThatThereIsNotHasNoColour) {
    SimulatedDesktop desktop;
    EXPECT_EQ(desktop.user32.GetSysColor(15), 0x0F0F0F);
    EXPECT_EQ(desktop.user32.GetSysColor(16'744'617), 0);
    EXPECT_EQ(desktop.user32.GetSysColor(-1), 0);
}

TEST(SimulatedDesktop, NothingRunsInAProcessThatHasEnded) {
    SimulatedDesktop desktop;
    desktop.queue.Post([&] { desktop.runtime.End(); });
    desktop.queue.Post([&] { desktop.runtime.SendKeys("y", true); });
    desktop.RunFor(1ms);
    desktop.RunFor(1ms);
    EXPECT_TRUE(desktop.runtime.Ended());
    EXPECT_EQ(desktop.record.Transcript(), "End\n");
}

TEST(SimulatedDesktop, OnlyInstalledProgramsStart) {
    SimulatedDesktop desktop;
    EXPECT_ERROR(kFileNotFound, (desktop.runtime.Shell("/p.exe", kNormalFocus), 0));
    EXPECT_ERROR(kFileNotFound, (desktop.runtime.Shell("", kNormalFocus), 0));
}

class SimulatedDictation : public ::testing::Test {
protected:
    SimulatedDictation() {
        desktop.files.Put("/g.xml", GrammarOf(SimpleRule("the time", "what time is it")));
        grammar = context->CreateGrammar(0);
        grammar->CmdLoadFromFile("/g.xml", SLODynamic);
        context->Advise({.Recognition =
                             [this](std::int32_t, const Variant&, std::int32_t,
                                    const std::shared_ptr<ISpeechRecoResult>& result) {
                                 const auto phrase = result->PhraseInfo();
                                 told += phrase->Rule()->Name() + ":" +
                                         phrase->GetText(0, -1, true) + ";";
                             },
                         .Hypothesis = {},
                         .AudioLevel = {},
                         .Interference = {},
                         .Adaptation = {}});
        context->SetEventInterests(SRERecognition);
    }

    SimulatedDesktop desktop;
    std::shared_ptr<ISpeechRecoContext> context = desktop.speech.CreateSpSharedRecoContext();
    std::shared_ptr<ISpeechRecoGrammar> grammar;
    std::string told;
};

TEST_F(SimulatedDictation, WhatIsNoSureCommandIsTextWhileItIsActive) {
    grammar->CmdSetRuleIdState(0, SGDSActive);
    EXPECT_FALSE(desktop.speech.Say("dear brother"));
    grammar->DictationLoad("", SLOStatic);
    EXPECT_FALSE(desktop.speech.Say("dear brother"));
    grammar->DictationSetState(SGDSActive);
    EXPECT_TRUE(desktop.speech.Say("dear brother"));
    EXPECT_TRUE(desktop.speech.Say("what time is it"));
    EXPECT_TRUE(desktop.speech.Say("what time is it", SECNormalConfidence));
    grammar->DictationUnload();
    EXPECT_FALSE(desktop.speech.Say("dear brother"));
    desktop.RunFor(1ms);
    EXPECT_EQ(told, ":dear brother;the time:what time is it;:what time is it;");
}

TEST_F(SimulatedDictation, CallsOutOfOrderRaise) {
    EXPECT_ERROR(kAutomationError, (grammar->DictationSetState(SGDSActive), 0));
    EXPECT_ERROR(kAutomationError, (grammar->DictationUnload(), 0));
    EXPECT_ERROR(kAutomationError, (grammar->DictationLoad("spelling", SLOStatic), 0));
    grammar->DictationLoad("", SLOStatic);
    EXPECT_ERROR(kInvalidProcedureCall, (grammar->DictationSetState(2), 0));
}

TEST_F(SimulatedDictation, LoadedRulesLeaveItAlone) {
    grammar->DictationLoad("", SLOStatic);
    grammar->CmdLoadFromFile("/g.xml", SLODynamic);
    grammar->DictationSetState(SGDSActive);
    EXPECT_TRUE(desktop.speech.Say("dear brother"));
}

TEST_F(SimulatedDictation, DialogsAreRecordedAndCloseAtOnce) {
    desktop.record.Clear();
    context->Recognizer()->DisplayUI(7, "Training", "UserTraining", "some words");
    EXPECT_EQ(desktop.record.Transcript(),
              "DisplayUI 7 \"Training\" UserTraining \"some words\"\n");
    desktop.record.Fail("DisplayUI", kAutomationError);
    EXPECT_ERROR(kAutomationError, (context->Recognizer()->DisplayUI(0, "", "", ""), 0));
}

TEST_F(SimulatedDictation, WhatIsGivenToAdaptToIsRecorded) {
    desktop.record.Clear();
    context->SetAdaptationData("some words");
    EXPECT_EQ(desktop.record.Transcript(), "SetAdaptationData \"some words\"\n");
    desktop.record.Fail("SetAdaptationData", kAutomationError);
    EXPECT_ERROR(kAutomationError, (context->SetAdaptationData(""), 0));
}

/// A voice whose events are told one a line.
class SimulatedVoiceTest : public ::testing::Test {
protected:
    SimulatedVoiceTest() {
        voice->Advise(
            {.Word =
                 [this](std::int32_t stream, const Variant&, std::int32_t position,
                        std::int32_t length) {
                     Tell(stream,
                          "word " + std::to_string(position) + " " + std::to_string(length));
                 },
             .EndStream = [this](std::int32_t stream, const Variant&) { Tell(stream, "end"); },
             .AudioLevel =
                 [this](std::int32_t stream, const Variant&, std::int32_t level) {
                     Tell(stream, "level " + std::to_string(level));
                 },
             .Bookmark = {}});
    }

    void Tell(std::int32_t stream, const std::string& event) {
        told += std::to_string(desktop.queue.Now().count()) + " " + std::to_string(stream) + " " +
                event + "\n";
    }

    static constexpr std::int32_t kFlags = SVSFlagsAsync + SVSFPurgeBeforeSpeak + SVSFIsXML;
    SimulatedDesktop desktop;
    std::shared_ptr<ISpeechVoice> voice = desktop.speech.CreateSpVoice();
    std::string told;
};

TEST_F(SimulatedVoiceTest, MarksWordsInTheOriginalTextWhileItSpeaks) {
    voice->SetEventInterests(SVEWordBoundary + SVEEndInputStream);
    voice->Speak("<emph>\xC3\xA9t\xC3\xA9</emph>, don't a < b", kFlags);
    desktop.RunFor(10s);
    EXPECT_EQ(told,
              "0 1 word 6 3\n"
              "500 1 word 18 5\n"
              "1100 1 word 24 1\n"
              "1500 1 word 28 1\n"
              "1600 1 end\n");
}

TEST_F(SimulatedVoiceTest, RaisesOnlyWhatIsOfInterestWhenItArrives) {
    voice->SetEventInterests(SVEAudioLevel);
    voice->Speak("one two", kFlags);
    desktop.RunFor(100ms);
    voice->SetEventInterests(SVEAudioLevel + SVEWordBoundary);
    desktop.RunFor(10s);
    EXPECT_EQ(told,
              "0 1 level 35\n"
              "400 1 word 4 3\n"
              "400 1 level 35\n"
              "700 1 level 0\n");
}

TEST_F(SimulatedVoiceTest, WhatWasCutOffIsNotHeardOfAgain) {
    voice->SetEventInterests(548);
    voice->Speak("first text", kFlags);
    desktop.RunFor(300ms);
    told.clear();
    voice->Speak("", kFlags);
    desktop.RunFor(10s);
    EXPECT_EQ(told, "300 2 level 0\n300 2 end\n");
}

TEST_F(SimulatedVoiceTest, EventsOfQueuedTextsFollowEachOther) {
    voice->SetEventInterests(SVEEndInputStream);
    voice->Speak("one", SVSFlagsAsync);
    voice->Speak("two", SVSFlagsAsync);
    desktop.RunFor(10s);
    EXPECT_EQ(told, "300 1 end\n600 2 end\n");
}

TEST_F(SimulatedVoiceTest, IsSilentToWhoDoesNotListenAnyMore) {
    voice->SetEventInterests(548);
    voice->Speak("one", kFlags);
    voice->Advise({});
    desktop.RunFor(10s);
    EXPECT_EQ(told, "");
}

TEST(SpokenGrammar, AcceptsEverySayingOfARuleAndNoOther) {
    const auto rules =
        ParseGrammar(GrammarOf("<RULE NAME=\"read\" TOPLEVEL=\"ACTIVE\"><O>please</O><P>read</P>"
                               "<O><L><P>the</P><P>all the</P></L></O><P>text</P></RULE>"));
    ASSERT_TRUE(rules);
    const SpokenRule& rule = rules->front();
    EXPECT_EQ(rule.Sayings().size(), 6U);
    for (const std::string& saying : rule.Sayings()) EXPECT_TRUE(rule.Accepts(saying)) << saying;
    EXPECT_FALSE(rule.Accepts("read the"));
    EXPECT_FALSE(rule.Accepts("read texts"));
    EXPECT_FALSE(rule.Accepts("readtext"));
    EXPECT_FALSE(rule.Accepts(""));
}

TEST(SpokenGrammar, WhatIsNotTheDialectIsNoGrammar) {
    const std::string good = SimpleRule("one", "first");
    EXPECT_TRUE(ParseGrammar(GrammarOf(good)));
    for (const std::string& rules :
         {good + good, SimpleRule("", "first"), SimpleRule("one", ""), SimpleRule("a\"b", "ab"),
          SimpleRule("one", "a < b"), SimpleRule("one", "a & b"), SimpleRule("one", "<Q>a</Q>"),
          SimpleRule("one", "<L></L>"), std::string("<RULE NAME=\"one\"></RULE>"),
          std::string("words"), good + "</GRAMMAR>"})
        EXPECT_FALSE(ParseGrammar(GrammarOf(rules))) << rules;
}

}  // namespace
}  // namespace corvane::simulated
