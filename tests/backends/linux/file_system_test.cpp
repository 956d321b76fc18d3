// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/files/file_system.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>

#include "expect_error.h"
#include "temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

class FileSystemTest : public testing::Test {
protected:
    [[nodiscard]] std::int32_t ErrorOfOpening(const std::string& path) {
        return ErrorOf([&] { (void)files.OpenTextFile(path, ForReading, false); });
    }
    [[nodiscard]] std::int32_t ErrorOfCreating(const std::string& path) {
        return ErrorOf([&] { (void)files.CreateTextFile(path, true); });
    }

    TemporaryFolder folder;
    FileSystem files;
};

TEST_F(FileSystemTest, LineEndsInCrLfOrInLfAlone) {
    const auto file =
        files.OpenTextFile(folder.Put("a", "one\r\n\ntwo\r three\nend"), ForReading, false);
    EXPECT_EQ(file->ReadLine(), "one");
    EXPECT_EQ(file->ReadLine(), "");
    EXPECT_EQ(file->ReadLine(), "two\r three");
    EXPECT_FALSE(file->AtEndOfStream());
    EXPECT_EQ(file->ReadLine(), "end");
    EXPECT_TRUE(file->AtEndOfStream());
}

TEST_F(FileSystemTest, BehindTheLastLineEndIsNoFurtherLine) {
    const auto file = files.OpenTextFile(folder.Put("a", "one\r\n"), ForReading, false);
    EXPECT_EQ(file->ReadLine(), "one");
    EXPECT_TRUE(file->AtEndOfStream());
    EXPECT_EQ(ErrorOf([&] { file->ReadLine(); }), kInputPastEnd);
}

TEST_F(FileSystemTest, BytesArePassedOnAsTheyStand) {
    const std::string bytes("a\0\xFF\x80", 4);
    const auto file = files.OpenTextFile(folder.Put("a", bytes + "\r\n"), ForReading, false);
    EXPECT_EQ(file->ReadLine(), bytes);
}

TEST_F(FileSystemTest, LinesAreWrittenWithCrLfAtOnce) {
    const auto file = files.CreateTextFile(folder / "a", true);
    file->WriteLine("one");
    EXPECT_EQ(folder.Bytes("a"), "one\r\n");
    file->WriteLine("");
    file->Close();
    EXPECT_EQ(folder.Bytes("a"), "one\r\n\r\n");
}

TEST_F(FileSystemTest, CreatingEmptiesTheFileInPlace) {
    const auto path = folder.Put("a", "old content");
    std::filesystem::create_hard_link(path, folder / "same");
    files.CreateTextFile(path, true)->WriteLine("new");
    EXPECT_EQ(folder.Bytes("same"), "new\r\n");
}

TEST_F(FileSystemTest, CreatingWithoutOverwritingKeepsWhatIsThere) {
    const auto path = folder.Put("a", "old");
    EXPECT_EQ(ErrorOf([&] { (void)files.CreateTextFile(path, false); }), kFileAlreadyExists);
    EXPECT_EQ(folder.Bytes("a"), "old");
}

TEST_F(FileSystemTest, OpeningCanMakeTheFile) {
    EXPECT_TRUE(files.OpenTextFile(folder / "a", ForReading, true)->AtEndOfStream());
    EXPECT_TRUE(std::filesystem::exists(folder / "a"));
}

TEST_F(FileSystemTest, MissingFileAndMissingFolderDiffer) {
    EXPECT_EQ(ErrorOfOpening(folder / "none"), kFileNotFound);
    EXPECT_EQ(ErrorOfOpening(folder / "none/a"), kPathNotFound);
    EXPECT_EQ(ErrorOfCreating(folder / "none/a"), kPathNotFound);
    EXPECT_EQ(ErrorOfOpening(folder.Put("file") + "/a"), kPathNotFound);
}

TEST_F(FileSystemTest, FolderIsNoFile) {
    EXPECT_EQ(ErrorOfOpening(folder.path()), kPermissionDenied);
    EXPECT_EQ(ErrorOfCreating(folder.path()), kPermissionDenied);
}

TEST_F(FileSystemTest, ForbiddenFileIsDenied) {
    if (::geteuid() == 0) GTEST_SKIP() << "nothing is forbidden to root";
    const auto path = folder.Put("a");
    ::chmod(path.c_str(), 0);
    EXPECT_EQ(ErrorOfOpening(path), kPermissionDenied);
    EXPECT_EQ(ErrorOfCreating(path), kPermissionDenied);
}

TEST_F(FileSystemTest, FullDiskSurfacesInTheWriteItself) {
    const auto file = files.CreateTextFile("/dev/full", true);
    EXPECT_EQ(ErrorOf([&] { file->WriteLine("one"); }), kDiskFull);
}

TEST_F(FileSystemTest, DeletedFileIsGone) {
    const auto path = folder.Put("a");
    files.DeleteFile(path);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(ErrorOf([&] { files.DeleteFile(path); }), kFileNotFound);
    EXPECT_EQ(ErrorOf([&] { files.DeleteFile(folder.path()); }), kPermissionDenied);
}

TEST(FileSystemDrives, HaveCapitalLettersInOrderAndTheRootIsAmongThem) {
    FileSystem files;
    std::string letters;
    for (const DriveObject& drive : files.Drives()) letters += drive.driveletter;
    EXPECT_NE(letters.find('C'), std::string::npos) << letters;
    EXPECT_TRUE(std::ranges::is_sorted(letters)) << letters;
    EXPECT_TRUE(std::ranges::all_of(letters, [](char c) { return c >= 'A' && c <= 'Z'; }))
        << letters;
}

}  // namespace
}  // namespace corvane::linux_desktop
