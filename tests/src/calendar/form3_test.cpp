// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "calendar/form3.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>

#include "simulated/simulated_context.h"
#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;
using testing::GrammarOf;
using testing::kCalendarXml;
using testing::kKeywordsXml;
using testing::SimpleRule;

constexpr auto kMonths =
    std::to_array<std::string_view>({"January", "February", "March", "April", "May", "June", "July",
                                     "August", "September", "October", "November", "December"});

class Form3Test : public ::testing::Test {
protected:
    void Open() {
        desk.Start();
        ASSERT_TRUE(desk.Hear("show me the calendar"));
        desk.Transcript();
    }
    [[nodiscard]] const simulated::ShownWindow& Shown() const {
        return desk.desktop.windows.Window("Form3");
    }
    [[nodiscard]] const simulated::ShownCalendar& Calendar() const {
        return Shown().calendars.at("Calendar1");
    }
    [[nodiscard]] CalendarDate Date() const { return Calendar().date; }
    [[nodiscard]] bool Ended() const { return desk.desktop.runtime.Ended(); }
    void CloseWindow() {
        desk.desktop.Drive([&] { desk.desktop.windows.CloseByFrame("Form3"); });
    }

    Desk desk;
};

TEST_F(Form3Test, HasItsCaptionSizeAndBorder) {
    Open();
    EXPECT_EQ(Shown().description.caption, "Calendar");
    EXPECT_EQ(Shown().description.client_width, 4680);
    EXPECT_EQ(Shown().description.client_height, 3195);
    EXPECT_EQ(Shown().border, BorderStyle::Sizable);
    EXPECT_EQ(Shown().description.position, StartPosition::SystemDefault);
    EXPECT_TRUE(Shown().visible);
    EXPECT_FALSE(Shown().modal);
}

TEST_F(Form3Test, TheCalendarLooksAsItWasSet) {
    Open();
    const CalendarDescription& look = Calendar().look;
    EXPECT_EQ(look.day_font.family, "Arial");
    EXPECT_EQ(look.day_font.points, 8.25);
    EXPECT_TRUE(look.day_font.bold);
    EXPECT_EQ(look.grid_font.family, "Arial");
    EXPECT_EQ(look.grid_font.points, 8.25);
    EXPECT_FALSE(look.grid_font.bold);
    EXPECT_EQ(look.title_font.family, "Arial");
    EXPECT_EQ(look.title_font.points, 12);
    EXPECT_TRUE(look.title_font.bold);
    EXPECT_EQ(look.grid_colour, 0xA00000);  // blue 160
    EXPECT_EQ(look.title_colour, 0xA00000);
}

TEST_F(Form3Test, TheCalendarIsDesignedInsideAndLoadedIntoTheCorner) {
    EXPECT_EQ(kForm3Controls[0].place, (TwipsRect{180, 150, 4320, 2880}));
    EXPECT_EQ(kForm3Controls[0].tab_index, 0);
    Open();
    EXPECT_EQ(Calendar().place.left, 0.0F);
    EXPECT_EQ(Calendar().place.top, 0.0F);
}

TEST_F(Form3Test, OpensOnTheStoredDateAndNotOnToday) {
    Open();
    EXPECT_EQ(Date(), (CalendarDate{2001, 10, 18}));
}

TEST_F(Form3Test, TheLoadListensByAContextOfItsOwnAndMakesAVoiceThatKeepsNoInterests) {
    desk.Start();
    desk.Hear("calendar");
    EXPECT_EQ(desk.Transcript(),
              "voice.EventInterests 512\n"  // the main window's, for the command
              "CreateSpSharedRecoContext\n"
              "CmdLoadFromFile /opt/corvane/calendar.xml 1\n"
              "CmdSetRuleIdState 0 1\n"
              "rc.EventInterests 66608\n"
              "CreateSpVoice\n"
              "Show Form3\n");
    EXPECT_EQ(desk.desktop.speech.Contexts().size(), 2U);
}

TEST_F(Form3Test, EachMonthIsShownByItsNameAndYearAndDayStay) {
    Open();
    for (std::size_t i = 0; i < kMonths.size(); ++i) {
        EXPECT_TRUE(desk.Hear(std::string(kMonths[i]))) << kMonths[i];
        EXPECT_EQ(Date(), (CalendarDate{2001, static_cast<int>(i) + 1, 18}));
    }
}

TEST_F(Form3Test, AnyConfidenceWillDoAndNothingIsLoggedSpokenOrDiscarded) {
    Open();
    const std::string log = desk.Log();
    desk.Hear("March", SECLowConfidence);
    EXPECT_EQ(Date().month, 3);
    desk.Hear("April", SECNormalConfidence);
    EXPECT_EQ(Date().month, 4);
    EXPECT_EQ(desk.Log(), log);
    EXPECT_EQ(desk.Transcript(), "");
}

