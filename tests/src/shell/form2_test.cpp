// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/form2.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "shell/form2_gauges.h"
#include "simulated/simulated_desktop.h"

namespace corvane {
namespace {

class Form2Test : public ::testing::Test {
protected:
    [[nodiscard]] const simulated::ShownWindow& Shown() const {
        return desktop.windows.Window("Form2");
    }
    [[nodiscard]] static const ControlDescription& Row(std::string_view name) {
        return *std::ranges::find(kForm2Controls, name, &ControlDescription::name);
    }

    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    std::shared_ptr<Form2> form2 = std::make_shared<Form2>(desktop.windows, loop, desktop.runtime,
                                                           desktop.gdi, desktop.user32);
};

TEST_F(Form2Test, HasItsCaptionAndSize) {
    EXPECT_EQ(Shown().description.caption, "KT Corvane 3.0");
    EXPECT_EQ(Shown().description.client_width, 9360);
    EXPECT_EQ(Shown().description.client_height, 6420);
}

TEST_F(Form2Test, EveryControlOfTheLayoutThatCanBeSeenIsPutIntoTheWindowInItsOrder) {
    std::vector<std::string_view> laid_out;
    for (const auto& row : kForm2Controls)
        if (row.kind != ControlKind::ImageList && row.kind != ControlKind::Timer)
            laid_out.push_back(row.name);
    std::vector<std::string_view> shown;
    for (const auto& control : Shown().controls) shown.push_back(control.name);
    EXPECT_EQ(shown, laid_out);
}

TEST_F(Form2Test, ControlsStandWhereTheyBelong) {
    const std::pair<const char*, TwipsRect> places[] = {
        {"List1", {60, 840, 1545, 5520}},          {"Frame2", {4245, 3555, 2505, 825}},
        {"Picture2", {60, 195, 540, 540}},         {"Label7", {645, 195, 1740, 540}},
        {"bkCProg1", {7230, 405, 1485, 1320}},     {"Text4", {1725, 435, 345, 285}},
        {"ProgressBar2", {2100, 435, 4275, 285}},  {"Command3", {2865, 3450, 1065, 345}},
        {"Command2", {1725, 3450, 1065, 345}},     {"Text3", {1695, 1020, 4680, 2385}},
        {"Frame1", {6780, 3555, 2505, 825}},       {"Picture1", {60, 195, 540, 540}},
        {"Label1", {705, 330, 1620, 270}},         {"text2", {1665, 4485, 345, 285}},
        {"ProgressBar1", {2070, 4455, 7215, 330}}, {"Text1", {1665, 4800, 7665, 1560}},
        {"bkCProg2", {7230, 2130, 1485, 1320}},    {"Label10", {45, 105, 1545, 255}},
        {"Label6", {7050, 1920, 1875, 195}},       {"Label5", {7140, 210, 1665, 195}},
        {"Label4", {1665, 4200, 1725, 195}},       {"Label3", {1710, 795, 885, 240}},
        {"Label2", {1695, 165, 1260, 225}},
    };
    for (const auto& [name, place] : places) EXPECT_EQ(Row(name).place, place) << name;
}

TEST_F(Form2Test, LinesRunBetweenTheirEnds) {
    struct Ends {
        const char* name;
        int x1, y1, x2, y2;
    };
    const Ends lines[] = {{"Line7", -30, 0, 9330, 0},        {"Line6", 1710, 3900, 3990, 3900},
                          {"Line5", 3975, 3525, 3975, 3900}, {"Line4", 3990, 3525, 6465, 3525},
                          {"Line3", 6450, 3165, 6450, 3525}, {"Line2", 6450, 1245, 6450, 870},
                          {"Line1", 2610, 885, 6465, 885}};
    for (const Ends& ends : lines) {
        const TwipsRect& place = Row(ends.name).place;
        EXPECT_EQ(place.left, std::min(ends.x1, ends.x2)) << ends.name;
        EXPECT_EQ(place.top, std::min(ends.y1, ends.y2)) << ends.name;
        EXPECT_EQ(place.left + place.width, std::max(ends.x1, ends.x2)) << ends.name;
        EXPECT_EQ(place.top + place.height, std::max(ends.y1, ends.y2)) << ends.name;
    }
}

TEST_F(Form2Test, TabIndicesAreEachGivenOnceAndTheLogHasTheFirst) {
    std::set<int> indices;
    for (const auto& row : kForm2Controls)
        if (row.tab_index != kNoTabStop) {
            EXPECT_TRUE(indices.insert(row.tab_index).second) << row.name;
        }
    EXPECT_EQ(indices.size(), 23U);
    EXPECT_EQ(*indices.begin(), 0);
    EXPECT_EQ(*indices.rbegin(), 22);
    EXPECT_EQ(Row("Text1").tab_index, 0);
}

TEST_F(Form2Test, WhatAFrameHoldsIsNamedByIt) {
    for (const char* name : {"Picture2", "Label7"}) EXPECT_EQ(Row(name).container, "Frame2");
    for (const char* name : {"Picture1", "Label1"}) EXPECT_EQ(Row(name).container, "Frame1");
    EXPECT_EQ(std::ranges::count(kForm2Controls, "", &ControlDescription::container), 29);
}

TEST_F(Form2Test, TheCommandListHolds27ItemsInOrder) {
    std::istringstream items{std::string(Row("List1").text)};
    std::vector<std::string> list;
    for (std::string item; std::getline(items, item);) list.push_back(item);
    EXPECT_EQ(list.size(), 27U);
    EXPECT_TRUE(std::ranges::is_sorted(list));
    EXPECT_EQ(list.front(), "Add Program");
    EXPECT_EQ(list.back(), "Time");
}

TEST_F(Form2Test, StoredContentsAreAsTheyWereSet) {
    EXPECT_EQ(Row("Text4").text, "0");
    EXPECT_EQ(Row("text2").text, "0");
    EXPECT_EQ(Row("Command2").text, "&Read");
    EXPECT_EQ(Row("Command3").text, "&Clear");
    EXPECT_EQ(Row("Label1").text, "Closed");
    EXPECT_EQ(Row("Label10").text, "Command Help ");
    EXPECT_EQ(Row("Text1").text, "");
    EXPECT_EQ(Row("Text3").text, "");
    EXPECT_EQ(Row("Frame1").text, "CD-ROM Status");
    EXPECT_EQ(Row("Frame2").text, "Internet Connection Status");
}

TEST_F(Form2Test, EveryControlThatShowsNoWordsOfItsOwnHasSomeForThoseWhoDoNotSeeIt) {
    for (const auto& row : kForm2Controls) {
        const bool can_be_seen = row.kind != ControlKind::ImageList &&
                                 row.kind != ControlKind::Timer && row.kind != ControlKind::Line;
        if (can_be_seen) {
            EXPECT_FALSE(row.role.empty() && row.text.empty()) << row.name;
        }
    }
}

TEST_F(Form2Test, TheMenuBarHoldsFileAndHelp) {
    std::string menus;
    for (const auto& menu : Shown().menus)
        menus += std::string(menu.menu) + "/" + std::string(menu.caption) + "\n";
    EXPECT_EQ(menus,
              "/&File\nmnuFile/E&xit\n/&Help\nmnuHelp/He&lp Documentation\nmnuHelp/-\n"
              "mnuHelp/&About KT Corvane\n");
}

TEST_F(Form2Test, TheStatusTimerIsOnFromTheStart) {
    EXPECT_TRUE(form2->Timer1.Enabled());
    EXPECT_EQ(form2->Timer1.Interval(), std::chrono::milliseconds(1000));
}

TEST_F(Form2Test, EachAdditionPutsTheLogsCaretInFrontOfItsLastCharacter) {
    form2->Text1.SetText("one line\r\n");
    EXPECT_EQ(form2->Text1.SelStart(), 9);
    EXPECT_EQ(Shown().texts.at("Text1").start, 9);
}

TEST_F(Form2Test, TheFirstGaugeIsLoadedFromWhatIsStored) {
    const bkCProg& gauge = form2->bkCProg1;
    EXPECT_EQ(gauge.StartColor(), 0x0000FF);
    EXPECT_EQ(gauge.MidColor(), 0x00FFFF);
    EXPECT_EQ(gauge.EndColor(), 0x00FF00);
    EXPECT_EQ(gauge.TextColor(), 0);
    for (const bool on : {gauge.ShowValue(), gauge.TextShadow(), gauge.ShowValueAsPercent(),
                          gauge.UseMask(), gauge.AutoMask(), gauge.AutoSize(), gauge.Tricolor(),
                          gauge.Gradient(), gauge.ShowArc(), gauge.ShowCircle()})
        EXPECT_TRUE(on);
    EXPECT_EQ(gauge.Font(), (StdFont{.Name = "MS Sans Serif", .Size = 8.25, .Weight = 400}));
    EXPECT_EQ(gauge.Min(), 0);
    EXPECT_EQ(gauge.Max(), 100);
    EXPECT_EQ(gauge.Value(), 50);
}

TEST_F(Form2Test, TheSecondGaugeHasItsOwnColours) {
    EXPECT_EQ(form2->bkCProg2.StartColor(), 0xFFFFFF);
    EXPECT_EQ(form2->bkCProg2.MidColor(), 0xFF0000);
    EXPECT_EQ(form2->bkCProg2.EndColor(), 0xC000C0);
    EXPECT_EQ(form2->bkCProg2.TextColor(), 0);
}

TEST_F(Form2Test, TheGaugesSizeThemselvesWhateverIsStoredOfTheirCentre) {
    for (const bkCProg* gauge : {&form2->bkCProg1, &form2->bkCProg2}) {
        EXPECT_EQ(gauge->XCenter(), 49);
        EXPECT_EQ(gauge->YCenter(), 44);
        EXPECT_EQ(gauge->Radius(), 43);
    }
    EXPECT_EQ(Shown().drawn.at("bkCProg1")->outer, (PixelSize{99, 88}));
    EXPECT_TRUE(Shown().drawn.at("bkCProg1")->see_through);
}

TEST_F(Form2Test, WhatIsStoredOfTheGaugesComesOutOfASaveButForWhatSizingHasReplaced) {
    PropertyBag bag;
    form2->bkCProg2.WriteProperties(bag);
    for (const auto& stored : kGauge2) {
        if (stored.key.starts_with("_")) continue;
        const bool is_default = stored.key == "font";  // the window's own
        EXPECT_EQ(bag.Holds(stored.key), !is_default) << stored.key;
    }
}

TEST_F(Form2Test, TheConnectionHasFourPictures) {
    EXPECT_EQ(form2->ImageList2.Picture(1), "connection_modem");
    EXPECT_EQ(form2->ImageList2.Picture(2), "connection_lan");
    EXPECT_EQ(form2->ImageList2.Picture(3), "connection_busy");
    EXPECT_EQ(form2->ImageList2.Picture(4), "connection_none");
}

}  // namespace
}  // namespace corvane
