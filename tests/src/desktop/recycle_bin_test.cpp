// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/recycle_bin.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;

TEST(RecycleBin, IsEmptiedWithoutAQuestionOverTheAddProgramsWindowWhichIsLoadedUnseen) {
    Desk desk;
    desk.Start();
    desk.desktop.tray.RecycleBin = {"/old letter.txt", "/older letter.txt"};
    EXPECT_FALSE(desk.desktop.windows.Exists("Form1"));
    EXPECT_TRUE(desk.Hear("please empty the recycle bin please"));
    const auto& form1 = desk.desktop.windows.Window("Form1");
    EXPECT_FALSE(form1.visible);
    EXPECT_TRUE(desk.desktop.tray.RecycleBin.empty());
    EXPECT_TRUE(desk.Transcript().ends_with("SHEmptyRecycleBinA " + std::to_string(form1.handle) +
                                            " \"\" 1\n"));
}

TEST(RecycleBin, AnOpenAddProgramsWindowIsTheOneThatOwnsTheProgress) {
    Desk desk;
    desk.Start();
    desk.Hear("add program");
    const HWND open = desk.desktop.windows.Window("Form1").handle;
    desk.Transcript();
    desk.Hear("recycle bin");
    EXPECT_EQ(desk.Transcript(),
              "voice.EventInterests 512\nSHEmptyRecycleBinA " + std::to_string(open) + " \"\" 1\n");
    EXPECT_TRUE(desk.desktop.windows.Window("Form1").visible);
}

TEST(RecycleBin, AnEmptyBinShowsNothing) {
    Desk desk;
    desk.Start();
    desk.Hear("add program");
    desk.Transcript();
    desk.Hear("recycle bin");
    desk.Hear("recycle bin");
    EXPECT_EQ(desk.Transcript().find("MsgBox"), std::string::npos);
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

}  // namespace
}  // namespace corvane
