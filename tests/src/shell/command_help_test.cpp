// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/command_help.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;

struct Description {
    const char* entry;
    const char* sentence;
};

// clang-format off
const Description kDescriptions[] = {
    {"Add Program",
     R"(Add program opens the add programs dialog where you can add, remove, or lookup program shortcuhts.)"},
    {"Are you there",
     R"(Are you there <silence msec="100"/> notifies you whether or not speech recognition is listening and brings Corvane to the foreground)"},
    {"Calendar",
     R"(Calendar <silence msec="100"/> opens the calendar form.  From there you can view any month by saying its name.)"},
    {"Clean Whiteboard",
     R"(Clean whiteboard <silence msec="100"/> erases the contents of the Corvane whiteboard.)"},
    {"Close",
     R"(Close <silence msec="100"/> closes the current window.  Close does not work for Corvane, use close corvane instead.)"},
    {"Close Corvane",
     R"(Close corvane <silence msec="100"/> closes Corvane.)"},
    {"Connect",
     R"(Connect <silence msec="100"/> opens the Windows dialer and dials your default internet connection.)"},
    {"Date",
     R"(Date <silence msec="100"/> gives today's date.)"},
    {"Dictation",
     R"(Dictation <silence msec="100"/> starts the dictation engine.  This allows you to speak text into any application.)"},
    {"Dictation Pad",
     R"(Dictation pad <silence msec="100"/> opens the Corvane dictation pad, which allows you to write and print simple documents by voice.)"},
    {"Disable",
     R"(Disable <silence msec="100"/> disables speech recognition until the enable command is issued.)"},
    {"Disconnect",
     R"(Disconnect <silence msec="100"/> closes the dialup connection.)"},
    {"Eject",
     R"(Eject <silence msec="100"/> opens and closes the cd rom tray.)"},
    {"Enable",
     R"(Enable <silence msec="100"/> enables speech recognition when it is disabled.)"},
    {"Freespace C",
     R"(Freespace c <silence msec="100"/> tells you the remaining percentage of freespace on the c drive.  You may use other letters in place of c to get the freespace on other drives such as the floppy drive or zip drives.)"},
    {"How much ram",
     R"(How much ram <silence msec="100"/> tells you how many megabytes of ram are installed on your pc.)"},
    {"Maximize",
     R"(Maximize <silence msec="100"/> maximizes the current window.)"},
    {"Minimize",
     R"(Minimize <silence msec="100"/> minimizes the current window.)"},
    {"Normalize",
     R"(Normalize <silence msec="100"/> resizes the window to its normal default size.)"},
    {"Quit Dictation",
     R"(Quit dictation <silence msec="100"/> stops dictation and also closes the dictation pad when in use.)"},
    {"Read All",
     R"(Read all <silence msec="100"/> reads all of the text in the current document.)"},
    {"Read Selected",
     R"(Read selected <silence msec="100"/> reads the currently highlighted text.)"},
    {"Read Whiteboard",
     R"(Read whiteboard <silence msec="100"/> reads the text on the whiteboard.)"},
    {"Reboot",
     R"(Reboot <silence msec="100"/> reboots the computer.)"},
    {"Recycle Bin",
     R"(Recycle bin <silence msec="100"/> empties the recycle bin.)"},
    {"Shutdown",
     R"(Shutdown <silence msec="100"/> shuts down Windows and powers off the computer.)"},
    {"Time",
     R"(Time <silence msec="100"/> tells the current time.)"},
};
// clang-format on

class CommandHelpTest : public ::testing::Test {
protected:
    CommandHelpTest() { desk.Start(); }

    /// What a double click on an entry has the system do.
    std::string DoubleClick(const std::string& entry) {
        desk.Transcript();
        desk.desktop.Drive([&] { desk.desktop.windows.DoubleClick("Form2", "List1", entry); });
        return desk.Transcript();
    }
    static std::string Spoken(const std::string& sentence) {
        return "Speak \"" + sentence + "\" flags=11\n";
    }
    std::string SentenceOf(const std::string& entry) {
        for (const auto& description : kDescriptions)
            if (description.entry == entry) return description.sentence;
        return "no such entry";
    }

    Desk desk;
};

