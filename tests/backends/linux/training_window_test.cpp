// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <string>

#include "engine/adaptation/reading_sentences.h"
#include "engine/speech_engine.h"
#include "engine/user_profile.h"
#include "linux/training/training_dialogs.h"
#include "support/room.h"
#include "support/temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

using engine::kReadingSentences;
using engine::testing::Joined;
using engine::testing::Say;
using engine::testing::SayAsSomebodySmall;
using engine::testing::Sound;
using engine::testing::Stillness;
using std::chrono_literals::operator""s;

class TrainingWindowTest : public ::testing::Test {
protected:
    /// Shows the window and does that as soon as it is there; closes it if nobody has.
    void Train(const std::string& sentence, const std::function<void()>& act,
               std::uint32_t parent = 0) {
        QTimer::singleShot(0, [&] {
            ASSERT_TRUE(Await([&] { return QApplication::activeModalWidget() != nullptr; }));
            window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            act();
            if (window->isVisible()) window->reject();
        });
        dialogs.UserTraining(parent, "Corvane --Training", sentence, profile);
        window = nullptr;
    }
    static bool Await(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, 60'000);
    }
    /// What is shown under that accessible name.
    [[nodiscard]] std::string Shown(const QString& name) const {
        for (const QLabel* label : window->findChildren<QLabel*>())
            if (label->accessibleName() == name) return label->text().toStdString();
        return "nothing";
    }
    [[nodiscard]] std::string Sentence() const { return Shown("Sentence to read"); }
    [[nodiscard]] bool StatusHas(const std::string& words) const {
        return Shown("Training status").find(words) != std::string::npos;
    }
    [[nodiscard]] QPushButton* Button(const QString& text) const {
        for (QPushButton* button : window->findChildren<QPushButton*>())
            if (button->text() == text && button->isVisible()) return button;
        return nullptr;
    }
    /// Where the focus is.
    void Press(Qt::Key key) {
        QWidget* focus = window->focusWidget();
        QTest::keyClick(focus != nullptr ? focus : window, key);
    }
    /// The first sentences aloud, and no more, until the training has begun.
    void ReadEnoughToTrain() {
        for (std::size_t i = 0; i < engine::VoiceTraining::kFewestSentences; ++i) {
            const std::string sentence(kReadingSentences[i]);
            ASSERT_TRUE(Await([&] { return Sentence() == sentence; })) << sentence;
            Hear(SayAsSomebodySmall(sentence));
        }
        ASSERT_TRUE(Await([this] { return Shown("Progress") == "Sentence 6 of 20"; }));
        while (QPushButton* skip = Button("S&kip")) skip->click();
        ASSERT_EQ(Shown("Progress"), "All sentences are read");
    }
    /// If not without scrolling down.
    void ExpectAllOfTheSentenceIsInView() const {
        QApplication::processEvents();
        const auto* card = window->findChild<QScrollArea*>();
        const QWidget& sentence = *card->widget();
        EXPECT_LE(sentence.width(), card->viewport()->width());
        EXPECT_GE(sentence.height(), sentence.heightForWidth(sentence.width()));
        EXPECT_EQ(card->verticalScrollBar()->maximum(),
                  sentence.height() - card->viewport()->height());
    }
    void Hear(const Sound& sound) { microphones.back().Hear(Joined(sound, Stillness(1s))); }

    engine::testing::TemporaryFolder folder;
    SpeechEngineConfig config;
    engine::UserProfile profile{{.folder = folder.Path(),
                                 .acoustic_model = config.acoustic_model,
                                 .dictionary = config.dictionary},
                                {}};
    std::deque<engine::testing::Microphone> microphones;
    TrainingDialogs dialogs{TrainingDialogs::Means{
        .open_microphone = [this] { return microphones.emplace_back().Source(); },
        .say = {},
        .hush = {}}};
    QDialog* window = nullptr;
};

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
