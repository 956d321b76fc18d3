// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// What is written to a disk that is full, or may only be read: a file that is rewritten in place is
// cut off there, one that is replaced stays as it was, and nothing else is touched.
#include <fcntl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>
#include <vector>

#include "expect_error.h"
#include "grammar/command_grammar.h"
#include "grammar/keyword_store.h"
#include "linux/files/file_descriptor.h"
#include "linux/files/file_system.h"
#include "linux/settings/registry.h"
#include "linux/system/expunging.h"
#include "linux/system/trash.h"
#include "support/small_disk.h"

namespace corvane::linux_desktop {
namespace {

namespace fs = std::filesystem;

class SmallDiskTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!disk.IsThere()) GTEST_SKIP() << "no file system may be mounted here";
        disk.Put("keywords.txt", "notepad\r\n/usr/bin/xterm.exe\r\n");
        disk.Put("keywords.xml", "<GRAMMAR LANGID=\"409\">\r\n</GRAMMAR>\r\n");
        disk.Put("quiet.xml", "quiet");
        disk.Put("registry", "[Software\\Corvane]\n\"Trained\" 1 \"1%00\"\n");
    }
    /// Does something, after which all files but this one have to be as they were.
    template <class Act>
    void OnlyChanging(const std::string& name, Act act) {
        auto before = disk.Files();
        act();
        auto after = disk.Files();
        before.erase(name);
        after.erase(name);
        EXPECT_EQ(after, before);
    }
    std::int32_t StoreInRegistry(const std::string& data) {
        Registry registry(disk / "registry");
        HKEY key = 0;
        std::uint32_t disposition = 0;
        const auto created =
            registry.RegCreateKeyExA(HKEY_LOCAL_MACHINE, "Software\\Corvane", "",
                                     REG_OPTION_NON_VOLATILE, KEY_WRITE, {}, key, disposition);
        if (created != ERROR_SUCCESS) return created;
        return registry.RegSetValueExA(key, "Trained", REG_SZ, data.data(),
                                       static_cast<std::uint32_t>(data.size()));
    }
    static std::vector<KeywordRow> ManyRows() {
        std::vector<KeywordRow> rows;
        for (int i = 0; i < 1000; ++i)
            rows.push_back({"word " + std::to_string(i), {"/usr/bin/program.exe"}});
        return rows;
    }

    corvane::testing::SmallDisk disk;
    FileSystem files;
    DataPaths paths{.KeywordsTxtPath = disk / "keywords.txt",
                    .KeywordsXmlPath = disk / "keywords.xml",
                    .QuietXmlPath = disk / "quiet.xml",
                    .CalendarXmlPath = disk / "calendar.xml"};
    KeywordStore store{files, paths};
    CommandGrammar grammar{files, paths};
};

using FullDisk = SmallDiskTest;
using ReadOnlyDisk = SmallDiskTest;

TEST_F(FullDisk, SavedKeywordsAreCutOffAndTheListsStay) {
    store.Reload();
    disk.Fill();
    OnlyChanging("keywords.txt", [&] {
        EXPECT_EQ(ErrorOf([&] { store.SaveKeywordsTXT(ManyRows()); }), kDiskFull);
    });
    const std::string left = disk.Bytes("keywords.txt");
    EXPECT_TRUE(left.starts_with("word 0\r\n/usr/bin/program.exe\r\nword 1\r\n")) << left;
    EXPECT_LE(left.size(), 4096U);
    EXPECT_EQ(store.KeywordNames(0), "notepad");
}

TEST_F(FullDisk, KeywordsThatBecomeFewerAreStillSaved) {
    store.SaveKeywordsTXT(ManyRows());
    disk.Fill();
    store.RemoveKeywordLines("word 0", "/usr/bin/program.exe");
    const std::string left = disk.Bytes("keywords.txt");
    EXPECT_TRUE(left.starts_with("word 1\r\nword 2\r\n"));
    EXPECT_TRUE(left.ends_with("word 999\r\n"));
}

TEST_F(FullDisk, AGrammarThatGrowsIsCutOff) {
    disk.Fill();
    OnlyChanging("keywords.xml", [&] {
        EXPECT_EQ(ErrorOf([&] {
                      for (int i = 0; i < 100; ++i)
                          grammar.AppendKeywordRule("word " + std::to_string(i));
                  }),
                  kDiskFull);
    });
    const std::string left = disk.Bytes("keywords.xml");
    EXPECT_TRUE(left.starts_with("<GRAMMAR LANGID=\"409\">\r\n<RULE NAME=\"word 0\""));
    EXPECT_EQ(left.find("</GRAMMAR>"), std::string::npos);
    EXPECT_EQ(left.size(), 4096U);
}

