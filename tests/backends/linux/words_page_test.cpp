// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/words_page.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "engine/audio/memory_source.h"
#include "engine/speech_engine.h"
#include "linux/training/words_dialog.h"
#include "platform/error.h"
#include "support/room.h"
#include "support/temporary_folder.h"
#include "unprivileged.h"

namespace corvane::linux_desktop {
namespace {

using engine::WaysToSay;
using engine::WordsAndWays;
using std::chrono_literals::operator""s;

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
        microphone.Hear(
            engine::testing::Joined(engine::testing::Say(word), engine::testing::Stillness(2s)));
    }

    engine::testing::TemporaryFolder folder;
    std::unique_ptr<engine::UserProfile> profile;
    int changes = 0;
    bool voice = true;
    std::vector<std::string> said;
    engine::testing::Microphone microphone;
    std::unique_ptr<WordsPage> page;
};

TEST_F(WordsPageTest, AMadeUpWordIsAddedAsItsLettersAreReadAndUsedAtOnce) {
    Open();
    AddWord("corvane");
    EXPECT_EQ(profile->Words(), (WordsAndWays{{"corvane", {"K AO R V EY N"}}}));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(Status(), "corvane can be said and dictated from now on.");
    EXPECT_EQ(The<QListWidget>("words")->currentItem()->text(), "corvane");
}

TEST_F(WordsPageTest, ItsWaysAreSuggestedWhileItIsWrittenAndEnterAddsIt) {
    Open();
    Write("word", "read");
    EXPECT_TRUE(Await([&] { return Ways().count() == 2; }));
    EXPECT_EQ(WaysShown(), (std::vector<std::string>{"+ R EH D", "+ R IY D"}));
    QTest::keyClick(The<QLineEdit>("word"), Qt::Key_Return);
    EXPECT_EQ(profile->Words().at("read").size(), 2U);
}

TEST_F(WordsPageTest, AWayThatIsNotTickedIsNotTaken) {
    Open("read");
    Ways().item(0)->setCheckState(Qt::Unchecked);
    Press("add");
    EXPECT_EQ(profile->Words().at("read"), (WaysToSay{"R IY D"}));
    Ways().item(1)->setCheckState(Qt::Unchecked);
    Press("add");
    EXPECT_EQ(Status(), "There is no way to say it: tick one, write its sounds or record it.");
    EXPECT_EQ(profile->Words().at("read"), (WaysToSay{"R IY D"}));
}

TEST_F(WordsPageTest, AWrittenPronunciationReplacesTheSuggestedOne) {
    Open("corvane");
    Write("sounds", "k ao  r v ae n ");
    EXPECT_EQ(Complaint(), "");
    Press("add");
    EXPECT_EQ(profile->Words().at("corvane"), (WaysToSay{"K AO R V AE N"}));
    Write("sounds", "K AO R V IY N");
    Press("add");
    EXPECT_EQ(profile->Words().at("corvane"), (WaysToSay{"K AO R V IY N"}));
    EXPECT_EQ(changes, 2);
}

TEST_F(WordsPageTest, AnotherWayStandsBesideTheFirst) {
    Open("corvane");
    Press("other");
    EXPECT_EQ(page->focusWidget(), The<QLineEdit>("sounds"));
    Write("sounds", "K AA R V AH N");
    Press("add");
    EXPECT_EQ(profile->Words().at("corvane"), (WaysToSay{"K AO R V EY N", "K AA R V AH N"}));
}

TEST_F(WordsPageTest, AWrongSoundIsNamedAndNothingIsAdded) {
    Open("corvane");
    Write("sounds", "K AO QQ ");
    EXPECT_EQ(Complaint(), "QQ is no sound. The sounds there are stand below.");
    Press("add");
    EXPECT_EQ(Status(), "QQ is no sound. The sounds there are stand below.");
    Press("hear");
    EXPECT_TRUE(said.empty());
    EXPECT_TRUE(profile->Words().empty());
    Write("sounds", "");
    EXPECT_EQ(Complaint(), "Write at least one sound, or record the word.");
    Write("sounds", QString("B ").repeated(61));
    EXPECT_EQ(Complaint(), "These are too many sounds for one word.");
}