TEST_F(Form3Test, FebruaryOnA31stShowsItsLastDay) {
    Open();
    desk.desktop.windows.Choose("Form3", "Calendar1", {2001, 10, 31});
    desk.Hear("February");
    EXPECT_EQ(Date(), (CalendarDate{2001, 2, 28}));
}

TEST_F(Form3Test, AYearThatThePersonHasChosenStays) {
    Open();
    desk.desktop.windows.Choose("Form3", "Calendar1", {2026, 11, 21});
    desk.Hear("May");
    EXPECT_EQ(Date(), (CalendarDate{2026, 5, 21}));
}

TEST_F(Form3Test, TheSameMonthTwiceChangesNothing) {
    Open();
    desk.Hear("March");
    desk.Hear("March");
    EXPECT_EQ(Date(), (CalendarDate{2001, 3, 18}));
}

TEST_F(Form3Test, CloseMeHidesAndTheNextCalendarShowsTheMonthLastSet) {
    Open();
    desk.Hear("March");
    EXPECT_TRUE(desk.Hear("close me"));
    EXPECT_FALSE(Shown().visible);
    desk.Transcript();
    desk.Hear("open calendar");
    EXPECT_TRUE(Shown().visible);
    EXPECT_EQ(Date(), (CalendarDate{2001, 3, 18}));
    EXPECT_EQ(desk.Transcript(), "voice.EventInterests 512\nShow Form3\n");
}

TEST_F(Form3Test, HiddenItStillHearsMonthsAndMayBeHiddenAgain) {
    Open();
    desk.Hear("close me");
    EXPECT_TRUE(desk.Hear("June"));
    EXPECT_EQ(Date().month, 6);
    desk.Transcript();
    EXPECT_TRUE(desk.Hear("close me"));
    EXPECT_EQ(desk.Transcript(), "Hide Form3\n");
    EXPECT_FALSE(Ended());
}

TEST_F(Form3Test, ClosedByItsFrameItListensNoMoreAndIsBuiltAnewOnTheStoredDate) {
    Open();
    desk.Hear("March");
    CloseWindow();
    EXPECT_EQ(desk.Transcript(), "CmdSetRuleIdState 0 0\nHide Form3\n");
    EXPECT_FALSE(Shown().visible);
    EXPECT_FALSE(desk.Hear("March"));
    EXPECT_EQ(desk.desktop.speech.Contexts().size(), 1U);
    desk.Hear("calendar");
    EXPECT_EQ(Date(), (CalendarDate{2001, 10, 18}));
    EXPECT_TRUE(desk.Hear("March"));
    EXPECT_EQ(Date().month, 3);
}

TEST_F(Form3Test, AMonthThatWasQueuedWhenTheWindowWasClosedIsDropped) {
    Open();
    desk.desktop.speech.Say("March");
    CloseWindow();
    desk.desktop.RunFor({});
    EXPECT_FALSE(Ended());
}

TEST_F(Form3Test, OtherRulesAndMonthsInOtherCaseAreIgnored) {
    desk.desktop.files.Put(
        kCalendarXml, GrammarOf(SimpleRule("march", "march") + SimpleRule("Mars", "mars") +
                                SimpleRule("Close me", "enough") + SimpleRule("April", "april")));
    Open();
    for (const char* phrase : {"march", "mars", "enough"}) EXPECT_TRUE(desk.Hear(phrase)) << phrase;
    EXPECT_EQ(Date().month, 10);
    EXPECT_TRUE(Shown().visible);
    desk.Hear("april");
    EXPECT_EQ(Date().month, 4);
}

TEST_F(Form3Test, EveryMainCommandWorksBesideIt) {
    Open();
    EXPECT_TRUE(desk.Hear("copy"));
    EXPECT_EQ(desk.Transcript(), "voice.EventInterests 512\nSendKeys ^c wait\n");
    desk.Hear("March");
    EXPECT_TRUE(desk.Hear("paste"));
    EXPECT_EQ(desk.Transcript(), "voice.EventInterests 512\nSendKeys ^v wait\n");
    EXPECT_EQ(Date().month, 3);
}

TEST_F(Form3Test, MonthsAreHeardInQuietModeToo) {
    Open();
    desk.Hear("be quiet");
    EXPECT_FALSE(desk.Hear("copy"));
    EXPECT_TRUE(desk.Hear("July"));
    EXPECT_EQ(Date().month, 7);
    EXPECT_TRUE(desk.Hear("enable"));
    EXPECT_TRUE(desk.Hear("August"));
    EXPECT_EQ(Date().month, 8);
}

TEST_F(Form3Test, MonthsAreNoCommandsBeforeTheFirstCalendar) {
    desk.Start();
    EXPECT_FALSE(desk.Hear("March"));
    EXPECT_FALSE(desk.Hear("close me"));
}

