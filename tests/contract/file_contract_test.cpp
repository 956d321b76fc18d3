// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "contract/world.h"
#include "platform/error.h"
#include "support/expect_error.h"

namespace corvane {
namespace {

class FileContract : public ::testing::Test {
protected:
    [[nodiscard]] std::string Lines(const std::string& bytes) {
        world->Put(path, bytes);
        const auto stream = world->files().OpenTextFile(path, ForReading, false);
        std::string lines;
        while (!stream->AtEndOfStream()) lines += "[" + stream->ReadLine() + "]";
        stream->Close();
        return lines;
    }

    std::unique_ptr<testing::World> world = testing::MakeWorld();
    std::string path = world->Folder() + "/words.txt";
};

TEST_F(FileContract, LinesEndInCrLfOrInALoneLf) {
    EXPECT_EQ(Lines("one\r\ntwo\nthree"), "[one][two][three]");
    EXPECT_EQ(Lines("\r\n\n"), "[][]");
    EXPECT_EQ(Lines(""), "");
}

TEST_F(FileContract, ACarriageReturnInsideALineBelongsToIt) {
    EXPECT_EQ(Lines("one\rtwo\r\n"), "[one\rtwo]");
    EXPECT_EQ(Lines("one\r"), "[one\r]");
}

TEST_F(FileContract, BytesArePassedOnAsTheyStand) {
    const std::string bytes("\xFF\x00\xC3\xA4", 4);
    EXPECT_EQ(Lines(bytes + "\r\n"), "[" + bytes + "]");
}

TEST_F(FileContract, ReadingBehindTheEndIsAnError) {
    world->Put(path, "one\r\n");
    const auto stream = world->files().OpenTextFile(path, ForReading, false);
    EXPECT_EQ(stream->ReadLine(), "one");
    EXPECT_ERROR(kInputPastEnd, stream->ReadLine());
}

TEST_F(FileContract, WrittenLinesEndInCrLf) {
    const auto stream = world->files().CreateTextFile(path, true);
    stream->WriteLine("one");
    stream->WriteLine("");
    stream->Close();
    EXPECT_EQ(world->Bytes(path), "one\r\n\r\n");
}

TEST_F(FileContract, AStreamThatIsLetGoIsComplete) {
    world->files().CreateTextFile(path, true)->WriteLine("one");
    EXPECT_EQ(world->Bytes(path), "one\r\n");
}

TEST_F(FileContract, CreatingEmptiesTheFileAtOnce) {
    world->Put(path, "old\r\n");
    const auto stream = world->files().CreateTextFile(path, true);
    EXPECT_EQ(world->Bytes(path), "");
}

TEST_F(FileContract, CreatingOverAFileNeedsLeave) {
    world->Put(path, "old\r\n");
    EXPECT_ERROR(kFileAlreadyExists, world->files().CreateTextFile(path, false));
    EXPECT_EQ(world->Bytes(path), "old\r\n");
}

TEST_F(FileContract, TheLengthOfAFileIsCountedInBytes) {
    world->Put(path, "");
    EXPECT_EQ(world->files().FileLen(path), 0);
    world->Put(path, "\xC3\xA4\r\n");
    EXPECT_EQ(world->files().FileLen(path), 4);
    EXPECT_ERROR(kFileNotFound, world->files().FileLen(world->Folder() + "/missing.txt"));
}

TEST_F(FileContract, AMissingFileIsNotFoundUnlessItMayBeMade) {
    EXPECT_ERROR(kFileNotFound, world->files().OpenTextFile(path, ForReading, false));
    EXPECT_TRUE(world->files().OpenTextFile(path, ForReading, true)->AtEndOfStream());
    EXPECT_EQ(world->Bytes(path), "");
}

TEST_F(FileContract, ADeletedFileIsGoneAndAMissingOneCannotBeDeleted) {
    world->Put(path, "old");
    world->files().DeleteFile(path);
    EXPECT_ERROR(kFileNotFound, world->files().OpenTextFile(path, ForReading, false));
    EXPECT_ERROR(kFileNotFound, (world->files().DeleteFile(path), 0));
}

}  // namespace
}  // namespace corvane
