// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// Reading in the window: which sentence is shown, and what is said of it.
#include <gtest/gtest.h>

#include <QTabWidget>
#include <filesystem>
#include <string>
#include <string_view>

#include "training_window_fixture.h"

namespace corvane::linux_desktop {
namespace {

using engine::kReadingSentences;
using engine::testing::Joined;
using engine::testing::Say;
using engine::testing::SayAsSomebodySmall;
using engine::testing::Sound;
using engine::testing::Stillness;
using std::chrono_literals::operator""s;

TEST_F(TrainingWindowTest, WithoutASentenceItShowsItsOwnUnderTheTitle) {
    Train("", [this] {
        EXPECT_EQ(window->windowTitle(), "Corvane --Training");
        EXPECT_EQ(Sentence(), kReadingSentences[0]);
        EXPECT_EQ(Shown("Progress"), "Sentence 1 of 20");
        EXPECT_TRUE(StatusHas("Read the sentence aloud"));
        EXPECT_TRUE(window->isModal());
    });
}

TEST_F(TrainingWindowTest, TheSentenceThatWasHandedOverComesFirst) {
    Train("The <b>quick</b> & brown fox.", [this] {
        EXPECT_EQ(Sentence(), "The <b>quick</b> & brown fox.");
        EXPECT_EQ(Shown("Progress"), "Sentence 1 of 21");
        Button("&Start")->click();
        Button("S&kip")->click();
        EXPECT_EQ(Sentence(), kReadingSentences[0]);
        EXPECT_EQ(Shown("Progress"), "Sentence 2 of 21");
        EXPECT_TRUE(StatusHas("Left out"));
    });
}

TEST_F(TrainingWindowTest, ALongTextIsReadPieceByPieceAndNoneOfItIsCutOff) {
    std::string text = "Incomprehensibilities";
    for (int i = 1; i < 119; ++i) text += " incomprehensibilities";
    Train(text, [this] {
        EXPECT_EQ(Shown("Progress"), "Sentence 1 of 25");
        ExpectAllOfTheSentenceIsInView();
    });
}

TEST_F(TrainingWindowTest, AWordThatIsWiderThanTheWindowIsBroken) {
    for (const std::size_t length : {60, 400})
        Train(std::string(length, 'm'), [this] {
            EXPECT_LE(window->width(), 900);
            ExpectAllOfTheSentenceIsInView();
        });
}

TEST_F(TrainingWindowTest, AllSentencesReadAloudTrainTheVoiceWithoutAHand) {
    if (!engine::testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks here, is missing";
    Train("", [this] {
        for (const std::string_view sentence : kReadingSentences) {
            ASSERT_TRUE(Await([&] { return Sentence() == sentence; })) << sentence;
            Hear(SayAsSomebodySmall(std::string(sentence)));
        }
        ASSERT_TRUE(Await([this] { return Shown("Progress") == "All sentences are read"; }));
        ASSERT_TRUE(Await([this] { return Button("&Train again") != nullptr; }));
        EXPECT_EQ(Sentence(), "Your voice has been learnt.");
        EXPECT_TRUE(StatusHas("better")) << Shown("Training status");
        EXPECT_TRUE(profile.Voice());
        EXPECT_TRUE(std::filesystem::exists(folder.Path() + "/voice.mllr"));

        Button("&Undo last training")->click();
        EXPECT_EQ(Sentence(), "The training was undone.");
        EXPECT_EQ(Button("&Undo last training"), nullptr);
        EXPECT_FALSE(profile.Voice());

        Button("&Train again")->click();
        EXPECT_EQ(Sentence(), kReadingSentences[0]);
        EXPECT_EQ(microphones.size(), 2U);
        Hear(Say(std::string(kReadingSentences[0])));
        EXPECT_TRUE(Await([&] { return Sentence() == kReadingSentences[1]; }));
    });
}

TEST_F(TrainingWindowTest, SomethingElseIsAskedForAgain) {
    if (!engine::testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks here, is missing";
    Train("", [this] {
        Button("&Start")->click();
        Hear(Say("run notepad please"));
        EXPECT_TRUE(Await([this] { return StatusHas("did not sound like this sentence"); }));
        EXPECT_EQ(Sentence(), kReadingSentences[0]);
    });
}

TEST_F(TrainingWindowTest, WhatTooFewSentencesComeToIsSaid) {
    Train("", [this] {
        Button("&Start")->click();
        EXPECT_NE(Button("&Cancel"), nullptr);
        while (QPushButton* skip = Button("S&kip")) skip->click();
        EXPECT_EQ(Sentence(), "Too few sentences were read.");
        EXPECT_TRUE(StatusHas("Nothing was changed"));
        EXPECT_NE(Button("&Close"), nullptr);
        EXPECT_NE(Button("&Train again"), nullptr);
    });
    EXPECT_FALSE(profile.Voice());
}

TEST_F(TrainingWindowTest, WithoutAMicrophoneItSaysSoAndGoesOnWhenThereIsOne) {
    Train("", [this] {
        microphones.back().Hear(Stillness(4s));
        EXPECT_TRUE(Await([this] { return StatusHas("No sound comes from the microphone"); }));
        Sound room = Stillness(1s);
        for (std::size_t i = 0; i < room.size(); i += 7) room[i] = 20;
        microphones.back().Hear(room);
        EXPECT_TRUE(Await([this] { return StatusHas("Read the sentence aloud"); }));
    });
}

TEST_F(TrainingWindowTest, ItIsClosedAndBegunAnewByVoice) {
    if (!engine::testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks here, is missing";
    Train("", [this] {
        Button("&Start")->click();
        while (QPushButton* skip = Button("S&kip")) skip->click();
        EXPECT_NE(Shown("What may be said").find("close the window"), std::string::npos);
        Hear(Say("train once more"));
        ASSERT_TRUE(Await([this] { return Button("S&kip") != nullptr; }));
        EXPECT_EQ(Sentence(), kReadingSentences[0]);
        Hear(Say("cancel the training"));
        EXPECT_TRUE(Await([this] { return !window->isVisible(); }));
    });
}

TEST_F(TrainingWindowTest, WordsHaveAPageDuringWhichNothingIsTakenForRead) {
    if (!engine::testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks here, is missing";
    Train("", [this] {
        auto* pages = window->findChild<QTabWidget*>();
        Button("&Start")->click();
        auto& microphone = microphones.back();
        pages->setCurrentIndex(1);
        microphone.Hear(Joined(Say(std::string(kReadingSentences[0])), Stillness(1s)));
        microphone.WaitUntilRead();
        pages->setCurrentIndex(0);
        EXPECT_EQ(Sentence(), kReadingSentences[0]);
        microphone.Hear(Joined(Say(std::string(kReadingSentences[0])), Stillness(1s)));
        EXPECT_TRUE(Await([&] { return Sentence() == kReadingSentences[1]; }));
    });
}

}  // namespace
}  // namespace corvane::linux_desktop