TEST_F(WordsPageTest, WhatIsNoWordIsRefusedWithAClearLine) {
    Open();
    Press("add");
    EXPECT_EQ(Status(), "Write the word that is to be added.");
    AddWord("two words");
    EXPECT_EQ(Status(), "These are several words. Add one at a time, without blanks.");
    for (const QString& word : {QString("x@1"), QString("#one"), QString(101, u'z')}) {
        AddWord(word);
        EXPECT_TRUE(Status().starts_with("This can't be a word:")) << word.toStdString();
    }
    EXPECT_EQ(changes, 0);
}

TEST_F(WordsPageTest, AWordThatNobodyCanReadIsAddedByItsSounds) {
    Open("--");
    EXPECT_EQ(Ways().count(), 0);
    Press("add");
    EXPECT_EQ(Status(), "There is no way to say it: tick one, write its sounds or record it.");
    Write("sounds", "D AE SH");
    Press("add");
    EXPECT_EQ(profile->Words().at("--"), (WaysToSay{"D AE SH"}));
}

TEST_F(WordsPageTest, AChosenWordShowsHowItIsSaidAndWhatElseMayBe) {
    profile->AddWord("read", {"R IY D", "R AA D"});
    Open();
    The<QListWidget>("words")->setCurrentRow(0);
    EXPECT_EQ(The<QLineEdit>("word")->text(), "read");
    EXPECT_EQ(WaysShown(), (std::vector<std::string>{"+ R IY D", "+ R AA D", "- R EH D"}));
    EXPECT_EQ(The<QPushButton>("add")->text(), "Ch&ange");
}

TEST_F(WordsPageTest, ARemovedWordIsGoneUntilItIsUndone) {
    profile->AddWord("zorbel", {"Z AO R B EH L"});
    Open("zorbel");
    Press("remove");
    EXPECT_TRUE(profile->Words().empty());
    EXPECT_EQ(The<QListWidget>("words")->count(), 0);
    EXPECT_FALSE(The<QPushButton>("remove")->isEnabled());
    Press("undo");
    EXPECT_EQ(profile->Words(), (WordsAndWays{{"zorbel", {"Z AO R B EH L"}}}));
    EXPECT_FALSE(The<QPushButton>("undo")->isEnabled());
}

TEST_F(WordsPageTest, AnAddedAndAChangedWordAreUndoneOneAfterTheOther) {
    Open("corvane");
    Press("add");
    Write("sounds", "K AA R");
    Press("add");
    Press("undo");
    EXPECT_EQ(profile->Words().at("corvane"), (WaysToSay{"K AO R V EY N"}));
    Press("undo");
    EXPECT_TRUE(profile->Words().empty());
}

TEST_F(WordsPageTest, AReadOnlyFolderIsToldAndNothingIsLost) {
    profile->AddWord("zorbel", {"Z AO R B EH L"});
    std::filesystem::permissions(folder.Path() + "/user", std::filesystem::perms::owner_read |
                                                              std::filesystem::perms::owner_exec |
                                                              std::filesystem::perms::others_read |
                                                              std::filesystem::perms::others_exec);
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::others_exec,
                                 std::filesystem::perm_options::add);
    Open();
    {
        const Unprivileged person;
        AddWord("corvane");
        EXPECT_EQ(Status(), "The words can't be kept in " + folder.Path() +
                                "/user/words.txt. Nothing has changed.");
        EXPECT_EQ(The<QLineEdit>("word")->text(), "corvane");
        Write("word", "zorbel");
        Press("remove");
        EXPECT_TRUE(Status().ends_with("Nothing has changed."));
    }
    std::filesystem::permissions(folder.Path() + "/user", std::filesystem::perms::owner_all);
    const WordsAndWays words{{"zorbel", {"Z AO R B EH L"}}};
    EXPECT_EQ(profile->Words(), words);
    MakeProfile();
    EXPECT_EQ(profile->Words(), words);
}

TEST_F(WordsPageTest, TheChosenWayIsHeard) {
    Open("read");
    Press("hear");
    Ways().setCurrentRow(1);
    Press("hear");
    Write("sounds", "R AA D");
    Press("hear");
    EXPECT_EQ(said, (std::vector<std::string>{"R EH D", "R IY D", "R AA D"}));
}

TEST_F(WordsPageTest, WhatIsHeardIsCutOffByARecordingAndByTheEndOfThePage) {
    Open("corvane");
    Press("hear");
    Press("record");
    Press("record");
    Press("hear");
    page->hide();
    EXPECT_EQ(said, (std::vector<std::string>{"K AO R V EY N", "-", "K AO R V EY N", "-"}));
}