TEST_F(Form3Test, AMissingOrMalformedGrammarOpensADeafCalendarAndNothingIsReported) {
    for (const char* content : {"", "<GRAMMAR>", "words"}) {
        Desk fresh;
        if (*content == '\0')
            fresh.desktop.files.Remove(kCalendarXml);
        else
            fresh.desktop.files.Put(kCalendarXml, content);
        fresh.Start();
        fresh.Hear("calendar");
        EXPECT_TRUE(fresh.desktop.windows.Window("Form3").visible);
        EXPECT_FALSE(fresh.Hear("March"));
        EXPECT_TRUE(fresh.Hear("copy"));
        EXPECT_EQ(fresh.Transcript().find("Report"), std::string::npos);
    }
}

TEST_F(Form3Test, AGrammarWithoutARuleIsNotAskedToActivateAny) {
    desk.desktop.files.Remove(kCalendarXml);
    desk.Start();
    desk.Hear("calendar");
    EXPECT_EQ(desk.Transcript(),
              "voice.EventInterests 512\n"  // the main window's, for the command
              "CreateSpSharedRecoContext\n"
              "CmdLoadFromFile /opt/corvane/calendar.xml 1\n"
              "rc.EventInterests 66608\n"
              "CreateSpVoice\n"
              "Show Form3\n");
}

TEST_F(Form3Test, ADeafCalendarIsClosedAndTheProgramRunsOn) {
    desk.desktop.files.Remove(kCalendarXml);
    desk.Start();
    desk.Hear("calendar");
    CloseWindow();
    EXPECT_FALSE(Ended());
    EXPECT_FALSE(Shown().visible);
}

TEST_F(Form3Test, AnEmptyNameOfTheGrammarHasTheSameOutcome) {
    simulated::SimulatedDesktop& desktop = desk.desktop;
    MessageLoop loop(desktop.queue, desktop.runtime);
    const auto form = std::make_shared<Form3>(desktop.windows, loop, desktop.speech);
    form->Load();
    form->Show();
    EXPECT_EQ(form->SpFlags, 11);
    EXPECT_FALSE(desktop.speech.Say("March"));
    EXPECT_EQ(form->Calendar1.Month(), 10);
}

TEST_F(Form3Test, TheVoiceIsThereAndHasNoInterests) {
    simulated::SimulatedDesktop& desktop = desk.desktop;
    MessageLoop loop(desktop.queue, desktop.runtime);
    const auto form = std::make_shared<Form3>(desktop.windows, loop, desktop.speech);
    form->CalendarGrammarFile = kCalendarXml;
    form->Load();
    EXPECT_EQ(form->voice2->EventInterests(), 0);
    EXPECT_EQ(form->RC2->EventInterests(), 66608);
    EXPECT_EQ(form->SpFlags, 11);
}

TEST_F(Form3Test, AMonthThatCannotBeShownIsPassedOver) {
    Open();
    desk.desktop.record.Fail("SetDate", kAutomationError);
    desk.Hear("March");
    EXPECT_FALSE(Ended());
    desk.desktop.record.Heal("SetDate");
    desk.Hear("April");
    EXPECT_EQ(Date().month, 4);
}

TEST_F(Form3Test, AResultThatCannotBeReadIsPassedOver) {
    Open();
    desk.desktop.record.Fail("GetText", kAutomationError);
    desk.Hear("March");
    EXPECT_EQ(Date().month, 3);
    desk.desktop.record.Fail("Rule.Name", kAutomationError);
    desk.Hear("April");
    EXPECT_EQ(Date().month, 3);
    EXPECT_FALSE(Ended());
}

TEST_F(Form3Test, AnEngineThatHasGoneLeavesADeafWindowWhoseClosingEndsTheProcess) {
    desk.Start();
    desk.desktop.record.Fail("CreateGrammar", kAutomationError);
    desk.Hear("calendar");
    EXPECT_TRUE(Shown().visible);
    CloseWindow();
    EXPECT_TRUE(Ended());
    EXPECT_NE(desk.Transcript().find("ShowErrorReport 91"), std::string::npos);
}

TEST_F(Form3Test, ResizingRescalesTheCalendarByTheOuterSizesAndKeepsItsCorner) {
    Open();
    // The simulated desktop's frame: 120 wider, 405 higher.
    EXPECT_EQ(Calendar().place, (ComputedPlace{0, 0, 0.98F * (4680 + 120), 0.9F * (3195 + 405)}));
    desk.desktop.windows.Resize("Form3", 6000, 5000);
    EXPECT_EQ(Calendar().place, (ComputedPlace{0, 0, 0.98F * (6000 + 120), 0.9F * (5000 + 405)}));
}

TEST_F(Form3Test, AChangeOfTheMainGrammarLeavesTheCalendarListening) {
    Open();
    const auto contexts = desk.desktop.speech.Contexts();
    const bool listens = contexts.at(0)->HasActive("March") || contexts.at(1)->HasActive("March");
    EXPECT_TRUE(listens);
    desk.Hear("add program");
    EXPECT_TRUE(desk.Hear("March"));
    EXPECT_EQ(Date().month, 3);
}

}  // namespace
}  // namespace corvane
