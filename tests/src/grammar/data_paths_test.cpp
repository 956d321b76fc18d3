// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "grammar/data_paths.h"

#include <gtest/gtest.h>

#include "simulated/simulated_desktop.h"

namespace corvane {
namespace {

DataPaths PathsIn(const std::string& folder) {
    simulated::SimulatedDesktop desktop;
    desktop.runtime.SetExecutableFolder(folder);
    DataPaths paths;
    init_constants(desktop.runtime, paths);
    return paths;
}

TEST(DataPaths, TheFilesLieBesideTheExecutable) {
    const DataPaths paths = PathsIn("/opt/corvane");
    EXPECT_EQ(paths.KeywordsTxtPath, "/opt/corvane/keywords.txt");
    EXPECT_EQ(paths.KeywordsXmlPath, "/opt/corvane/keywords.xml");
    EXPECT_EQ(paths.QuietXmlPath, "/opt/corvane/quiet.xml");
    EXPECT_EQ(paths.CalendarXmlPath, "/opt/corvane/calendar.xml");
}

TEST(DataPaths, AProgramAtTheRootGetsOneSeparatorNotTwo) {
    EXPECT_EQ(PathsIn("/").KeywordsTxtPath, "/keywords.txt");
    EXPECT_EQ(PathsIn("/").CalendarXmlPath, "/calendar.xml");
}

}  // namespace
}  // namespace corvane