TEST_F(FullDisk, ARegistryThatCanNotBeStoredStaysAsItWas) {
    disk.Fill();
    OnlyChanging(
        "none", [&] { EXPECT_EQ(StoreInRegistry(std::string(10'000, 'x')), ERROR_ACCESS_DENIED); });
    disk.MakeRoom();
    EXPECT_EQ(StoreInRegistry("0"), ERROR_SUCCESS);
}

// A disk is full, and so the trash is emptied.
TEST_F(FullDisk, TheTrashIsEmptiedThoughNothingMoreHasRoom) {
    const auto expected = disk.Files();
    disk.Put("Trash/files/old/letter", "x");
    disk.Put("Trash/info/old.trashinfo", "x");
    disk.Fill();
    disk.FillWithFiles();
    Emptying emptying;
    EXPECT_TRUE(
        EmptyTrashes({.home = disk / "Trash", .tops = {}, .person = ::geteuid()}, emptying));
    EXPECT_EQ(disk.Files(), expected);
}

/// A trash with a folder of three files, on a disk on which there is no room for "expunged".
class FullTrash : public SmallDiskTest {
protected:
    void SetUp() override {
        SmallDiskTest::SetUp();
        if (IsSkipped()) return;
        for (const char* file : {"1", "2", "3"})
            disk.Put(std::string("Trash/files/old/") + file, "x");
        disk.Put("desk/mine", "x");
        disk.Fill();
        disk.FillWithFiles();
    }
    /// Removes the folder, and does something once the first file of it is gone.
    bool ExpungeOld(const std::function<bool()>& act) {
        class Meddler final : public RemovalWatcher {
        public:
            explicit Meddler(const std::function<bool()>& act) : act_(act) {}
            bool Removed() override { return ++removed_ > 1 || act_(); }

        private:
            const std::function<bool()>& act_;
            int removed_ = 0;
        } meddler(act);
        const FileDescriptor trash(::open((disk / "Trash").c_str(), O_RDONLY | O_DIRECTORY));
        const FileDescriptor things(::open((disk / "Trash/files").c_str(), O_RDONLY | O_DIRECTORY));
        return Expunge(trash.number(), things.number(), "old", meddler);
    }
    [[nodiscard]] std::size_t CountIn(const std::string& folder) const {
        const fs::directory_iterator entries(disk / folder);
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }
    [[nodiscard]] bool IsThere(const std::string& name) const { return fs::exists(disk / name); }
};

TEST_F(FullTrash, WhoTakesAFolderOutOnceItIsGoingGetsNothingOfIt) {
    std::error_code refused;
    EXPECT_TRUE(ExpungeOld([&] {
        fs::rename(disk / "Trash/files/old", disk / "desk/old", refused);
        return true;
    }));
    EXPECT_EQ(refused, std::errc::no_such_file_or_directory);
    EXPECT_EQ(CountIn("desk"), 1U);
    EXPECT_EQ(CountIn("Trash"), 1U) << "only what has room for files is left";
}

TEST_F(FullTrash, WhatIsLeftWhenStoppedComesBack) {
    EXPECT_FALSE(ExpungeOld([] { return false; }));
    EXPECT_EQ(CountIn("Trash/files/old"), 2U);
    EXPECT_FALSE(IsThere("Trash/expunged"));
}

TEST_F(FullTrash, WhatIsThrownAwayMeanwhileUnderTheSameNameIsLeftAlone) {
    EXPECT_FALSE(ExpungeOld([&] {
        fs::create_directory(disk / "Trash/files/old");
        return false;
    }));
    EXPECT_EQ(CountIn("Trash/files/old"), 0U);
    EXPECT_EQ(CountIn("Trash/expunged"), 2U);
    Emptying emptying;
    EXPECT_TRUE(
        EmptyTrashes({.home = disk / "Trash", .tops = {}, .person = ::geteuid()}, emptying));
    EXPECT_EQ(CountIn("Trash/expunged"), 0U);
}

TEST_F(ReadOnlyDisk, NothingIsChangedAndEveryWriteIsDenied) {
    ASSERT_TRUE(disk.MakeReadOnly());
    OnlyChanging("none", [&] {
        EXPECT_EQ(ErrorOf([&] { store.SaveKeywordsTXT({}); }), kPermissionDenied);
        EXPECT_EQ(ErrorOf([&] { store.CreateKeywordsTXT(); }), kPermissionDenied);
        EXPECT_EQ(ErrorOf([&] { store.RemoveKeywordLines("notepad", ""); }), kPermissionDenied);
        EXPECT_EQ(ErrorOf([&] { grammar.CreateKeywordsXML(); }), kPermissionDenied);
        EXPECT_EQ(ErrorOf([&] { grammar.AppendKeywordRule("word"); }), kPermissionDenied);
        EXPECT_EQ(ErrorOf([&] { grammar.RemoveKeywordRule("word"); }), kPermissionDenied);
        EXPECT_EQ(StoreInRegistry("0"), ERROR_ACCESS_DENIED);
    });
    store.Reload();
    EXPECT_EQ(store.KeywordPaths(0), "/usr/bin/xterm.exe");
}

}  // namespace
}  // namespace corvane::linux_desktop
