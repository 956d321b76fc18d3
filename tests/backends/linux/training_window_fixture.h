// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>

#include "engine/adaptation/reading_sentences.h"
#include "engine/speech_engine.h"
#include "engine/user_profile.h"
#include "linux/training/training_dialogs.h"
#include "support/room.h"
#include "support/temporary_folder.h"

namespace corvane::linux_desktop {

/// The window in which a person trains, as it is seen and worked.
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
            const std::string sentence(engine::kReadingSentences[i]);
            ASSERT_TRUE(Await([&] { return Sentence() == sentence; })) << sentence;
            Hear(engine::testing::SayAsSomebodySmall(sentence));
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
    void Hear(const engine::testing::Sound& sound) {
        microphones.back().Hear(
            engine::testing::Joined(sound, engine::testing::Stillness(std::chrono::seconds(1))));
    }

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

}  // namespace corvane::linux_desktop