TEST_F(WordsPageTest, AMissingVoiceIsTold) {
    voice = false;
    Open("corvane");
    Press("hear");
    EXPECT_EQ(Status(), "no voice is installed");
}

TEST_F(WordsPageTest, ARecordingGivesOneMoreWay) {
    if (!engine::testing::CanSpeak())
        GTEST_SKIP() << "flite, which speaks in this test, is missing";
    Open("corvane");
    Write("sounds", "K AA R M AH N");
    Record("corvane");
    ASSERT_TRUE(Await([&] { return Ways().count() == 2; })) << Status();
    EXPECT_EQ(Ways().currentRow(), 1);
    EXPECT_EQ(Ways().item(1)->checkState(), Qt::Checked);
    EXPECT_EQ(The<QLineEdit>("sounds")->text(), Ways().item(1)->text());
    EXPECT_EQ(The<QPushButton>("record")->text(), "&Record it");
    Press("add");
    EXPECT_EQ(profile->Words().at("corvane").size(), 2U);
}

TEST_F(WordsPageTest, ARecordingOfOneWordIsNoWayToSayAnother) {
    if (!engine::testing::CanSpeak())
        GTEST_SKIP() << "flite, which speaks in this test, is missing";
    Open("corvane");
    Record("banana");
    ASSERT_TRUE(Await([&] { return Status() == "Writing it down\u2026"; })) << Status();
    Write("word", "read");
    ASSERT_TRUE(Await([&] { return WaysShown().front() == "+ R EH D"; }));
    page.reset();  // waits for what is being written down
    EXPECT_TRUE(profile->Words().empty());
}

TEST_F(WordsPageTest, ADeadMicrophoneIsTold) {
    Open("corvane");
    Press("record");
    EXPECT_EQ(The<QPushButton>("record")->text(), "Stop &recording");
    microphone.HangUp();
    ASSERT_TRUE(Await([&] { return Status().starts_with("No sound comes"); })) << Status();
    EXPECT_EQ(The<QPushButton>("record")->text(), "Stop &recording") << "it may come back";
    const auto over = [&] { return The<QPushButton>("record")->text() == "&Record it"; };
    ASSERT_TRUE(Await(over));
    EXPECT_TRUE(Status().starts_with("No sound comes")) << Status();
}

TEST_F(WordsPageTest, AMicrophoneThatIsSilentBetweenWordsIsWaitedFor) {
    if (!engine::testing::CanSpeak())
        GTEST_SKIP() << "flite, which speaks in this test, is missing";
    Open("corvane");
    Press("record");
    microphone.Hear(engine::testing::Stillness(4s));
    ASSERT_TRUE(Await([&] { return Status().starts_with("No sound comes"); })) << Status();
    microphone.Hear(
        engine::testing::Joined(engine::testing::Say("corvane"), engine::testing::Stillness(2s)));
    EXPECT_TRUE(Await([&] { return Status().starts_with("You said"); })) << Status();
}

TEST_F(WordsPageTest, AChangeDropsWhatIsStillBeingWrittenDown) {
    if (!engine::testing::CanSpeak())
        GTEST_SKIP() << "flite, which speaks in this test, is missing";
    Open("corvane");
    Record("banana");
    ASSERT_TRUE(Await([&] { return Status() == "Writing it down\u2026"; })) << Status();
    EXPECT_FALSE(The<QPushButton>("record")->isEnabled());
    Press("add");
    EXPECT_TRUE(The<QPushButton>("record")->isEnabled());
    Write("sounds", "K AA R");
    Record("corvane");
    ASSERT_TRUE(Await([&] { return Status().starts_with("You said"); })) << Status();
    EXPECT_EQ(Ways().count(), 2) << "the banana is none of them";
    EXPECT_EQ(profile->Words().at("corvane"), (WaysToSay{"K AO R V EY N"}));
}

TEST_F(WordsPageTest, AWordIsWrittenDownThoughThePageIsHiddenMeanwhile) {
    if (!engine::testing::CanSpeak())
        GTEST_SKIP() << "flite, which speaks in this test, is missing";
    Open("corvane");
    Record("banana");
    ASSERT_TRUE(Await([&] { return Status() == "Writing it down\u2026"; })) << Status();
    page->hide();
    EXPECT_TRUE(Await([&] { return Ways().count() == 2; })) << Status();
}

