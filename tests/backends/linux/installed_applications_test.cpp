// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/installed_applications.h"

#include <gtest/gtest.h>

#include "temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

class InstalledApplicationsTest : public testing::Test {
protected:
    std::string Install(const std::string& file, const std::string& name,
                        const std::string& more = {}) {
        return folder.Put(
            file, "[Desktop Entry]\nType=Application\nExec=true\nName=" + name + "\n" + more);
    }
    [[nodiscard]] std::string Names(std::string_view locale = {}) const {
        std::string names;
        for (const auto& application : InstalledApplications(places, locale))
            names += application.name + ";";
        return names;
    }

    TemporaryFolder folder;
    SearchPlaces places{.programs = {}, .applications = {folder / "mine", folder / "all"}};
};

TEST_F(InstalledApplicationsTest, AreThoseThatAMenuShowsInTheOrderOfTheirNames) {
    Install("all/b.desktop", "Browser");
    const std::string editor = Install("mine/z.desktop", "Editor");
    Install("all/hidden.desktop", "Hidden", "Hidden=true\n");
    Install("all/helper.desktop", "Helper", "NoDisplay=true\n");
    Install("all/no-name.desktop", "");
    folder.Put("all/readme.txt", "words");
    folder.Put("all/broken.desktop", "words");
    EXPECT_EQ(Names(), "Browser;Editor;");
    EXPECT_EQ(InstalledApplications(places, {}).back().entry, editor);
}

TEST_F(InstalledApplicationsTest, FirstFolderThatHasAnIdDecides) {
    Install("mine/b.desktop", "My browser");
    Install("all/b.desktop", "Browser");
    Install("mine/c.desktop", "Calendar", "NoDisplay=true\n");
    Install("all/c.desktop", "Calendar");
    EXPECT_EQ(Names(), "My browser;");
}

TEST_F(InstalledApplicationsTest, NamesAreInThePersonsLanguage) {
    Install("all/b.desktop", "Files", "Name[de]=Dateien\nName[de_CH]=Ablage\n");
    EXPECT_EQ(Names("de_DE"), "Dateien;");
    EXPECT_EQ(Names("de_CH"), "Ablage;");
    EXPECT_EQ(Names("fr_FR"), "Files;");
    EXPECT_EQ(Names(), "Files;");
}

TEST_F(InstalledApplicationsTest, MissingFoldersHoldNone) {
    EXPECT_EQ(Names(), "");
}

}  // namespace
}  // namespace corvane::linux_desktop
