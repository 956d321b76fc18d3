// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "dictation/training.h"

#include <gtest/gtest.h>

#include "simulated/simulated_context.h"
#include "simulated/simulated_desktop.h"
#include "support/expect_error.h"

namespace corvane {
namespace {

class TrainingTest : public ::testing::Test {
protected:
    [[nodiscard]] std::string Dialog(const std::string& text) const {
        return "DisplayUI " + std::to_string(desktop.windows.Window("Form5").handle) +
               " \"Corvane --Training\" UserTraining \"" + text + "\"\n";
    }

    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    Nullable<ISpeechVoice> voice;
    Recogniser recogniser{desktop.speech, voice};
    RichTextPrinter printer{desktop.printer, desktop.gdi, desktop.user32};
    bool PadActive = false;
    forms::Lazy<Form5> pad{
        [this] { return std::make_shared<Form5>(desktop.windows, loop, printer, PadActive); }};
    Training training{recogniser, desktop.runtime, pad};
};

TEST_F(TrainingTest, BeforeThePadWasOpenedItIsLoadedHiddenAndCountsAsActive) {
    recogniser.init_rec("/missing.xml");
    desktop.record.Clear();
    training.train("a sentence");
    EXPECT_EQ(desktop.record.Transcript(), Dialog("a sentence"));
    EXPECT_TRUE(pad.Loaded());
    EXPECT_FALSE(desktop.windows.Window("Form5").visible);
    EXPECT_TRUE(PadActive);
}

TEST_F(TrainingTest, AnEmptyTextOpensTheDialogWithNothingToReadFromTheCaller) {
    recogniser.init_rec("/missing.xml");
    desktop.record.Clear();
    training.train("");
    EXPECT_EQ(desktop.record.Transcript(), Dialog(""));
}

TEST_F(TrainingTest, AnyWordMakesTheSameCallOfTheEnginesWordsAndNothingIsFilledIn) {
    recogniser.init_rec("/missing.xml");
    for (const char* word : {"Brindel", "", "two words", "\"quoted\""}) {
        desktop.record.Clear();
        training.add_Word2(word);
        EXPECT_EQ(desktop.record.Transcript(),
                  "DisplayUI " + std::to_string(desktop.windows.Window("Form5").handle) +
                      " \"Corvane --Add or correct words\" AddRemoveWord \"\"\n");
    }
}

TEST_F(TrainingTest, WordsBeforeThePadWasOpenedLoadItHiddenAndItCountsAsActive) {
    recogniser.init_rec("/missing.xml");
    training.add_Word2("word");
    EXPECT_TRUE(pad.Loaded());
    EXPECT_FALSE(desktop.windows.Window("Form5").visible);
    EXPECT_TRUE(PadActive);
}

TEST_F(TrainingTest, WithoutTheEnginesWordsTheErrorIsNotPassedOver) {
    EXPECT_ERROR(kObjectNotSet, (training.add_Word2("word"), 0));
    recogniser.init_rec("/missing.xml");
    desktop.record.Fail("DisplayUI", kAutomationError);
    EXPECT_ERROR(kAutomationError, (training.add_Word2("word"), 0));
}

TEST_F(TrainingTest, ANewWordIsAskedForAndGivenToTheEngineWithItsReportAskedFor) {
    recogniser.init_rec("/missing.xml");
    desktop.record.Clear();
    desktop.runtime.OnInputBox = [] { return "zorbel"; };
    training.add_Word();
    EXPECT_EQ(desktop.record.Transcript(),
              "InputBox \"What new word would you like to add?\" \"Add new word\"\n"
              "rc.EventInterests 74800\n"
              "SetAdaptationData \"zorbel\"\n");
    EXPECT_FALSE(pad.Loaded());
}

TEST_F(TrainingTest, AnEmptyAnswerStillRaisesTheInterestsAndIsPassedOn) {
    recogniser.init_rec("/missing.xml");
    training.add_Word();
    EXPECT_EQ(recogniser.rc()->EventInterests(), 66608 + 8192);
    EXPECT_TRUE(desktop.record.Transcript().ends_with("SetAdaptationData \"\"\n"));
}

TEST_F(TrainingTest, TwoNewWordsBeforeAReportAddToTheInterestsTwiceUntilTheReportPutsThemBack) {
    recogniser.Events.Adaptation = [this](std::int32_t, const Variant&) {
        recogniser.RestoreInterests();
    };
    recogniser.init_rec("/missing.xml");
    training.add_Word();
    training.add_Word();
    // No mask any more: the bit of the report is gone, and another stands in its place.
    EXPECT_EQ(recogniser.rc()->EventInterests(), 66608 + 2 * 8192);
    EXPECT_EQ(recogniser.rc()->EventInterests() & SREAdaptation, 0);
    desktop.speech.Adapted();
    desktop.RunFor({});
    EXPECT_EQ(recogniser.rc()->EventInterests(), 66608 + 2 * 8192);

    training.add_Word();
    EXPECT_EQ(recogniser.rc()->EventInterests(), 66608 + 3 * 8192);
    desktop.speech.Adapted();
    desktop.RunFor({});
    EXPECT_EQ(recogniser.rc()->EventInterests(), 66608);
}

TEST_F(TrainingTest, InterestsThatHaveNoRoomForOneMoreOverflowAndNothingIsLearned) {
    recogniser.init_rec("/missing.xml");
    recogniser.rc()->SetEventInterests(0x7FFFFFFF - 8191);
    desktop.record.Clear();
    EXPECT_ERROR(kOverflow, (training.add_Word(), 0));
    EXPECT_EQ(desktop.record.Transcript().find("SetAdaptationData"), std::string::npos);
    EXPECT_EQ(recogniser.rc()->EventInterests(), 0x7FFFFFFF - 8191);
}

TEST_F(TrainingTest, ANewWordThatTheEngineRefusesIsAnErrorWithTheInterestsRaised) {
    EXPECT_ERROR(kObjectNotSet, (training.add_Word(), 0));
    recogniser.init_rec("/missing.xml");
    desktop.record.Fail("SetAdaptationData", kAutomationError);
    EXPECT_ERROR(kAutomationError, (training.add_Word(), 0));
    EXPECT_EQ(recogniser.rc()->EventInterests(), 66608 + 8192);
}

TEST_F(TrainingTest, AnErrorOfTheEngineIsNotPassedOver) {
    EXPECT_ERROR(kObjectNotSet, (training.train(""), 0));
    recogniser.init_rec("/missing.xml");
    desktop.record.Fail("DisplayUI", kAutomationError);
    EXPECT_ERROR(kAutomationError, (training.train(""), 0));
}

}  // namespace
}  // namespace corvane
