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

}  // namespace
}  // namespace corvane
