// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// The keys and buttons of the window, where its focus is and where it stands.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTabWidget>
#include <QWindow>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <string>

#include "training_window_fixture.h"

namespace corvane::linux_desktop {
namespace {

using engine::kReadingSentences;

TEST_F(TrainingWindowTest, EscapeTheButtonAndTheWindowsOwnCrossCloseItAtAnyTime) {
    Train("", [this] { Press(Qt::Key_Escape); });
    Train("", [this] { Button("&Close")->click(); });
    Train("", [this] { window->close(); });
    Train("", [this] {
        Button("&Start")->click();
        Press(Qt::Key_Escape);
    });
    Train("", [this] {
        Button("&Start")->click();
        Button("&Cancel")->click();
    });
    EXPECT_FALSE(profile.Voice());
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(TrainingWindowTest, EnterStartsIt) {
    Train("", [this] {
        Press(Qt::Key_Return);
        EXPECT_EQ(Button("&Start"), nullptr);
        EXPECT_NE(Button("&Again"), nullptr);
    });
}

TEST_F(TrainingWindowTest, EnterOnTheWordsPageClosesNothing) {
    Train("", [this] {
        auto* pages = window->findChild<QTabWidget*>();
        for (const char* stage : {"introduction", "reading", "over"}) {
            SCOPED_TRACE(stage);
            pages->setCurrentIndex(0);
            if (QPushButton* start = Button("&Start");
                start && stage != std::string("introduction"))
                start->click();
            else
                while (QPushButton* skip = Button("S&kip")) skip->click();
            pages->setCurrentIndex(1);
            for (const char* name : {"word", "sounds", "ways", "words", "palette"}) {
                auto* part = window->findChild<QWidget*>(name);
                ASSERT_NE(part, nullptr) << name;
                part->setFocus();
                QTest::keyClick(part, Qt::Key_Return);
                ASSERT_TRUE(window->isVisible()) << name;
            }
        }
        auto* word = window->findChild<QLineEdit*>("word");
        word->setFocus();
        QTest::keyClicks(word, "corvane");
        QTest::keyClick(word, Qt::Key_Return);
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(profile.Words().contains("corvane"));
    });
}

TEST_F(TrainingWindowTest, BehindTheTrainingEnterClosesIt) {
    Train("", [this] {
        Button("&Start")->click();
        while (QPushButton* skip = Button("S&kip")) skip->click();
        EXPECT_EQ(window->focusWidget(), Button("&Close"));
        Press(Qt::Key_Return);
        EXPECT_FALSE(window->isVisible());
    });
}

TEST_F(TrainingWindowTest, WhoWritesAWordIsNotDisturbedByTheEndOfATraining) {
    if (!engine::testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks here, is missing";
    Train("", [this] {
        ReadEnoughToTrain();
        window->findChild<QTabWidget*>()->setCurrentIndex(1);
        auto* word = window->findChild<QLineEdit*>("word");
        word->setFocus();
        ASSERT_TRUE(Await([this] { return Sentence() == "Your voice has been learnt."; }));
        EXPECT_EQ(window->focusWidget(), word);
    });
}

TEST_F(TrainingWindowTest, NoKeyPressedUnawaresThrowsAwayWhatWasRead) {
    if (!engine::testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks here, is missing";
    Train("", [this] {
        ReadEnoughToTrain();
        EXPECT_NE(window->focusWidget(), Button("&Cancel"));
        Press(Qt::Key_Return);
        Press(Qt::Key_Space);
        ASSERT_TRUE(window->isVisible());
        ASSERT_TRUE(Await([this] { return Button("&Close") != nullptr; }));
        EXPECT_EQ(Sentence(), "Your voice has been learnt.");
        EXPECT_EQ(window->focusWidget(), Button("&Close"));
    });
}

TEST_F(TrainingWindowTest, WhatCannotBeKeptIsKeptByAButtonOnceThereIsRoom) {
    if (!engine::testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks here, is missing";
    std::filesystem::remove(folder.Path());
    std::ofstream(folder.Path()) << "no folder";
    Train("", [this] {
        ReadEnoughToTrain();
        ASSERT_TRUE(Await([this] { return Sentence() == "Your voice could not be saved."; }));
        EXPECT_TRUE(StatusHas("can't be kept")) << Shown("Training status");
        EXPECT_TRUE(StatusHas("make room")) << Shown("Training status");
        EXPECT_EQ(window->focusWidget(), Button("Try to &save again"));
        std::filesystem::remove(folder.Path());
        Press(Qt::Key_Return);
        EXPECT_EQ(Sentence(), "Your voice has been learnt.");
        EXPECT_EQ(Button("Try to &save again"), nullptr);
        EXPECT_EQ(window->focusWidget(), Button("&Close"));
        EXPECT_TRUE(std::filesystem::exists(folder.Path() + "/voice.mllr"));
    });
}

TEST_F(TrainingWindowTest, NoKeyUndoesATrainingUnawares) {
    profile.KeepVoice(engine::SpeakerTransform::Identity());
    Train("", [this] {
        EXPECT_NE(Button("&Undo last training"), nullptr);
        for (int i = 0; i < 3; ++i) {
            Press(Qt::Key_Return);
            Press(Qt::Key_Space);
        }
        EXPECT_TRUE(profile.Voice());
        Button("&Undo last training")->click();
        EXPECT_FALSE(profile.Voice());
        EXPECT_TRUE(StatusHas("undone"));
    });
}

TEST_F(TrainingWindowTest, EachButtonAndPageHasAKeyOfItsOwn) {
    profile.KeepVoice(engine::SpeakerTransform::Identity());
    Train("", [this] {
        Button("&Start")->click();
        const auto* pages = window->findChild<QTabWidget*>();
        QStringList texts{pages->tabText(0), pages->tabText(1)};
        for (const char* name : {"&Undo last training", "&Again", "S&kip", "&Cancel"}) {
            ASSERT_NE(Button(name), nullptr) << name;
            texts.push_back(name);
        }
        std::set<QChar> keys;
        for (const QString& text : texts) keys.insert(text[text.indexOf('&') + 1].toLower());
        EXPECT_EQ(keys.size(), static_cast<std::size_t>(texts.size()));
    });
}

TEST_F(TrainingWindowTest, ItStandsOverAWindowThatIsSeen) {
    QWidget pad;
    pad.show();
    Train(
        "", [&] { EXPECT_EQ(window->windowHandle()->transientParent(), pad.windowHandle()); },
        static_cast<std::uint32_t>(pad.winId()));
}

TEST_F(TrainingWindowTest, OverAHiddenWindowItStandsAlone) {
    QWidget pad;
    Train(
        "",
        [&] {
            EXPECT_NE(window->windowHandle()->transientParent(), pad.windowHandle());
            EXPECT_TRUE(window->isVisible());
            EXPECT_FALSE(pad.isVisible());
        },
        static_cast<std::uint32_t>(pad.winId()));
}

TEST_F(TrainingWindowTest, ThereIsOneAtATime) {
    Train("", [this] {
        dialogs.UserTraining(0, "Corvane --Training", "again", profile);
        dialogs.AddRemoveWord(0, "Corvane --Add or correct words", "", profile);
        EXPECT_EQ(QApplication::activeModalWidget(), window);
        EXPECT_EQ(microphones.size(), 1U);
        EXPECT_EQ(Sentence(), kReadingSentences[0]);
    });
    Train("Another one.", [this] { EXPECT_EQ(Sentence(), "Another one."); });
}

TEST_F(TrainingWindowTest, TheWindowBelowMayGoMeanwhile) {
    auto pad = std::make_unique<QWidget>();
    pad->show();
    const auto number = static_cast<std::uint32_t>(pad->winId());
    Train(
        "",
        [&] {
            pad.reset();
            QApplication::processEvents();
            EXPECT_EQ(Sentence(), kReadingSentences[0]);
        },
        number);
}

}  // namespace
}  // namespace corvane::linux_desktop
