// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/lexicon/user_words.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "platform/error.h"
#include "support/small_disk.h"
#include "support/temporary_folder.h"

namespace corvane::engine {
namespace {

class UserWordsTest : public ::testing::Test {
protected:
    UserWords Open() {
        complaints.clear();
        return {folder.Path(), [this](const std::string& line) { complaints.push_back(line); }};
    }
    void Write(const std::string& content) const {
        std::ofstream(folder.Path() + "/words.txt", std::ios::trunc) << content;
    }

    testing::TemporaryFolder folder;
    std::vector<std::string> complaints;
};

TEST_F(UserWordsTest, AWordIsThereInTheNextRunWithAllItsWays) {
    Open().Add("Zorbel", {"Z AO R B EH L", "Z ER B AH L"});
    const UserWords words = Open();
    EXPECT_EQ(words.All(), (WordsAndWays{{"Zorbel", {"Z AO R B EH L", "Z ER B AH L"}}}));
    EXPECT_TRUE(complaints.empty());
}

TEST_F(UserWordsTest, AWordThatIsAddedAgainIsSaidTheNewWayOnly) {
    UserWords words = Open();
    words.Add("zorbel", {"Z AO R B EH L"});
    words.Add("zorbel", {"Z ER B AH L"});
    EXPECT_EQ(words.All().at("zorbel"), (WaysToSay{"Z ER B AH L"}));
    EXPECT_EQ(Open().All(), words.All());
}

TEST_F(UserWordsTest, ARemovedWordIsGoneAndToRemoveNoneIsNoError) {
    UserWords words = Open();
    words.Add("zorbel", {"Z AO R B EH L"});
    words.Remove("zorbel");
    words.Remove("zorbel");
    EXPECT_TRUE(Open().All().empty());
}

TEST_F(UserWordsTest, WhatIsNoWordOrCannotBeSaidIsRefused) {
    UserWords words = Open();
    for (const char* word : {"", "two words", "zor(2)", "<s>", "#zorbel", "a\nb", "x@1"})
        EXPECT_THROW(words.Add(word, {"Z AO R"}), RuntimeError) << word;
    EXPECT_THROW(words.Add(std::string(101, 'z'), {"Z"}), RuntimeError);
    EXPECT_THROW(words.Add("zorbel", {}), RuntimeError);
    for (const char* phones : {"", "Q", "z ao r", "SIL", "+NOISE+", "Z AO1 R"})
        EXPECT_THROW(words.Add("zorbel", {"Z AO R", phones}), RuntimeError) << phones;
    EXPECT_TRUE(words.All().empty());
}

TEST_F(UserWordsTest, BrokenLinesAreIgnoredWithOneComplaint) {
    Write("zorbel Z AO R B EH L\r\n\n# of my own\nfoo\nbar Q X\nb(2) B IY\nmivvy  M IH\tV IY\n");
    const UserWords words = Open();
    EXPECT_EQ(words.All(), (WordsAndWays{{"mivvy", {"M IH V IY"}}, {"zorbel", {"Z AO R B EH L"}}}));
    ASSERT_EQ(complaints.size(), 1U);
    EXPECT_EQ(complaints[0], "3 of the lines in " + folder.Path() +
                                 "/words.txt are ignored, the first of them line 4: they are no "
                                 "word and phones.");
}

TEST_F(UserWordsTest, AForeignFileGivesNoWords) {
    Write(std::string(5000, '\0') + "\xff\xfe\n" + std::string(100'000, 'a') + " AA\n");
    EXPECT_TRUE(Open().All().empty());
    EXPECT_EQ(complaints.size(), 1U);
}

TEST(UserWordsOnAFullDisk, ChangeNothingWhenTheyCannotBeKept) {
    const corvane::testing::SmallDisk disk;
    if (!disk.IsThere()) GTEST_SKIP() << "no file system may be mounted here";
    UserWords words(disk / "profile", {});
    words.Add("zorbel", {"Z AO R B EH L"});
    words.Add("frob", {"F R AA B"});
    const WordsAndWays all = words.All();
    const auto files = disk.Files();
    disk.Fill();
    EXPECT_THROW(words.Add("quux", {"K W AH K S"}), RuntimeError);
    EXPECT_THROW(words.Remove("zorbel"), RuntimeError);
    EXPECT_EQ(words.All(), all);
    EXPECT_EQ(disk.Files(), files);
    disk.MakeRoom();
    words.Add("quux", {"K W AH K S"});
    EXPECT_EQ(UserWords(disk / "profile", {}).All().size(), 3U);
}

TEST_F(UserWordsTest, AWordThatCannotBeKeptIsNotAdded) {
    Write("in the way");
    UserWords words(folder.Path() + "/words.txt", {});
    EXPECT_THROW(words.Add("zorbel", {"Z AO R"}), RuntimeError);
    EXPECT_TRUE(words.All().empty());
}

}  // namespace
}  // namespace corvane::engine
