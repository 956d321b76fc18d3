// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/recognition_feedback.h"

#include <gtest/gtest.h>

#include "simulated/simulated_context.h"
#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;

class RecognitionFeedbackTest : public ::testing::Test {
protected:
    RecognitionFeedbackTest() { desk.Start(); }

    void Guess(const std::string& phrase, SpeechEngineConfidence confidence) {
        desk.desktop.speech.Guess(phrase, "the time", confidence);
        desk.desktop.RunFor({});
    }
    void Level(std::int32_t level) {
        desk.desktop.speech.Level(level);
        desk.desktop.RunFor({});
    }
    void Trouble(std::int32_t interference) {
        desk.desktop.speech.Trouble(interference);
        desk.desktop.RunFor({});
    }
    [[nodiscard]] const simulated::ShownWindow& Shown() const {
        return desk.desktop.windows.Window("Form2");
    }

    Desk desk;
};

TEST_F(RecognitionFeedbackTest, TheLevelMovesTheBarAndItsNumber) {
    Level(100);
    EXPECT_EQ(Shown().ranges.at("ProgressBar1"), 100);
    EXPECT_EQ(Shown().texts.at("text2").text, "100");
    Level(0);
    EXPECT_EQ(Shown().ranges.at("ProgressBar1"), 0);
    EXPECT_EQ(Shown().texts.at("text2").text, "0");
}

TEST_F(RecognitionFeedbackTest, TheLevelIsNeitherScaledNorSmoothed) {
    Level(37);
    EXPECT_EQ(Shown().ranges.at("ProgressBar1"), 37);
}

TEST_F(RecognitionFeedbackTest, ALevelOutOfTheBarsRangeIsReportedAndEndsTheProcess) {
    Level(101);
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    EXPECT_EQ(Shown().texts.at("text2").text, "101");
    EXPECT_NE(desk.Transcript().find("ShowErrorReport 380"), std::string::npos);
}

TEST_F(RecognitionFeedbackTest, AnUnsureHypothesisIsMarkedAsIgnoredAndDiscarded) {
    Guess("what time", SECNormalConfidence);
    Guess("what", SECLowConfidence);
    EXPECT_EQ(desk.Log(),
              "1, 0, Hypothesis,  [Text=what time] [Confidence=0] (HYPOTHESIS IGNORED)\r\n"
              "1, 0, Hypothesis,  [Text=what] [Confidence=-1] (HYPOTHESIS IGNORED)\r\n");
    EXPECT_EQ(desk.Transcript(), "DiscardResultInfo 255\nDiscardResultInfo 255\n");
}

TEST_F(RecognitionFeedbackTest, ASureHypothesisIsAPlainLineAndStartsNothing) {
    Guess("what time is it", SECHighConfidence);
    EXPECT_EQ(desk.Log(), "1, 0, Hypothesis,  [Text=what time is it] [Confidence=1]\r\n");
    EXPECT_EQ(desk.Transcript(), "");
}

TEST_F(RecognitionFeedbackTest, ASureHypothesisMayStillBeThrownOutAsAPhrase) {
    Guess("copy", SECHighConfidence);
    desk.Hear("copy", SECNormalConfidence);
    EXPECT_EQ(desk.Log(),
              "1, 0, Hypothesis,  [Text=copy] [Confidence=1]\r\n"
              "1, 0, Recognition,  [Text=copy] [Confidence=0] (THROWN OUT)\r\n");
}

TEST_F(RecognitionFeedbackTest, AHypothesisThatCannotBeReadEndsTheProcess) {
    desk.desktop.record.Fail("GetText", kAutomationError);
    Guess("copy", SECHighConfidence);
    EXPECT_TRUE(desk.desktop.runtime.Ended());
}

TEST_F(RecognitionFeedbackTest, EachTroubleHasItsMessage) {
    for (const auto trouble :
         {SINone, SINoise, SINoSignal, SITooLoud, SITooQuiet, SITooFast, SITooSlow})
        Trouble(trouble);
    EXPECT_EQ(desk.Log(),
              "None\r\nNoise interference detected\r\nNo signal detected\r\nSpeaking too loud\r\n"
              "Speaking too quietly\r\nSpeaking too fast\r\nSpeaking too slow\r\n");
}

