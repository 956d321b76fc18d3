// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/cd_door.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;
using namespace std::chrono_literals;

const std::string kAccepted = "voice.EventInterests 512\n";
const std::string kOpens = "mciSendStringA \"Set CDAudio Door Open Wait\" \"0\" 0 0\n";
const std::string kCloses = "mciSendStringA \"Set CDAudio Door Closed Wait\" \"0\" 0 0\n";

class CdDoorTest : public ::testing::Test {
protected:
    CdDoorTest() { desk.Start(); }

    [[nodiscard]] std::string Words() { return Shown().captions.at("Label1"); }
    [[nodiscard]] std::string PictureShown() { return Shown().pictures.at("Picture1"); }
    [[nodiscard]] const simulated::ShownWindow& Shown() {
        return desk.desktop.windows.Window("Form2");
    }

    Desk desk;
    simulated::DiscTray& tray = desk.desktop.disc_tray;
};

TEST_F(CdDoorTest, AfterTheStartItIsBelievedClosed) {
    EXPECT_EQ(Words(), "Closed");
    EXPECT_EQ(PictureShown(), "cd_closed");
}

TEST_F(CdDoorTest, EjectTwiceOpensAndThenCloses) {
    EXPECT_TRUE(desk.Hear("eject c d rom please"));
    EXPECT_EQ(desk.Transcript(), kAccepted + kOpens);
    EXPECT_TRUE(tray.IsOpen());
    EXPECT_EQ(Words(), "Opened");
    EXPECT_EQ(PictureShown(), "cd_open");
    EXPECT_TRUE(desk.Hear("please eject"));
    EXPECT_EQ(desk.Transcript(), kAccepted + kCloses);
    EXPECT_FALSE(tray.IsOpen());
    EXPECT_EQ(Words(), "Closed");
    EXPECT_EQ(PictureShown(), "cd_closed");
}

TEST_F(CdDoorTest, TheSpokenVerbPlaysNoPart) {
    desk.Hear("close the tray");
    EXPECT_TRUE(tray.IsOpen());
    desk.Hear("open the tray");
    EXPECT_FALSE(tray.IsOpen());
}

TEST_F(CdDoorTest, TheWordsOfCheckingStandBeforeTheWaitOfTheClosingOnly) {
    for (const auto& [words, picture] :
         {std::pair("Opened", "cd_open"), std::pair("Checking for CD", "cd_open")}) {
        std::string words_inside;
        std::string picture_inside;
        desk.desktop.speech.Say("eject");
        desk.desktop.queue.Post([&] {
            words_inside = Words();
            picture_inside = PictureShown();
        });
        desk.desktop.RunFor({});
        EXPECT_EQ(words_inside, words);
        EXPECT_EQ(picture_inside, picture);
    }
    EXPECT_EQ(Words(), "Closed");
}

TEST_F(CdDoorTest, NothingRunsWhileTheDoorMoves) {
    desk.desktop.RunFor(500ms);
    const auto before = desk.desktop.queue.Now();
    (void)desk.desktop.machine.Asked();
    desk.desktop.speech.Say("eject");
    desk.desktop.RunFor({});
    // The ticks of three seconds are one, when the door has come to rest.
    EXPECT_EQ(desk.desktop.queue.Now() - before, 3s);
    EXPECT_EQ(desk.desktop.machine.Asked(), "");
    desk.desktop.RunFor({});
    EXPECT_NE(desk.desktop.machine.Asked(), "");
}

TEST_F(CdDoorTest, ATrayMovedByHandIsOutOfStepUntilTheNextToggle) {
    desk.Hear("eject");
    tray.Push(false);
    desk.Hear("eject");
    EXPECT_FALSE(tray.IsOpen());
    EXPECT_EQ(Words(), "Closed");
    tray.Push(true);
    desk.Hear("eject");
    EXPECT_TRUE(tray.IsOpen());
    EXPECT_EQ(Words(), "Opened");
}

TEST_F(CdDoorTest, WithoutADriveWordsAndPicturesChangeAsIfItHadMoved) {
    tray.TakeAway();
    desk.Hear("eject");
    EXPECT_EQ(Words(), "Opened");
    EXPECT_EQ(PictureShown(), "cd_open");
    desk.Hear("eject");
    EXPECT_EQ(Words(), "Closed");
    EXPECT_EQ(PictureShown(), "cd_closed");
    EXPECT_EQ(desk.Transcript(), kAccepted + kOpens + kAccepted + kCloses);
}

TEST_F(CdDoorTest, ACommandThatFailsMovesTheBeliefAllTheSame) {
    desk.desktop.record.Fail("mciSendStringA", kAutomationError);
    desk.Hear("eject");
    EXPECT_EQ(Words(), "Opened");
    desk.desktop.record.Heal("mciSendStringA");
    desk.Hear("eject");
    EXPECT_EQ(desk.Transcript(), kAccepted + kOpens + kAccepted + kCloses);
}

TEST(CdDoorSteps, AFailingStepIsSkippedAndTheOthersRun) {
    simulated::SimulatedDesktop desktop;
    MessageLoop loop(desktop.queue, desktop.runtime);
    forms::Lazy<Form2> form2([&] {
        return std::make_shared<Form2>(desktop.windows, loop, desktop.runtime, desktop.gdi,
                                       desktop.user32);
    });
    CdDoor door(desktop.disc_tray, loop, form2);
    desktop.record.Fail("SetCaption", kAutomationError);
    door.ToggleCdDoor();
    const auto& shown = desktop.windows.Window("Form2");
    EXPECT_EQ(shown.captions.at("Label1"), "Closed");
    EXPECT_EQ(shown.pictures.at("Picture1"), "cd_open");
    EXPECT_TRUE(form2->CdDoorOpen);
    desktop.record.Heal("SetCaption");
    desktop.record.Fail("SetPicture", kAutomationError);
    door.ToggleCdDoor();
    EXPECT_EQ(shown.captions.at("Label1"), "Closed");
    EXPECT_EQ(shown.pictures.at("Picture1"), "cd_open");
    EXPECT_FALSE(desktop.disc_tray.IsOpen());
    EXPECT_FALSE(form2->CdDoorOpen);
}

}  // namespace
}  // namespace corvane
