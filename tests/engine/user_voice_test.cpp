// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/user_voice.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "engine/speech_engine.h"
#include "platform/error.h"
#include "support/small_disk.h"
#include "support/temporary_folder.h"

namespace corvane::engine {
namespace {

SpeakerTransform Shifted(float by) {
    SpeakerTransform transform = SpeakerTransform::Identity();
    transform.streams[0].b[3] = by;
    transform.streams[2].a[12][1] = -0.25F;
    return transform;
}

float ShiftOf(const UserVoice::Transform& transform) {
    return transform ? transform->streams[0].b[3] : 0.0F;
}

class UserVoiceTest : public ::testing::Test {
protected:
    UserVoice Open() {
        complaints.clear();
        return {folder.Path() + "/made/for/it", SpeechEngineConfig().acoustic_model,
                [this](const std::string& line) { complaints.push_back(line); }};
    }
    [[nodiscard]] std::string File() const { return folder.Path() + "/made/for/it/voice.mllr"; }
    [[nodiscard]] std::string Kept() {
        Open().Keep(Shifted(1.5F));
        std::ifstream file(File());
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// Whether a file of this content is passed over with one line that names it.
    ::testing::AssertionResult IsIgnored(const std::string& content) {
        std::ofstream(File(), std::ios::trunc) << content;
        const UserVoice voice = Open();
        if (voice.Present()) return ::testing::AssertionFailure() << "it is used";
        if (complaints.size() != 1 || complaints[0].find(File()) == std::string::npos)
            return ::testing::AssertionFailure() << complaints.size() << " complaints";
        return ::testing::AssertionSuccess();
    }

    testing::TemporaryFolder folder;
    std::vector<std::string> complaints;
};

TEST_F(UserVoiceTest, NobodyHasAVoiceAtFirst) {
    EXPECT_FALSE(Open().Present());
    EXPECT_TRUE(complaints.empty());
}

TEST_F(UserVoiceTest, WhatIsKeptIsThereInTheNextRun) {
    Open().Keep(Shifted(1.5F));
    const UserVoice voice = Open();
    ASSERT_TRUE(voice.Present());
    EXPECT_EQ(voice.Present()->streams[0].b[3], 1.5F);
    EXPECT_EQ(voice.Present()->streams[2].a[12][1], -0.25F);
    EXPECT_EQ(voice.Present()->streams[1].a[4][4], 1.0F);
    EXPECT_TRUE(complaints.empty());
}

TEST_F(UserVoiceTest, TheLastTrainingIsUndoneAlsoInALaterRun) {
    Open().Keep(Shifted(1.5F));
    Open().Keep(Shifted(2.5F));
    UserVoice voice = Open();
    EXPECT_EQ(ShiftOf(voice.Present()), 2.5F);
    voice.Undo();
    EXPECT_EQ(ShiftOf(voice.Present()), 1.5F);
    EXPECT_EQ(ShiftOf(Open().Present()), 1.5F);
    voice.Undo();
    EXPECT_FALSE(voice.Present());
    EXPECT_FALSE(Open().Present());
}

TEST_F(UserVoiceTest, WithoutAFolderItIsForgottenWithTheEngine) {
    UserVoice voice("", SpeechEngineConfig().acoustic_model, {});
    voice.Keep(Shifted(1.5F));
    EXPECT_EQ(ShiftOf(voice.Present()), 1.5F);
    voice.Undo();
    EXPECT_FALSE(voice.Present());
}

TEST_F(UserVoiceTest, AFileCutShortAnywhereIsIgnored) {
    const std::string whole = Kept();
    for (std::size_t length = 0; length + 2 < whole.size(); length += 97)
        EXPECT_TRUE(IsIgnored(whole.substr(0, length))) << length;
    EXPECT_TRUE(IsIgnored(whole.substr(0, whole.size() - 2)));
}

TEST_F(UserVoiceTest, NumbersThatNoVoiceHasAreIgnored) {
    const std::string whole = Kept();
    for (const char* number :
         {"nan", "-nan", "inf", "-inf", "1e30", "1e999", "0x10", "one", "--1"}) {
        std::string broken = whole;
        EXPECT_TRUE(IsIgnored(broken.replace(broken.find("1.5"), 3, number))) << number;
    }
}

TEST_F(UserVoiceTest, HugeAndNegativeCountsAreIgnored) {
    const std::string rest = Kept().substr(2);
    for (const char* classes : {"2000000000", "-1", "0", "99999999999999999999", "1.5"})
        EXPECT_TRUE(IsIgnored(std::string(classes) + "\n" + rest)) << classes;
    EXPECT_TRUE(IsIgnored("1\n2000000000\n" + rest.substr(2)));
    EXPECT_TRUE(IsIgnored("1\n3\n2000000000\n" + rest.substr(5)));
}

TEST_F(UserVoiceTest, TheVoiceOfAnotherModelIsIgnored) {
    const std::string whole = Kept();
    EXPECT_TRUE(IsIgnored(whole.substr(0, whole.rfind(' ')) + " 0123456789abcdef\n"));
}

TEST_F(UserVoiceTest, WhatIsNoVoiceAtAllIsIgnored) {
    (void)Kept();
    EXPECT_TRUE(IsIgnored("dear diary"));
    EXPECT_TRUE(IsIgnored(std::string(1000, '\0')));
    EXPECT_TRUE(IsIgnored(std::string(1'000'000, '1')));
    EXPECT_TRUE(IsIgnored(Kept() + "more"));
    std::filesystem::remove(File());
    std::filesystem::create_directory(File());
    const UserVoice voice = Open();
    EXPECT_FALSE(voice.Present());
    EXPECT_EQ(complaints.size(), 1U);
}

TEST(UserVoiceOnAFullDisk, ChangesNothingWhenItCannotBeKept) {
    const corvane::testing::SmallDisk disk;
    if (!disk.IsThere()) GTEST_SKIP() << "no file system may be mounted here";
    UserVoice voice(disk / "profile", SpeechEngineConfig().acoustic_model, {});
    voice.Keep(Shifted(1.0F));
    disk.Fill();
    disk.MakeRoom(4096);  // for one of the two files that it takes
    const auto before = disk.Files();
    EXPECT_THROW(voice.Keep(Shifted(2.0F)), RuntimeError);
    EXPECT_TRUE(disk.Files() == before) << disk.Files().size() << " files";
    EXPECT_EQ(ShiftOf(voice.Present()), 1.0F);
    voice.Undo();
    EXPECT_FALSE(voice.Present());
    EXPECT_FALSE(UserVoice(disk / "profile", SpeechEngineConfig().acoustic_model, {}).Present());
}

TEST_F(UserVoiceTest, TheEarlierOneStaysWhereTheNewOneCannotTakeItsPlace) {
    Open().Keep(Shifted(1.5F));
    Open().Keep(Shifted(2.5F));
    std::filesystem::remove(File());
    std::filesystem::create_directories(File() + "/in/the/way");
    UserVoice voice = Open();
    EXPECT_THROW(voice.Keep(Shifted(3.5F)), RuntimeError);
    std::filesystem::remove_all(File());
    voice = Open();
    EXPECT_FALSE(voice.Present());
    voice.Undo();
    EXPECT_EQ(ShiftOf(voice.Present()), 1.5F);
}

TEST_F(UserVoiceTest, AVoiceThatCannotBeKeptIsNotTaken) {
    std::ofstream(folder.Path() + "/file") << "in the way";
    UserVoice voice(folder.Path() + "/file", SpeechEngineConfig().acoustic_model, {});
    EXPECT_THROW(voice.Keep(Shifted(1.5F)), RuntimeError);
    EXPECT_FALSE(voice.Present());
}

}  // namespace
}  // namespace corvane::engine