TEST_F(RecognitionFeedbackTest, AnUnknownTroubleLeavesTheLogAsItWas) {
    Trouble(SINoise);
    for (const std::int32_t unknown : {7, 8, -1, 1000}) Trouble(unknown);
    EXPECT_EQ(desk.Log(), "Noise interference detected\r\n");
}

TEST_F(RecognitionFeedbackTest, TheCaretStandsJustBeforeTheFinalLineFeed) {
    Trouble(SINone);
    EXPECT_EQ(Shown().texts.at("Text1").start, 5);
    Trouble(SINone);
    EXPECT_EQ(Shown().texts.at("Text1").start, 11);
}

TEST_F(RecognitionFeedbackTest, AnAdaptationPutsTheEventMaskBack) {
    const auto context = desk.desktop.speech.Contexts().at(0);
    context->SetEventInterests(66608 + SREAdaptation);
    desk.desktop.speech.Adapted();
    desk.desktop.RunFor({});
    EXPECT_EQ(context->EventInterests(), 66608);
    EXPECT_EQ(desk.Log(), "");
}

TEST_F(RecognitionFeedbackTest, EveryEventGoesOnInQuietMode) {
    desk.Hear("disable");
    Level(42);
    Guess("enable", SECLowConfidence);
    Trouble(SITooLoud);
    EXPECT_EQ(Shown().ranges.at("ProgressBar1"), 42);
    EXPECT_EQ(desk.Log(),
              "1, 0, Recognition,  [Text=disable] [Confidence=1]\r\n"
              "1, 0, Hypothesis,  [Text=enable] [Confidence=-1] (HYPOTHESIS IGNORED)\r\n"
              "Speaking too loud\r\n");
}

TEST_F(RecognitionFeedbackTest, ANewContextLeavesTheLogAlone) {
    Trouble(SINoise);
    desk.Hear("disable");
    EXPECT_TRUE(desk.Log().starts_with("Noise interference detected\r\n"));
}

/// The dormant trace, which nothing in the system switches on.
TEST(HypothesisTrace, WhileItIsOnEveryHypothesisIsAPlainLine) {
    simulated::SimulatedDesktop desktop;
    MessageLoop loop(desktop.queue, desktop.runtime);
    Nullable<ISpeechVoice> voice;
    Recogniser recogniser(desktop.speech, voice);
    forms::Lazy<Form2> form2([&] {
        return std::make_shared<Form2>(desktop.windows, loop, desktop.runtime, desktop.gdi,
                                       desktop.user32);
    });
    TextLog log(form2);
    RichTextPrinter printer(desktop.printer, desktop.gdi, desktop.user32);
    bool PadActive = false;
    forms::Lazy<Form5> form5(
        [&] { return std::make_shared<Form5>(desktop.windows, loop, printer, PadActive); });
    PadLog pad_log(form5);
    RecognitionFeedback feedback(recogniser, form2, log, pad_log);
    recogniser.HypothesisTrace = true;
    const auto result = simulated::MakeResult(desktop.record, "what", "the time", SECLowConfidence);
    feedback.RC_Hypothesis(1, std::int64_t{32}, *result);
    EXPECT_EQ(form2->Text1.Text(), "1, 32, Hypothesis,  [Text=what] [Confidence=-1]\r\n");
    EXPECT_EQ(desktop.record.Transcript(), "");

    // While dictating the line stands in both logs.
    recogniser.DictationActive = true;
    feedback.RC_Hypothesis(1, std::int64_t{32}, *result);
    EXPECT_EQ(form2->Text1.Text(),
              "1, 32, Hypothesis,  [Text=what] [Confidence=-1]\r\n"
              "1, 32, Hypothesis,  [Text=what] [Confidence=-1]\r\n");
    EXPECT_EQ(form5->Text1.Text(), "1, 32, Hypothesis,  [Text=what] [Confidence=-1]\r\n");
}

}  // namespace
}  // namespace corvane
