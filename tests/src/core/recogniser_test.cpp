// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/recogniser.h"

#include <gtest/gtest.h>

#include "simulated/simulated_context.h"
#include "simulated/simulated_desktop.h"
#include "support/desk.h"
#include "support/expect_error.h"

namespace corvane {
namespace {

using testing::GrammarOf;
using testing::SimpleRule;

class RecogniserTest : public ::testing::Test {
protected:
    RecogniserTest() {
        recogniser.Events.Recognition = [this](std::int32_t, const Variant&, std::int32_t,
                                               const std::shared_ptr<ISpeechRecoResult>& result) {
            heard += result->PhraseInfo()->GetText(0, -1, true) + ";";
            if (in_handler) in_handler();
        };
        desktop.files.Put("/commands.xml",
                          GrammarOf(SimpleRule("one", "first") + SimpleRule("two", "second")));
        desktop.record.Clear();
    }
    bool Say(const std::string& phrase) {
        const bool listened = desktop.speech.Say(phrase);
        desktop.RunFor({});
        return listened;
    }

    simulated::SimulatedDesktop desktop;
    Nullable<ISpeechVoice> voice{desktop.speech.CreateSpVoice()};
    Recogniser recogniser{desktop.speech, voice};
    std::string heard;
    std::function<void()> in_handler;
};

TEST_F(RecogniserTest, ListensForTheRulesOfTheFileAndForTheEventsOfAllKinds) {
    recogniser.init_rec("/commands.xml");
    EXPECT_EQ(desktop.record.Transcript(),
              "CreateSpSharedRecoContext\n"
              "CmdLoadFromFile /commands.xml 1\n"
              "CmdSetRuleIdState 0 1\n"
              "rc.EventInterests 66608\n"
              "voice.EventInterests 512\n");
    EXPECT_TRUE(Say("first"));
    EXPECT_TRUE(Say("second"));
    EXPECT_EQ(heard, "first;second;");
}

TEST_F(RecogniserTest, AGrammarWithOneRuleActivatesAsOneWithMany) {
    desktop.files.Put("/one.xml", GrammarOf(SimpleRule("only", "only this")));
    recogniser.init_rec("/one.xml");
    EXPECT_TRUE(Say("only this"));
}

TEST_F(RecogniserTest, AGrammarWithIdsHasItsLastRuleActiveAlone) {
    desktop.files.Put(
        "/ids.xml",
        GrammarOf("<RULE NAME=\"one\" ID=\"7\" TOPLEVEL=\"ACTIVE\"><P>first</P></RULE>"
                  "<RULE NAME=\"two\" ID=\"8\" TOPLEVEL=\"ACTIVE\"><P>second</P></RULE>"));
    recogniser.init_rec("/ids.xml");
    EXPECT_FALSE(Say("first"));
    EXPECT_TRUE(Say("second"));
}

TEST_F(RecogniserTest, TwiceInARowLeavesOneContextAndEachPhraseArrivesOnce) {
    recogniser.init_rec("/commands.xml");
    recogniser.init_rec("/commands.xml");
    EXPECT_EQ(desktop.speech.Contexts().size(), 1U);
    Say("first");
    EXPECT_EQ(heard, "first;");
}

TEST_F(RecogniserTest, EventsQueuedByAReplacedContextNeverArrive) {
    recogniser.init_rec("/commands.xml");
    desktop.speech.Say("first");
    recogniser.init_rec("/commands.xml");
    desktop.RunFor({});
    EXPECT_EQ(heard, "");
}

TEST_F(RecogniserTest, EventsOfAContextReplacedInsideItsOwnEventNeverArriveEvenInAYield) {
    recogniser.init_rec("/commands.xml");
    in_handler = [&] {
        recogniser.init_rec("/commands.xml");
        desktop.queue.DoEvents();
    };
    desktop.speech.Say("first");
    desktop.speech.Say("second");
    desktop.RunFor({});
    EXPECT_EQ(heard, "first;");
}

TEST_F(RecogniserTest, AResultInHandStaysUsableWhenItsContextIsReplaced) {
    std::shared_ptr<ISpeechRecoResult> kept;
    recogniser.Events.Recognition = [&](std::int32_t, const Variant&, std::int32_t,
                                        const std::shared_ptr<ISpeechRecoResult>& result) {
        recogniser.init_rec("/commands.xml");
        kept = result;
    };
    recogniser.init_rec("/commands.xml");
    Say("first");
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->PhraseInfo()->GetText(0, -1, true), "first");
    EXPECT_EQ(kept->PhraseInfo()->Rule()->Name(), "one");
}

TEST_F(RecogniserTest, AMissingGrammarFileLeavesTheSystemAwakeAndDeaf) {
    recogniser.DictationActive = recogniser.HypothesisTrace = true;
    recogniser.init_rec("/missing.xml");
    EXPECT_FALSE(Say("first"));
    ASSERT_EQ(desktop.speech.Contexts().size(), 1U);
    EXPECT_EQ(desktop.speech.Contexts()[0]->EventInterests(), 66608);
    EXPECT_EQ(voice->EventInterests(), 512);
    EXPECT_FALSE(recogniser.DictationActive);
    EXPECT_FALSE(recogniser.HypothesisTrace);
}

TEST_F(RecogniserTest, AMalformedGrammarIsNoGrammarAtAll) {
    for (const std::string text :
         {"", "<GRAMMAR", "<GRAMMAR LANGID=\"409\">\r\n</GRAMMAR>",
          "<GRAMMAR LANGID=\"409\"><RULE NAME=\"one\" TOPLEVEL=\"ACTIVE\"><P>first</P></RULE>",
          "<GRAMMAR LANGID=\"409\"><RULE NAME=\"one\" TOPLEVEL=\"ACTIVE\"><P>first</P></RULE>"
          "<RULE NAME=\"one\" TOPLEVEL=\"ACTIVE\"><P>second</P></RULE></GRAMMAR>"}) {
        desktop.files.Put("/bad.xml", text);
        recogniser.init_rec("/bad.xml");
        EXPECT_FALSE(Say("first")) << text;
    }
}

TEST_F(RecogniserTest, AFailedLoadSkipsTheActivationAndRunsAllThatFollows) {
    recogniser.init_rec("/missing.xml");
    EXPECT_EQ(desktop.record.Transcript(),
              "CreateSpSharedRecoContext\n"
              "CmdLoadFromFile /missing.xml 1\n"
              "CmdSetRuleIdState 0 1\n"
              "rc.EventInterests 66608\n"
              "voice.EventInterests 512\n");
}

TEST_F(RecogniserTest, WithoutAVoiceTheWalkGoesOnBehindThatStep) {
    voice = {};
    recogniser.DictationActive = true;
    recogniser.init_rec("/commands.xml");
    EXPECT_TRUE(Say("first"));
    EXPECT_FALSE(recogniser.DictationActive);
}

TEST_F(RecogniserTest, TheVoicesInterestsAre512AfterwardsAlsoInTheMiddleOfAReading) {
    voice->SetEventInterests(548);
    recogniser.init_rec("/commands.xml");
    EXPECT_EQ(voice->EventInterests(), 512);
}

TEST_F(RecogniserTest, WithoutAnEngineNothingIsShownAndTheFlagsAreCleared) {
    desktop.record.Fail("CreateSpSharedRecoContext", kAutomationError);
    recogniser.DictationActive = true;
    recogniser.init_rec("/commands.xml");
    EXPECT_FALSE(recogniser.DictationActive);
    EXPECT_FALSE(Say("first"));
    EXPECT_FALSE(desktop.runtime.Ended());
}

TEST_F(RecogniserTest, AContextThatCannotBeReplacedKeepsTheOldOneAndLoadsIntoIt) {
    recogniser.init_rec("/commands.xml");
    desktop.files.Put("/other.xml", GrammarOf(SimpleRule("three", "third")));
    desktop.record.Fail("CreateSpSharedRecoContext", kAutomationError);
    recogniser.init_rec("/other.xml");
    EXPECT_TRUE(Say("third"));
    EXPECT_EQ(heard, "third;");
}

TEST_F(RecogniserTest, DictationTakesThePlaceOfTheCommands) {
    recogniser.init_rec("/commands.xml");
    desktop.record.Clear();
    recogniser.StartDictation();
    EXPECT_EQ(desktop.record.Transcript(),
              "CmdSetRuleIdState 0 0\nDictationLoad \"\" 0\nDictationSetState 1\n");
    Say("first");
    Say("anything else");
    EXPECT_EQ(heard, "first;anything else;");
}

TEST_F(RecogniserTest, AStartOfDictationThatFailsIsAbandonedWhereItIs) {
    recogniser.init_rec("/commands.xml");
    desktop.record.Clear();
    desktop.record.Fail("DictationLoad", kAutomationError);
    EXPECT_ERROR(kAutomationError, (recogniser.StartDictation(), 0));
    EXPECT_EQ(desktop.record.Transcript(), "CmdSetRuleIdState 0 0\nDictationLoad \"\" 0\n");
    EXPECT_FALSE(Say("first"));
}

TEST_F(RecogniserTest, WithoutAContextThereIsNoDictationToStartOrToEnd) {
    EXPECT_ERROR(kObjectNotSet, (recogniser.StartDictation(), 0));
    EXPECT_ERROR(kObjectNotSet, (recogniser.DictationUnload(), 0));
    EXPECT_ERROR(kObjectNotSet, recogniser.rc()->Recognizer());
}

TEST_F(RecogniserTest, AReleasedRecogniserHearsNothingUntilTheNextInitRec) {
    recogniser.init_rec("/commands.xml");
    desktop.speech.Say("first");
    recogniser.ReleaseRecognizer();
    desktop.RunFor({});
    EXPECT_EQ(heard, "");
    EXPECT_TRUE(desktop.speech.Contexts().empty());
    EXPECT_ERROR(kObjectNotSet, (recogniser.DictationUnload(), 0));
    recogniser.ReleaseRecognizer();
    recogniser.init_rec("/commands.xml");
    EXPECT_TRUE(Say("first"));
    EXPECT_EQ(heard, "first;");
}

TEST_F(RecogniserTest, AReleasedContextIsSilentEvenWhileSomebodyHoldsIt) {
    recogniser.init_rec("/commands.xml");
    const auto held = desktop.speech.Contexts();
    desktop.speech.Say("first");
    recogniser.ReleaseRecognizer();
    desktop.RunFor({});
    EXPECT_EQ(heard, "");
}

TEST_F(RecogniserTest, ARuleThatCannotBeFetchedStopsNeitherTheWalkNorTheRest) {
    desktop.record.Fail("Item", kAutomationError);
    recogniser.init_rec("/commands.xml");
    // No rule was held, so no Id was read: it is still 0, and 0 activates all.
    EXPECT_TRUE(Say("first"));
}

}  // namespace
}  // namespace corvane