TEST_F(CommandHelpTest, EveryEntryOfTheListIsDescribedWordForWord) {
    std::vector<std::string> entries;
    for (const auto& [entry, sentence] : kDescriptions) {
        entries.emplace_back(entry);
        EXPECT_EQ(DoubleClick(entry), Spoken(sentence)) << entry;
    }
    EXPECT_EQ(desk.desktop.windows.Window("Form2").lists.at("List1").items, entries);
    EXPECT_EQ(kCommandDescriptions.size(), 27U);
}

TEST_F(CommandHelpTest, OnlyTheFirstDescriptionHasNoPause) {
    EXPECT_EQ(std::ranges::count(kCommandDescriptions, "", &CommandDescription::closing), 1);
    EXPECT_EQ(kCommandDescriptions.front().closing, "");
    EXPECT_EQ(DoubleClick("Add Program"),
              Spoken("Add program opens the add programs dialog where you can add, remove, or "
                     "lookup program shortcuhts."));
}

TEST_F(CommandHelpTest, CloseAndCloseCorvaneAreToldApart) {
    EXPECT_EQ(DoubleClick("Close"), Spoken(SentenceOf("Close")));
    EXPECT_EQ(DoubleClick("Close Corvane"), Spoken(SentenceOf("Close Corvane")));
    EXPECT_NE(SentenceOf("Close"), SentenceOf("Close Corvane"));
}

TEST_F(CommandHelpTest, DictationAndDictationPadAreToldApart) {
    EXPECT_EQ(DoubleClick("Dictation"), Spoken(SentenceOf("Dictation")));
    EXPECT_EQ(DoubleClick("Dictation Pad"), Spoken(SentenceOf("Dictation Pad")));
    EXPECT_NE(SentenceOf("Dictation"), SentenceOf("Dictation Pad"));
}

TEST_F(CommandHelpTest, ADoubleClickWithNothingSelectedSaysNothing) {
    desk.desktop.Drive([&] { desk.desktop.windows.DoubleClickBelow("Form2", "List1"); });
    EXPECT_EQ(desk.Transcript(), "");
}

TEST_F(CommandHelpTest, ADoubleClickBelowTheEntriesDescribesTheSelectedOne) {
    DoubleClick("Time");
    desk.desktop.Drive([&] { desk.desktop.windows.DoubleClickBelow("Form2", "List1"); });
    EXPECT_EQ(desk.Transcript(), Spoken(SentenceOf("Time")));
}

TEST_F(CommandHelpTest, TheEntryOfTheFreeSpaceStaysWhateverDriveWasAskedFor) {
    desk.HearAs("free space on d", "free space");
    EXPECT_EQ(DoubleClick("Freespace C"), Spoken(SentenceOf("Freespace C")));
}

TEST_F(CommandHelpTest, ItWorksWhileTheSystemIsQuiet) {
    desk.Hear("disable");
    EXPECT_EQ(DoubleClick("Enable"), Spoken(SentenceOf("Enable")));
}

TEST_F(CommandHelpTest, ItWorksWhateverTheRecogniserDoes) {
    desk.desktop.files.Remove(testing::kQuietXml);
    desk.Hear("disable");
    EXPECT_EQ(DoubleClick("Disable"), Spoken(SentenceOf("Disable")));
}

TEST_F(CommandHelpTest, ItChangesNoTextAndNotTheVoicesInterests) {
    desk.desktop.Drive([&] { desk.desktop.windows.Type("Form2", "Text3", "milk"); });
    EXPECT_EQ(DoubleClick("Date"), Spoken(SentenceOf("Date")));
    EXPECT_EQ(desk.desktop.windows.Window("Form2").texts.at("Text3").text, "milk");
    EXPECT_EQ(desk.Log(), "");
}

TEST_F(CommandHelpTest, ASecondDoubleClickCutsOffTheFirstSentence) {
    desk.Hear("copy");  // from now on the level is told
    DoubleClick("Add Program");
    desk.desktop.RunFor(std::chrono::seconds(1));
    DoubleClick("Time");
    const auto level = [&] {
        return desk.desktop.windows.Window("Form2").ranges.at("ProgressBar2");
    };
    // The second sentence takes less than three seconds, the first would have taken ten.
    desk.desktop.RunFor(std::chrono::milliseconds(2500));
    EXPECT_GT(level(), 0);
    desk.desktop.RunFor(std::chrono::milliseconds(500));
    EXPECT_EQ(level(), 0);
}

}  // namespace
}  // namespace corvane
