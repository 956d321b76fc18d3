// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/senone_log.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace corvane::engine {
namespace {

/// A folder that only this test uses.
class SenoneLogTest : public ::testing::Test {
protected:
    void SetUp() override {
        folder_ = std::filesystem::path(::testing::TempDir()) /
                  ("senone-log-" +
                   std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directory(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    [[nodiscard]] bool Empty() const { return std::filesystem::is_empty(folder_); }

    std::filesystem::path folder_;
};

void Write(std::ofstream& file, const std::vector<std::int16_t>& values) {
    file.write(reinterpret_cast<const char*>(values.data()),
               static_cast<std::streamsize>(values.size() * sizeof(std::int16_t)));
}

/// Writes a log of three senones as the decoder does.
bool StartLog(const SenoneLog& log, std::ofstream& file, const char* name = "000000001.sen") {
    file.open(log.Folder() + "/" + name, std::ios::binary);
    file << "s3\nversion 0.1\nendhdr\n";
    Write(file, {0x3344, 0x1122});  // byte order
    return file.is_open();
}

TEST_F(SenoneLogTest, GivesBackTheScoresOfEachFrame) {
    SenoneLog log(3, folder_);
    std::ofstream file;
    ASSERT_TRUE(log.Begin(10, [&] { return StartLog(log, file); }));
    Write(file, {3, 0, 10, 20});
    Write(file, {3, 5, 0, 40});
    file.close();

    const auto scores = log.Read();
    ASSERT_TRUE(scores);
    EXPECT_EQ(scores->senones, 3U);
    ASSERT_EQ(scores->Frames(), 2U);
    EXPECT_EQ(scores->Frame(1)[0], 5);
    EXPECT_EQ(scores->Frame(1)[2], 40);
}

TEST_F(SenoneLogTest, NothingHasANameWhileAnUtteranceIsUnderWay) {
    SenoneLog log(3, folder_);
    std::ofstream file;
    ASSERT_TRUE(log.Begin(10, [&] { return StartLog(log, file); }));
    EXPECT_TRUE(Empty());
    Write(file, {3, 0, 10, 20});
    EXPECT_TRUE(Empty());
}

TEST_F(SenoneLogTest, ServesOneUtteranceAfterTheOtherUnderTheSameFolderName) {
    SenoneLog log(3, folder_);
    const std::string name = log.Folder();
    for (std::int16_t cost = 1; cost <= 3; ++cost) {
        std::ofstream file;
        ASSERT_TRUE(
            log.Begin(10, [&] { return StartLog(log, file, std::to_string(cost).c_str()); }));
        Write(file, {3, 0, cost, 7});
        file.close();
        EXPECT_EQ(log.Read()->Frame(0)[1], cost);
        EXPECT_EQ(log.Folder(), name);
    }
}

TEST_F(SenoneLogTest, WithoutItsMemoryThereIsNoLog) {
    SenoneLog log(3, folder_ / "missing");
    EXPECT_FALSE(log.Begin(10, [] { return true; }));
    EXPECT_FALSE(log.Read());
}

TEST_F(SenoneLogTest, AnotherModelsLogIsNotRead) {
    SenoneLog log(3, folder_);
    std::ofstream file;
    ASSERT_TRUE(log.Begin(10, [&] { return StartLog(log, file); }));
    Write(file, {2, 0, 10, 2, 5, 0, 2, 7, 7});
    file.close();
    EXPECT_FALSE(log.Read());
}

TEST_F(SenoneLogTest, ADecoderThatDoesNotStartLeavesNothing) {
    SenoneLog log(3, folder_);
    EXPECT_FALSE(log.Begin(10, [] { return false; }));
    EXPECT_FALSE(log.Read());
    EXPECT_TRUE(Empty());
}

TEST_F(SenoneLogTest, ALogWithoutFramesHasScoresOfNone) {
    SenoneLog log(3, folder_);
    std::ofstream file;
    ASSERT_TRUE(log.Begin(10, [&] { return StartLog(log, file); }));
    file.close();
    EXPECT_EQ(log.Read()->Frames(), 0U);
}

}  // namespace
}  // namespace corvane::engine
