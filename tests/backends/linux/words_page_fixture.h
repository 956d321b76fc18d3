// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/speech_engine.h"
#include "linux/training/words_page.h"
#include "platform/error.h"
#include "support/room.h"
#include "support/temporary_folder.h"

namespace corvane::linux_desktop {

/// The page on which words are written, heard and recorded, and the hands that work it.
class WordsPageTest : public ::testing::Test {
protected:
    WordsPageTest() { MakeProfile(); }

    void MakeProfile() {
        const SpeechEngineConfig config;
        profile = std::make_unique<engine::UserProfile>(
            engine::UserProfile::Places{.folder = folder.Path() + "/user",
                                        .acoustic_model = config.acoustic_model,
                                        .dictionary = config.dictionary},
            engine::Complain());
        profile->OnChange([this] { ++changes; });
    }
    void Open(const std::string& word = {}) {
        WordsPage::Means means{.say = [this](const std::string& phones) { said.push_back(phones); },
                               .hush = [this] { said.push_back("-"); },
                               .open_microphone = [this] { return microphone.Source(); }};
        if (!voice)
            means.say = [](const std::string&) {
                throw RuntimeError(kAutomationError, "no voice is installed");
            };
        page = std::make_unique<WordsPage>(*profile, std::move(means), word);
        page->show();
    }

    template <class Kind>
    [[nodiscard]] Kind* The(const char* name) const {
        return page->findChild<Kind*>(name);
    }
    void Write(const char* field, const QString& text) {
        auto* line = The<QLineEdit>(field);
        line->clear();
        QTest::keyClicks(line, text);
        if (text.isEmpty()) emit line->textEdited({});
    }
    void Press(const char* button) { The<QPushButton>(button)->click(); }
    [[nodiscard]] QListWidget& Ways() const { return *The<QListWidget>("ways"); }
    [[nodiscard]] std::vector<std::string> WaysShown() const {
        std::vector<std::string> shown;
        for (int row = 0; row < Ways().count(); ++row)
            shown.push_back((Ways().item(row)->checkState() == Qt::Checked ? "+ " : "- ") +
                            Ways().item(row)->text().toStdString());
        return shown;
    }
    /// As a screen reader reads it: what is shown may be broken anywhere.
    [[nodiscard]] std::string Status() const {
        return The<QLabel>("status")->accessibleDescription().toStdString();
    }
    [[nodiscard]] std::string Complaint() const {
        return The<QLabel>("complaint")->text().toStdString();
    }
    void AddWord(const QString& word) {
        Write("word", word);
        Press("add");
    }
    static bool Await(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, 60'000);
    }
    /// Says it into the microphone while the page records.
    void Record(const std::string& word) {
        microphone = {};
        Press("record");
        microphone.Hear(engine::testing::Joined(
            engine::testing::Say(word), engine::testing::Stillness(std::chrono::seconds(2))));
    }

    engine::testing::TemporaryFolder folder;
    std::unique_ptr<engine::UserProfile> profile;
    int changes = 0;
    bool voice = true;
    std::vector<std::string> said;
    engine::testing::Microphone microphone;
    std::unique_ptr<WordsPage> page;
};

}  // namespace corvane::linux_desktop