TEST_F(WordsPageTest, ARecordingIsWrittenDownInTheVoiceThatThereIs) {
    if (!engine::testing::CanSpeak())
        GTEST_SKIP() << "flite, which speaks in this test, is missing";
    Open("corvane");
    Record("banana");
    ASSERT_TRUE(Await([&] { return Ways().count() == 2; })) << Status();
    // A voice that nobody has, in which all is heard as something else.
    engine::SpeakerTransform odd = engine::SpeakerTransform::Identity();
    for (auto& stream : odd.streams)
        for (std::size_t i = 0; i < stream.a.size(); ++i) stream.a[i][i] = -1.0F;
    profile->KeepVoice(odd);
    Record("banana");
    const auto written = [&] {
        return Status().starts_with("You said") || Status().starts_with("That did not");
    };
    ASSERT_TRUE(Await(written)) << Status();
    EXPECT_NE(Status(), "You said it as it is written down already.");
}

TEST_F(WordsPageTest, TheMicrophoneIsLetGoOfWhenStoppedOrHidden) {
    Open("corvane");
    Press("record");
    Press("record");
    EXPECT_EQ(The<QPushButton>("record")->text(), "&Record it");
    EXPECT_EQ(Status(), "");
    Press("record");
    page->hide();
    EXPECT_EQ(The<QPushButton>("record")->text(), "&Record it");
}

TEST_F(WordsPageTest, EverySoundStandsInThePaletteAndIsWrittenFromIt) {
    Open();
    auto* palette = The<QListWidget>("palette");
    std::set<std::string> sounds;
    for (int row = 0; row < palette->count(); ++row)
        sounds.insert(palette->item(row)->data(Qt::UserRole).toString().toStdString());
    EXPECT_EQ(sounds.size(), engine::Phones().size());
    for (const auto& phone : engine::Phones()) EXPECT_TRUE(sounds.contains(std::string(phone)));

    for (const char* sound : {"D", "AE", "SH"}) {
        const auto found = palette->findItems(QString(sound) + "  as", Qt::MatchStartsWith);
        ASSERT_EQ(found.size(), 1) << sound;
        palette->setCurrentItem(found.first());
        QTest::keyClick(palette, Qt::Key_Return);
    }
    EXPECT_EQ(The<QLineEdit>("sounds")->text(), "D AE SH");
    EXPECT_EQ(WaysShown(), (std::vector<std::string>{"+ D AE SH"}));
}

TEST_F(WordsPageTest, EverythingIsReachedByAKeyOfItsOwnAndHasAName) {
    Open();
    std::set<QChar> keys{u'V', u'W', u'C'};  // of the window around it
    const auto take = [&](const QString& text) {
        const qsizetype at = text.indexOf(u'&');
        ASSERT_GE(at, 0) << text.toStdString();
        EXPECT_TRUE(keys.insert(text.at(at + 1).toUpper()).second) << text.toStdString();
    };
    for (const auto* button : page->findChildren<QPushButton*>()) take(button->text());
    for (const auto* label : page->findChildren<QLabel*>())
        if (label->buddy() != nullptr) take(label->text());
    for (const auto* list : page->findChildren<QListWidget*>())
        EXPECT_FALSE(list->accessibleName().isEmpty());
    for (const auto* line : page->findChildren<QLineEdit*>())
        EXPECT_FALSE(line->accessibleName().isEmpty());
}

TEST_F(WordsPageTest, WordsThatWereLearnedElsewhereAreThereWhenItIsShown) {
    Open();
    page->hide();
    profile->LearnNewWords({"the zorbel"});
    page->show();
    EXPECT_EQ(The<QListWidget>("words")->count(), 1);
}

TEST_F(WordsPageTest, TheDialogHasItsTitleAndTheWordFilledInAndReturnsWhenItIsClosed) {
    bool seen = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), "Corvane --Add or correct words");
        EXPECT_EQ(dialog->findChild<QLineEdit*>("word")->text(), "corvane");
        // Enter adds; it closes nothing.
        QTest::keyClick(dialog->findChild<QLineEdit*>("word"), Qt::Key_Return);
        EXPECT_TRUE(dialog->isVisible());
        seen = true;
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    ShowWordsDialog(0, "Corvane --Add or correct words", "corvane", *profile, {});
    EXPECT_TRUE(seen);
    EXPECT_TRUE(profile->Words().contains("corvane"));
}

}  // namespace
}  // namespace corvane::linux_desktop
