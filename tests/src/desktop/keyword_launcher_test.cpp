// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/keyword_launcher.h"

#include <gtest/gtest.h>

#include "simulated/simulated_desktop.h"

namespace corvane {
namespace {

class KeywordLauncherTest : public ::testing::Test {
protected:
    /// What a phrase starts, given the lines of keywords.txt. Every path can be started.
    std::string Started(const std::string& keywords_txt, const std::string& phrase) {
        desktop.files.Put(paths.KeywordsTxtPath, keywords_txt);
        store.Reload();
        for (Long i = 0; i <= store.KeywordPaths.UpperBound(); i += 1)
            if (!store.KeywordPaths(i).empty()) desktop.runtime.Install(store.KeywordPaths(i));
        desktop.record.Clear();
        launcher.RunKeywordsIn(phrase, ResumeNext());
        std::string started;
        for (const std::string& program : desktop.runtime.Started()) started += program + " ";
        return started;
    }
    bool Starts(const std::string& keyword, const std::string& phrase) {
        simulated::SimulatedDesktop fresh;
        fresh.files.Put("/k.txt", keyword + "\r\n/p.exe\r\n");
        fresh.runtime.Install("/p.exe");
        const DataPaths fresh_paths{.KeywordsTxtPath = "/k.txt"};
        KeywordStore fresh_store(fresh.files, fresh_paths);
        fresh_store.Reload();
        KeywordLauncher(fresh_store, fresh.runtime).RunKeywordsIn(phrase, ResumeNext());
        return fresh.runtime.Started().size() == 1;
    }

    simulated::SimulatedDesktop desktop;
    DataPaths paths{.KeywordsTxtPath = "/k.txt"};
    KeywordStore store{desktop.files, paths};
    KeywordLauncher launcher{store, desktop.runtime};
};

TEST_F(KeywordLauncherTest, AKeywordBeforeABlankStartsItsProgramInANormalWindow) {
    EXPECT_EQ(Started("notepad\r\n/usr/bin/xterm.exe\r\n", "run notepad please"),
              "/usr/bin/xterm.exe ");
    EXPECT_EQ(desktop.record.Transcript(), "Shell /usr/bin/xterm.exe 1\n");
}

TEST_F(KeywordLauncherTest, AKeywordAtTheVeryEndIsFound) {
    EXPECT_TRUE(Starts("notepad", "load notepad"));
    EXPECT_TRUE(Starts("notepad", "notepad"));
}

TEST_F(KeywordLauncherTest, WhatStandsInFrontOfAKeywordDoesNotMatter) {
    EXPECT_TRUE(Starts("pad", "run notepad"));
}

TEST_F(KeywordLauncherTest, OneMoreCharacterAtTheEndOfThePhrasePasses) {
    EXPECT_TRUE(Starts("notepad", "run notepads"));
}

TEST_F(KeywordLauncherTest, TwoMoreCharactersDoNot) {
    EXPECT_FALSE(Starts("notepad", "run notepad2x"));
    EXPECT_FALSE(Starts("notepad", "run notepads please"));
}

TEST_F(KeywordLauncherTest, OnlyTheFirstOccurrenceIsTested) {
    EXPECT_FALSE(Starts("note", "notepad note now"));
}

TEST_F(KeywordLauncherTest, TwoKeywordsInOnePhraseStartTwoProgramsInTheFilesOrder) {
    EXPECT_EQ(Started("paint\r\n/paint.exe\r\nnotepad\r\n/note.exe\r\n", "notepad paint"),
              "/paint.exe /note.exe ");
}

TEST_F(KeywordLauncherTest, AKeywordInOtherLetterCaseIsNotFound) {
    EXPECT_FALSE(Starts("Notepad", "run notepad"));
    EXPECT_FALSE(Starts("notepad", "run Notepad"));
}

TEST_F(KeywordLauncherTest, AnEmptyStoreGivesOnePassThatFindsNothingInALongerPhrase) {
    EXPECT_EQ(Started("", "what time is it"), "");
    EXPECT_EQ(desktop.record.Transcript(), "");
}

TEST_F(KeywordLauncherTest, AnEmptyKeywordIsFoundInAPhraseOfOneCharacterAndFailsSilently) {
    EXPECT_EQ(Started("", "a"), "");
    EXPECT_EQ(desktop.record.Transcript(), "Shell  1\n");
}

TEST_F(KeywordLauncherTest, AProgramThatCannotBeStartedDoesNotStopTheOthers) {
    desktop.files.Put("/k.txt", "gone\r\n/gone.exe\r\nnotepad\r\n/note.exe\r\n");
    store.Reload();
    desktop.runtime.Install("/note.exe");
    launcher.RunKeywordsIn("gone notepad", ResumeNext());
    EXPECT_EQ(desktop.runtime.Started(), std::vector<std::string>{"/note.exe"});
}

TEST_F(KeywordLauncherTest, AKeywordBeyondThePathsIsPassedOverAndTheLoopGoesOn) {
    EXPECT_EQ(Started("one\r\ntwo\r\nthree\r\n/one.exe\r\n", "three two one"), "/one.exe ");
}

TEST_F(KeywordLauncherTest, AKeywordWithExeShiftsThePairsBehindIt) {
    // "my.exe tool" counts as a path, so "two" starts that text and "three" the tool.
    EXPECT_EQ(Started("my.exe tool\r\n/tool.exe\r\ntwo\r\n/two.exe\r\nthree\r\n/three.exe\r\n",
                      "two three"),
              "my.exe tool /tool.exe ");
}

TEST_F(KeywordLauncherTest, AKeywordOfOtherLettersIsCountedInCharacters) {
    EXPECT_TRUE(Starts("übersicht", "zeige übersicht bitte"));
    EXPECT_TRUE(Starts("übersicht", "zeige übersicht"));
    EXPECT_FALSE(Starts("übersicht", "zeige übersichten"));
}

TEST_F(KeywordLauncherTest, APlaceBeyond16BitsLeavesThePlaceOfTheKeywordBefore) {
    // "xb" stands at 32770. The assignment overflows, the place of "aa" is tested once more, and
    // the blank behind that decides.
    const std::string phrase = "aa b" + std::string(32766, 'x') + "b";
    EXPECT_EQ(Started("aa\r\n/a.exe\r\nxb\r\n/b.exe\r\n", phrase), "/a.exe /b.exe ");
}

}  // namespace
}  // namespace corvane
