// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "grammar/keyword_store.h"

#include <gtest/gtest.h>

#include "simulated/simulated_desktop.h"
#include "support/expect_error.h"

namespace corvane {
namespace {

class KeywordStoreTest : public ::testing::Test {
protected:
    void Load(const std::string& file) {
        desktop.files.Put(paths.KeywordsTxtPath, file);
        store.Reload();
    }
    static std::string Joined(const KeywordList& list) {
        std::string joined;
        for (Long i = 0; i <= list.UpperBound(); i += 1) joined += "[" + list(i) + "]";
        return joined;
    }
    [[nodiscard]] std::string Names() const { return Joined(store.KeywordNames); }
    [[nodiscard]] std::string Paths() const { return Joined(store.KeywordPaths); }

    simulated::SimulatedDesktop desktop;
    DataPaths paths{.KeywordsTxtPath = "/k.txt"};
    KeywordStore store{desktop.files, paths};
};

TEST_F(KeywordStoreTest, AZeroByteFileGivesTwoEmptyElementsEach) {
    Load("");
    EXPECT_EQ(Names(), "[][]");
    EXPECT_EQ(Paths(), "[][]");
    EXPECT_EQ(store.KeywordNames.UpperBound(), 1);
}

TEST_F(KeywordStoreTest, BeforeAnyLoadTheListsAreEmptyOnes) {
    EXPECT_EQ(Names(), "[][]");
    EXPECT_EQ(store.KeywordPaths.UpperBound(), 1);
}

TEST_F(KeywordStoreTest, OneEntryGivesUpperBoundOneWithAnEmptyLastElement) {
    Load("notepad\r\n/usr/bin/xterm.exe\r\n");
    EXPECT_EQ(Names(), "[notepad][]");
    EXPECT_EQ(Paths(), "[/usr/bin/xterm.exe][]");
    EXPECT_EQ(store.KeywordNames.UpperBound(), 1);
}

TEST_F(KeywordStoreTest, ManyEntriesKeepTheOrderOfTheFile) {
    Load("b\r\n/b.exe\r\na\r\n/a.exe\r\n");
    EXPECT_EQ(Names(), "[b][a][]");
    EXPECT_EQ(Paths(), "[/b.exe][/a.exe][]");
}

TEST_F(KeywordStoreTest, AnOddLastKeywordMakesTheNamesOneLonger) {
    Load("one\r\n/one.exe\r\ntwo\r\n");
    EXPECT_EQ(Names(), "[one][two][]");
    EXPECT_EQ(Paths(), "[/one.exe][]");
}

TEST_F(KeywordStoreTest, AKeywordWithExeInItStandsAmongThePathsAheadOfItsOwn) {
    Load("one\r\n/one.exe\r\nmy.exe tool\r\n/tool.exe\r\ntwo\r\n/two.exe\r\n");
    EXPECT_EQ(Names(), "[one][two][]");
    EXPECT_EQ(Paths(), "[/one.exe][my.exe tool][/tool.exe][/two.exe][]");
}

TEST_F(KeywordStoreTest, APathInCapitalsCountsAsAKeyword) {
    Load("one\r\n/ONE.EXE\r\n");
    EXPECT_EQ(Names(), "[one][/ONE.EXE][]");
    EXPECT_EQ(Paths(), "[][]");
}

TEST_F(KeywordStoreTest, ExeAnywhereInTheLineMakesItAPath) {
    Load("one\r\n/my.exe.d/tool\r\ntwo\r\n/tool.exe.old\r\n");
    EXPECT_EQ(Names(), "[one][two][]");
    EXPECT_EQ(Paths(), "[/my.exe.d/tool][/tool.exe.old][]");
}

TEST_F(KeywordStoreTest, ABlankLineIsAKeyword) {
    Load("\r\none\r\n/one.exe\r\n");
    EXPECT_EQ(Names(), "[][one][]");
}

TEST_F(KeywordStoreTest, ALoneLineFeedEndsALineToo) {
    Load("one\n/one.exe\n");
    EXPECT_EQ(Names(), "[one][]");
    EXPECT_EQ(Paths(), "[/one.exe][]");
}

TEST_F(KeywordStoreTest, ALastLineWithoutLineEndCounts) {
    Load("one\r\n/one.exe");
    EXPECT_EQ(Paths(), "[/one.exe][]");
}

TEST_F(KeywordStoreTest, EveryReloadReplacesBothListsWhole) {
    Load("one\r\n/one.exe\r\ntwo\r\n/two.exe\r\n");
    Load("");
    EXPECT_EQ(Names(), "[][]");
    EXPECT_EQ(Paths(), "[][]");
}

TEST_F(KeywordStoreTest, AMissingFileIsAnErrorAndIsNotCreated) {
    EXPECT_ERROR(kFileNotFound, (store.Reload(), 0));
    EXPECT_FALSE(desktop.files.Bytes("/k.txt").has_value());
}

TEST_F(KeywordStoreTest, TheNamesAreNewWhenOnlyThePathsCannotBeRead) {
    Load("one\r\n/one.exe\r\n");
    desktop.files.Put("/k.txt", "two\r\n/two.exe\r\n");
    desktop.record.Fail("OpenTextFile", kPermissionDenied, 1);
    EXPECT_ERROR(kPermissionDenied, (store.Reload(), 0));
    EXPECT_EQ(Names(), "[two][]");
    EXPECT_EQ(Paths(), "[/one.exe][]");
}

TEST_F(KeywordStoreTest, OneReloadReadsTheFileTwice) {
    Load("one\r\n/one.exe\r\n");
    EXPECT_EQ(desktop.record.Transcript(), "OpenTextFile /k.txt\nOpenTextFile /k.txt\n");
}

TEST_F(KeywordStoreTest, AnElementOutsideTheBoundsIsASubscriptError) {
    Load("one\r\n/one.exe\r\n");
    EXPECT_ERROR(kSubscriptOutOfRange, store.KeywordNames(2));
    EXPECT_ERROR(kSubscriptOutOfRange, store.KeywordNames(-1));
}

class KeywordStoreWriters : public KeywordStoreTest {
protected:
    [[nodiscard]] std::string File() const { return desktop.files.Bytes("/k.txt").value(); }
};

TEST_F(KeywordStoreWriters, CreatingMakesAFileOfLengthZero) {
    store.CreateKeywordsTXT();
    EXPECT_EQ(File(), "");
}

TEST_F(KeywordStoreWriters, CreatingEmptiesAFileThatWasThereAndLeavesTheLists) {
    Load("one\r\n/one.exe\r\n");
    store.CreateKeywordsTXT();
    EXPECT_EQ(File(), "");
    EXPECT_EQ(Names(), "[one][]");
}

TEST_F(KeywordStoreWriters, SavingWritesKeywordAndPathInTurnAndReloads) {
    Load("old\r\n/old.exe\r\n");
    store.SaveKeywordsTXT({{"one", {"/one.exe"}}, {"two", {"/two.exe"}}});
    EXPECT_EQ(File(), "one\r\n/one.exe\r\ntwo\r\n/two.exe\r\n");
    EXPECT_EQ(Names(), "[one][two][]");
    EXPECT_EQ(Paths(), "[/one.exe][/two.exe][]");
}

TEST_F(KeywordStoreWriters, SavingARowWithoutAPathLeavesItsKeywordAlone) {
    store.SaveKeywordsTXT({{"one", {""}}, {"two", {"/two.exe"}}});
    EXPECT_EQ(File(), "one\r\ntwo\r\n/two.exe\r\n");
}

TEST_F(KeywordStoreWriters, BlankLinesSurviveASaveOnlyAsKeywordRows) {
    store.SaveKeywordsTXT({{"", {"/one.exe"}}});
    EXPECT_EQ(File(), "\r\n/one.exe\r\n");
}

TEST_F(KeywordStoreWriters, SavingNoRowsGivesAnEmptyStore) {
    Load("one\r\n/one.exe\r\n");
    store.SaveKeywordsTXT({});
    EXPECT_EQ(File(), "");
    EXPECT_EQ(Names(), "[][]");
}

TEST_F(KeywordStoreWriters, RemovingTakesTheEntrysTwoLinesAndReloads) {
    Load("one\r\n/one.exe\r\ntwo\r\n/two.exe\r\n");
    store.RemoveKeywordLines("one", "/one.exe");
    EXPECT_EQ(File(), "two\r\n/two.exe\r\n");
    EXPECT_EQ(Names(), "[two][]");
}

TEST_F(KeywordStoreWriters, RemovingAnUnknownKeywordWithAKnownPathStillTakesThePath) {
    Load("one\r\n/one.exe\r\n");
    store.RemoveKeywordLines("other", "/one.exe");
    EXPECT_EQ(File(), "one\r\n");
}

TEST_F(KeywordStoreWriters, RemovingDropsBlankLinesToo) {
    Load("\r\none\r\n\r\n/one.exe\r\ntwo\r\n");
    store.RemoveKeywordLines("two", "/two.exe");
    EXPECT_EQ(File(), "one\r\n/one.exe\r\n");
}

TEST_F(KeywordStoreWriters, RemovingOneOfTwoKeywordsOfAProgramTakesBothPaths) {
    Load("one\r\n/p.exe\r\ntwo\r\n/p.exe\r\n");
    store.RemoveKeywordLines("one", "/p.exe");
    EXPECT_EQ(File(), "two\r\n");
    EXPECT_EQ(Paths(), "[][]");
}

TEST_F(KeywordStoreWriters, TheStoreHealsByASaveOfTheRowsThatAreLeft) {
    Load("one\r\n/p.exe\r\ntwo\r\n/p.exe\r\n");
    store.RemoveKeywordLines("one", "/p.exe");
    store.SaveKeywordsTXT({{"two", {"/p.exe"}}});
    EXPECT_EQ(File(), "two\r\n/p.exe\r\n");
}

TEST_F(KeywordStoreWriters, RemovingComparesWholeLinesWithTheirCase) {
    Load("One\r\none more\r\n/one.exe\r\n");
    store.RemoveKeywordLines("one", "/ONE.exe");
    EXPECT_EQ(File(), "One\r\none more\r\n/one.exe\r\n");
}

TEST_F(KeywordStoreWriters, RemovingTheLastEntryLeavesAnEmptyStore) {
    Load("one\r\n/one.exe\r\n");
    store.RemoveKeywordLines("one", "/one.exe");
    EXPECT_EQ(File(), "");
    EXPECT_EQ(Names(), "[][]");
}

TEST_F(KeywordStoreWriters, AFullDiskInTheMiddleOfASaveLeavesAShorterStore) {
    Load("one\r\n/one.exe\r\n");
    desktop.record.Fail("WriteLine", kDiskFull, 1);
    EXPECT_ERROR(kDiskFull, (store.SaveKeywordsTXT({{"a", {"/a.exe"}}}), 0));
    EXPECT_EQ(File(), "a\r\n");
    // The routine was abandoned before its reload.
    EXPECT_EQ(Names(), "[one][]");
}

TEST_F(KeywordStoreWriters, AFileThatMayNotBeWrittenStaysAsItIs) {
    Load("one\r\n/one.exe\r\n");
    desktop.record.Fail("CreateTextFile", kPermissionDenied);
    EXPECT_ERROR(kPermissionDenied, (store.RemoveKeywordLines("one", "/one.exe"), 0));
    EXPECT_EQ(File(), "one\r\n/one.exe\r\n");
}

TEST_F(KeywordStoreWriters, RemovingFromAMissingFileIsAnErrorAndMakesNone) {
    EXPECT_ERROR(kFileNotFound, (store.RemoveKeywordLines("one", "/one.exe"), 0));
    EXPECT_FALSE(desktop.files.Bytes("/k.txt").has_value());
}

}  // namespace
}  // namespace corvane
