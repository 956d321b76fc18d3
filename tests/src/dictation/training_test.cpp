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

TEST_F(TrainingTest, AnErrorOfTheEngineIsNotPassedOver) {
    EXPECT_ERROR(kObjectNotSet, (training.train(""), 0));
    recogniser.init_rec("/missing.xml");
    desktop.record.Fail("DisplayUI", kAutomationError);
    EXPECT_ERROR(kAutomationError, (training.train(""), 0));
}

}  // namespace
}  // namespace corvane
