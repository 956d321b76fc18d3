// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// Words that are written, chosen, removed and undone.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "linux/training/words_dialog.h"
#include "unprivileged.h"
#include "words_page_fixture.h"

namespace corvane::linux_desktop {
namespace {

using engine::WaysToSay;
using engine::WordsAndWays;

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
