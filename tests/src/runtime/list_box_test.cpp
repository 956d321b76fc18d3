// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/list_box.h"

#include <gtest/gtest.h>

#include <array>

#include "runtime/forms/form.h"
#include "simulated/simulated_desktop.h"

namespace corvane::forms {
namespace {

constexpr std::array kControls{ControlDescription{.name = "Fruit",
                                                  .kind = ControlKind::ListBox,
                                                  .place = {0, 0, 100, 100},
                                                  .text = "pear\nApple pie\nbanana\napple"}};
constexpr WindowDescription kShop{.name = "Shop", .caption = "Shop", .controls = kControls};

class Shop final : public Form {
public:
    Shop(IWindowToolkit& toolkit, MessageLoop& loop) : Form(toolkit, loop, kShop) {}
    ListBox Fruit{*this, "Fruit"};
};

class ListBoxTest : public ::testing::Test {
protected:
    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    std::shared_ptr<Shop> shop = std::make_shared<Shop>(desktop.windows, loop);
};

TEST_F(ListBoxTest, ItsItemsAreHeldAndShownSortedWithoutRegardToCase) {
    const std::vector<std::string> sorted{"apple", "Apple pie", "banana", "pear"};
    EXPECT_EQ(desktop.windows.Window("Shop").lists.at("Fruit").items, sorted);
    EXPECT_EQ(shop->Fruit.ListCount(), 4);
    EXPECT_EQ(shop->Fruit.List(1), "Apple pie");
}

TEST_F(ListBoxTest, NothingIsSelectedAtFirst) {
    EXPECT_EQ(shop->Fruit.ListIndex(), -1);
}

TEST_F(ListBoxTest, WhereThereIsNoItemItsTextIsEmpty) {
    for (const int index : {-1, 4, 100}) EXPECT_EQ(shop->Fruit.List(index), "") << index;
}

TEST_F(ListBoxTest, ADoubleClickSelectsItsItemBeforeItIsTold) {
    std::string told;
    shop->Fruit.DblClick = [&] { told += shop->Fruit.List(shop->Fruit.ListIndex()) + ";"; };
    desktop.windows.DoubleClick("Shop", "Fruit", "banana");
    EXPECT_EQ(told, "banana;");
    EXPECT_EQ(shop->Fruit.ListIndex(), 2);
}

TEST_F(ListBoxTest, ADoubleClickBesideTheItemsIsToldAndLeavesTheSelectionAlone) {
    int told = 0;
    shop->Fruit.DblClick = [&] { ++told; };
    desktop.windows.DoubleClickBelow("Shop", "Fruit");
    EXPECT_EQ(shop->Fruit.ListIndex(), -1);
    desktop.windows.DoubleClick("Shop", "Fruit", "pear");
    desktop.windows.DoubleClickBelow("Shop", "Fruit");
    EXPECT_EQ(shop->Fruit.ListIndex(), 3);
    EXPECT_EQ(told, 3);
}

TEST_F(ListBoxTest, ADoubleClickThatNobodyHandlesDoesNothing) {
    desktop.Drive([&] { desktop.windows.DoubleClick("Shop", "Fruit", "pear"); });
    EXPECT_FALSE(desktop.runtime.Ended());
}

}  // namespace
}  // namespace corvane::forms
