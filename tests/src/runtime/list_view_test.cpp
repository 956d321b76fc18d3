// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/list_view.h"

#include <gtest/gtest.h>

#include <array>

#include "runtime/forms/form.h"
#include "simulated/simulated_desktop.h"
#include "support/expect_error.h"

namespace corvane::forms {
namespace {

constexpr std::array kControls{
    ControlDescription{.name = "Words",
                       .kind = ControlKind::ListView,
                       .place = {15, 30, 300, 200},
                       .tab_index = 0,
                       .text = "Word\nMeaning"},
};
constexpr WindowDescription kLexicon{
    .name = "Lexicon", .caption = "Lexicon", .controls = kControls};

class Lexicon final : public Form {
public:
    Lexicon(IWindowToolkit& toolkit, MessageLoop& loop) : Form(toolkit, loop, kLexicon) {}
    ListView Words{*this, "Words"};
};

class ListViewTest : public ::testing::Test {
protected:
    [[nodiscard]] const simulated::ShownListView& Shown() const {
        return desktop.windows.Window("Lexicon").list_views.at("Words");
    }
    void Fill() {
        for (const char* word : {"a", "b", "c"}) list.Add(word);
    }

    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    std::shared_ptr<Lexicon> form = std::make_shared<Lexicon>(desktop.windows, loop);
    ListView& list = form->Words;
};

TEST_F(ListViewTest, RowsStandInTheOrderOfAdding) {
    Fill();
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(list.Item(1)->Text(), "a");
    EXPECT_EQ(list.Item(3)->Index(), 3);
    EXPECT_ERROR(kSubscriptOutOfRange, list.Item(0));
    EXPECT_ERROR(kSubscriptOutOfRange, list.Item(4));
}

TEST_F(ListViewTest, ASubItemIsTheSecondColumnOfItsRow) {
    Fill();
    list.Item(2)->SetSubItem(1, "second letter");
    EXPECT_EQ(list.Item(2)->SubItem(1), "second letter");
    EXPECT_EQ(Shown().rows[1], (std::vector<std::string>{"b", "second letter"}));
    EXPECT_ERROR(kSubscriptOutOfRange, list.Item(2)->SubItem(2));
    EXPECT_ERROR(kSubscriptOutOfRange, (list.Item(2)->SetSubItem(0, ""), 0));
}

TEST_F(ListViewTest, TheFirstRowOfAllIsSelected) {
    EXPECT_TRUE(list.SelectedItem().empty());
    EXPECT_ERROR(kObjectNotSet, list.SelectedItem()->Text());
    Fill();
    EXPECT_EQ(list.SelectedItem()->Text(), "a");
    EXPECT_EQ(Shown().selected, 0);
}

TEST_F(ListViewTest, TheRowThatMovesIntoThePlaceOfARemovedOneIsSelected) {
    Fill();
    list.Item(2)->SetSelected(true);
    list.Remove(2);
    EXPECT_EQ(list.SelectedItem()->Text(), "c");
    list.Remove(2);
    EXPECT_EQ(list.SelectedItem()->Text(), "a");
    EXPECT_EQ(Shown().selected, 0);
    list.Remove(1);
    EXPECT_TRUE(list.SelectedItem().empty());
}

TEST_F(ListViewTest, RemovingAnotherRowLeavesTheSelectionWhereItIs) {
    Fill();
    list.Item(3)->SetSelected(true);
    list.Remove(1);
    EXPECT_EQ(list.SelectedItem()->Text(), "c");
    EXPECT_EQ(list.SelectedItem()->Index(), 2);
}

TEST_F(ListViewTest, ARowThatWasRemovedKeepsItsTextAndIsInNoListAnyMore) {
    Fill();
    const ListView::Row row = list.Item(1);
    list.Remove(1);
    EXPECT_EQ(row->Text(), "a");
    EXPECT_ERROR(kObjectNotSet, row->Index());
    const ListView::Row other = list.Item(1);
    list.Clear();
    EXPECT_ERROR(kObjectNotSet, (other->EnsureVisible(), 0));
    EXPECT_TRUE(list.SelectedItem().empty());
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(ListViewTest, ASelectionCanBeTakenAway) {
    Fill();
    list.Item(2)->SetSelected(false);
    EXPECT_EQ(list.SelectedItem()->Text(), "a");
    list.Item(1)->SetSelected(false);
    EXPECT_TRUE(list.SelectedItem().empty());
    EXPECT_EQ(Shown().selected, kNoRow);
}

TEST_F(ListViewTest, ARowIsFoundByTheBeginningOfItsTextFromTheTopDown) {
    for (const char* word : {"notebook", "note", "Not"}) list.Add(word);
    EXPECT_EQ(list.FindItem("not")->Text(), "notebook");
    EXPECT_EQ(list.FindItem("Not")->Text(), "Not");
    EXPECT_EQ(list.FindItem("")->Text(), "notebook");
    EXPECT_TRUE(list.FindItem("book").empty());
}

TEST_F(ListViewTest, APersonsClickSelectsBeforeItIsToldAndBesideTheRowsLeavesTheSelection) {
    Fill();
    std::string told;
    list.Click = [&] { told += list.SelectedItem()->Text(); };
    desktop.windows.ClickRow("Lexicon", "Words", 1);
    desktop.windows.ClickRow("Lexicon", "Words", kNoRow);
    EXPECT_EQ(told, "bb");
}

TEST_F(ListViewTest, ADoubleClickIsToldBehindItsClickAndOnItsOwnRow) {
    Fill();
    std::string told;
    list.Click = [&] {
        told += "click " + list.SelectedItem()->Text() + " ";
        list.Item(1)->SetSelected(true);
    };
    list.DblClick = [&] { told += "double " + list.SelectedItem()->Text(); };
    desktop.windows.DoubleClickRow("Lexicon", "Words", 2);
    EXPECT_EQ(told, "click c double c");
}

TEST_F(ListViewTest, ColumnsCountFromOne) {
    list.SetColumnWidth(2, 120.5F);
    EXPECT_EQ(list.ColumnWidth(2), 120.5F);
    EXPECT_EQ(Shown().columns[1], 120.5F);
    EXPECT_ERROR(kSubscriptOutOfRange, (list.SetColumnWidth(3, 1), 0));
    EXPECT_ERROR(kSubscriptOutOfRange, list.ColumnWidth(0));
}

TEST_F(ListViewTest, PlacesKeepWhatWasComputed) {
    EXPECT_EQ(list.Left(), 15.0F);
    list.SetLeft(0.25F);
    list.SetWidth(99.5F);
    EXPECT_EQ(Shown().place, (ComputedPlace{0.25F, 30, 99.5F, 200}));
}

TEST_F(ListViewTest, AChangeThatIsRefusedLeavesTheOldState) {
    Fill();
    desktop.record.Fail("AddRow", kAutomationError);
    EXPECT_ERROR(kAutomationError, list.Add("d"));
    EXPECT_EQ(list.Count(), 3);
    desktop.record.Fail("RemoveRow", kAutomationError);
    EXPECT_ERROR(kAutomationError, (list.Remove(1), 0));
    EXPECT_EQ(list.Item(1)->Text(), "a");
}

}  // namespace
}  // namespace corvane::forms
