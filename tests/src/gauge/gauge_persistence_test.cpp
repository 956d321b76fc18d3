// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "support/expect_error.h"
#include "support/gauge_desk.h"

namespace corvane {
namespace {

using testing::GaugeDesk;

PropertyBag Saved(const bkCProg& gauge) {
    PropertyBag bag;
    gauge.WriteProperties(bag);
    return bag;
}

TEST(PropertyBag, KeysMatchWithoutRegardToCase) {
    PropertyBag bag;
    bag.WriteProperty("TickSize", Integer(7), Integer(4));
    EXPECT_EQ(CInt(bag.ReadProperty("ticksize", Integer(4))), 7);
}

TEST(PropertyBag, StoresNothingThatIsTheDefault) {
    PropertyBag bag;
    bag.WriteProperty("TextOffsetX", 0.0, Long(0));
    bag.WriteProperty("Picture", Picture(), {});
    bag.WriteProperty("Font", StdFont{.Name = "Sans"}, StdFont{.Name = "Sans"});
    EXPECT_EQ(bag.Size(), 0U);
    bag.WriteProperty("Font", StdFont{.Name = "Sans", .Size = 9}, StdFont{.Name = "Sans"});
    EXPECT_EQ(bag.Size(), 1U);
}

TEST(PropertyBag, AnAbsentKeyReadsAsTheDefault) {
    EXPECT_EQ(CLng(PropertyBag().ReadProperty("Max", Long(100))), 100);
}

TEST(PropertyBag, WhatIsNoNumberCannotBeReadAsOne) {
    EXPECT_ERROR(kTypeMismatch, CLng(StdFont()));
    EXPECT_ERROR(kTypeMismatch, AsFont(Long(1)));
    EXPECT_ERROR(kOverflow, CInt(Long(40000)));
}

TEST(GaugePersistence, ANewGaugeHasTheValuesOfOneThatIsNewlyPlaced) {
    GaugeDesk desk;
    const bkCProg& g = desk.gauge;
    EXPECT_EQ(g.Max(), 100);
    EXPECT_EQ(g.Min(), 0);
    EXPECT_EQ(g.Value(), 50);
    EXPECT_EQ(g.BackColor(), static_cast<Colour>(0x8000000F));
    EXPECT_EQ(g.StartColor(), 192);
    EXPECT_EQ(g.MidColor(), 65535);
    EXPECT_EQ(g.EndColor(), 49152);
    EXPECT_EQ(g.CircleColor(), static_cast<Colour>(0x8000000F));
    EXPECT_EQ(g.BorderColor(), 0);
    EXPECT_EQ(g.TextColor(), 0xFFFFFF);
    EXPECT_EQ(g.NeedleColor(), static_cast<Colour>(0x80000012));
    EXPECT_EQ(g.TextShadowColor(), 0x808080);
    EXPECT_EQ(g.TickColor(), 0);
    EXPECT_EQ(g.MaskColor(), static_cast<Colour>(0x8000000F));
    for (const bool on : {g.Tricolor(), g.ShowBorder(), g.Clockwise(), g.Gradient(), g.AutoSize(),
                          g.ShowArc(), g.ShowCircle()})
        EXPECT_TRUE(on);
    for (const bool off :
         {g.Fade(), g.ShowZeroLine(), g.ShowValue(), g.TextShadow(), g.ShowNeedle(),
          g.ShowValueAsPercent(), g.AutoMask(), g.Inset(), g.UseMask()})
        EXPECT_FALSE(off);
    EXPECT_EQ(g.OffsetAngle(), 0);
    EXPECT_EQ(g.Span(), 360);
    EXPECT_EQ(g.BorderWidth(), 1);
    EXPECT_EQ(g.TickSize(), 4);
    EXPECT_EQ(g.TickFrequency(), 10.0F);
    EXPECT_EQ(g.TickWidth(), 1);
    EXPECT_EQ(g.XCenter(), 0);
    EXPECT_EQ(g.YCenter(), 0);
    EXPECT_EQ(g.Radius(), 0);
    EXPECT_EQ(g.TextOffsetX(), 0);
    EXPECT_EQ(g.TextOffsetY(), 0);
    EXPECT_EQ(g.TextShadowXOffset(), 1);
    EXPECT_EQ(g.TextShadowYOffset(), 1);
    EXPECT_EQ(g.TickStyle(), 0);
    EXPECT_EQ(g.TickPosition(), 0);
    EXPECT_EQ(g.Font(), StdFont{.Name = "MS Sans Serif"});
    EXPECT_EQ(g.Picture(), nullptr);
    EXPECT_EQ(g.MaskPicture(), nullptr);
}

TEST(GaugePersistence, AnEmptyBagGivesTheDefaultsOfLoading) {
    GaugeDesk desk;
    desk.gauge.ReadProperties({});
    EXPECT_EQ(desk.gauge.XCenter(), 50);
    EXPECT_EQ(desk.gauge.YCenter(), 50);
    EXPECT_EQ(desk.gauge.Radius(), 25);
    EXPECT_EQ(desk.gauge.TextShadowXOffset(), 1);
    EXPECT_EQ(Saved(desk.gauge).Size(), 0U);
}

TEST(GaugePersistence, LoadingClampsAndNormalisesNothing) {
    PropertyBag bag;
    bag.Put("Min", Long(-10));
    bag.Put("Value", Long(500));
    bag.Put("Span", Long(10));
    bag.Put("OffsetAngle", Long(-90));
    bag.Put("BorderWidth", Integer(0));
    bag.Put("TickWidth", Integer(-1));
    GaugeDesk desk;
    desk.gauge.ReadProperties(bag);
    EXPECT_EQ(desk.gauge.Min(), -10);
    EXPECT_EQ(desk.gauge.Value(), 500);
    EXPECT_EQ(desk.gauge.Span(), 10);
    EXPECT_EQ(desk.gauge.OffsetAngle(), -90);
    EXPECT_EQ(desk.gauge.BorderWidth(), 0);
    EXPECT_EQ(desk.gauge.TickWidth(), -1);
}

TEST(GaugePersistence, LoadingStopsAtTheFirstKeyInItsOrderThatCannotBeRead) {
    // Each key with the one that is read next.
    const std::pair<const char*, const char*> neighbours[] = {
        {"Max", "Min"},
        {"Min", "Value"},
        {"Value", "StartColor"},
        {"TickColor", "Span"},
        {"TickWidth", "XCenter"},
        {"XCenter", "YCenter"},
        {"YCenter", "Radius"},
        {"Radius", "TextOffsetX"},
        {"TextShadowYOffset", "TickStyle"},
        {"TickStyle", "TickPosition"},
    };
    const auto of = [](const bkCProg& g, std::string_view key) -> Long {
        if (key == "Max") return g.Max();
        if (key == "Min") return g.Min();
        if (key == "Value") return g.Value();
        if (key == "StartColor") return g.StartColor();
        if (key == "TickColor") return g.TickColor();
        if (key == "Span") return g.Span();
        if (key == "TickWidth") return g.TickWidth();
        if (key == "XCenter") return g.XCenter() * 15;
        if (key == "YCenter") return g.YCenter() * 15;
        if (key == "Radius") return g.Radius() * 15;
        if (key == "TextOffsetX") return g.TextOffsetX() * 15;
        if (key == "TextShadowYOffset") return Long(g.TextShadowYOffset()) * 15;
        if (key == "TickStyle") return g.TickStyle();
        return g.TickPosition();
    };
    for (const auto& [before, behind] : neighbours) {
        PropertyBag bag;
        bag.Put(before, Long(270));
        bag.Put(behind, StdFont());
        GaugeDesk desk;
        const Long untouched = of(desk.gauge, behind);
        EXPECT_ERROR(kTypeMismatch, desk.gauge.ReadProperties(bag));
        EXPECT_EQ(of(desk.gauge, before), 270) << before;
        EXPECT_EQ(of(desk.gauge, behind), untouched) << behind;

        PropertyBag reversed;
        reversed.Put(before, StdFont());
        reversed.Put(behind, Long(270));
        GaugeDesk other;
        EXPECT_ERROR(kTypeMismatch, other.gauge.ReadProperties(reversed));
        EXPECT_EQ(of(other.gauge, behind), untouched) << behind << " is read behind " << before;
    }
}

TEST(GaugePersistence, LoadingDrawsOnceAndTellsOnlyTheKeyOfItsLastStep) {
    GaugeDesk desk;
    EXPECT_EQ(desk.RepaintsOf([&] { desk.gauge.ReadProperties({}); }), 1);
    EXPECT_EQ(desk.signals, std::vector<std::string>{"AutoMask"});
}

TEST(GaugePersistence, LoadingTranslatesTheThreeColours) {
    GaugeDesk desk;
    desk.desktop.user32.SetSysColor(5, 0x0000FE);
    PropertyBag bag;
    bag.Put("StartColor", Long(static_cast<Colour>(0x80000005)));
    bag.Put("Gradient", Boolean(false));
    bag.Put("Value", Long(1));
    desk.gauge.ReadProperties(bag);
    EXPECT_NE(desk.Drawing().find("ForeColor 0x0000FE\n"), std::string::npos);
}

TEST(GaugePersistence, EverythingButTheZeroLineSurvivesASave) {
    GaugeDesk desk;
    bkCProg& g = desk.gauge;
    g.UserControl.SetSize(1500, 1500);
    g.SetMax(200);
    g.SetValue(120);
    g.SetBackColor(0xABCDEF);
    g.SetShowBorder(false);
    g.SetShowZeroLine(true);
    g.SetTextShadowXOffset(3);
    g.SetTextOffsetX(-4);
    g.SetTickFrequency(2.5F);
    g.SetTickStyle(5);
    g.SetFont({.Name = "Serif", .Size = 12, .Weight = 700});
    g.SetPicture(desk.SomePicture());
    g.SetInset(true);
    g.SetAutoSize(false);
    g.SetXCenter(33);
    const PropertyBag bag = Saved(g);
    EXPECT_TRUE(bag.Holds("Border"));
    EXPECT_FALSE(bag.Holds("ShowBorder"));
    EXPECT_FALSE(bag.Holds("ShowZeroLine"));

    GaugeDesk other;
    other.gauge.ReadProperties(bag);
    EXPECT_FALSE(other.gauge.ShowZeroLine());
    EXPECT_EQ(other.gauge.Max(), 200);
    EXPECT_EQ(other.gauge.Value(), 120);
    EXPECT_EQ(other.gauge.BackColor(), 0xABCDEF);
    EXPECT_FALSE(other.gauge.ShowBorder());
    EXPECT_EQ(other.gauge.TextShadowXOffset(), 3);
    EXPECT_EQ(other.gauge.TextOffsetX(), -4);
    EXPECT_EQ(other.gauge.TickFrequency(), 2.5F);
    EXPECT_EQ(other.gauge.TickStyle(), 5);
    EXPECT_EQ(other.gauge.Font().Weight, 700);
    EXPECT_EQ(other.gauge.Picture(), g.Picture());
    EXPECT_TRUE(other.gauge.Inset());
    EXPECT_EQ(other.gauge.XCenter(), 33);
}

TEST(GaugePersistence, AStoredZeroLineIsRead) {
    PropertyBag bag;
    bag.Put("ShowZeroLine", Boolean(true));
    GaugeDesk desk;
    desk.gauge.ReadProperties(bag);
    EXPECT_TRUE(desk.gauge.ShowZeroLine());
}

TEST(GaugePersistence, TheDefaultOfYCenterIsReckonedAcrossWhenItIsSaved) {
    GaugeDesk desk(15, 12);
    desk.gauge.SetAutoSize(false);
    desk.gauge.SetXCenter(50);
    desk.gauge.SetRadius(25);
    desk.gauge.SetYCenter(50);
    const PropertyBag bag = Saved(desk.gauge);
    EXPECT_FALSE(bag.Holds("XCenter"));
    EXPECT_EQ(CDbl(bag.ReadProperty("YCenter", {})), 600.0);  // 12 twips, not the default's 15

    GaugeDesk other(15, 12);
    other.gauge.ReadProperties({});
    EXPECT_EQ(other.gauge.YCenter(), 50);
}

TEST(GaugePersistence, TextOffsetYIsSavedAcrossAndLoadedDown) {
    GaugeDesk desk(15, 12);
    desk.gauge.SetTextOffsetY(8);
    const PropertyBag bag = Saved(desk.gauge);
    EXPECT_EQ(CDbl(bag.ReadProperty("TextOffsetY", {})), 120.0);
    GaugeDesk other(15, 12);
    other.gauge.ReadProperties(bag);
    EXPECT_EQ(other.gauge.TextOffsetY(), 10);
}

TEST(GaugePersistence, StoredTwipsAreRoundedToEvenThenDividedDown) {
    PropertyBag bag;
    bag.Put("XCenter", 149.5);  // 150
    bag.Put("Radius", 148.5);   // 148
    bag.Put("TextOffsetX", -29.0);
    GaugeDesk desk;
    desk.gauge.ReadProperties(bag);
    EXPECT_EQ(desk.gauge.XCenter(), 10);
    EXPECT_EQ(desk.gauge.Radius(), 9);
    EXPECT_EQ(desk.gauge.TextOffsetX(), -1);
}

TEST(GaugePersistence, AStoredShapeComesBack) {
    GaugeDesk desk;
    desk.gauge.SetAutoMask(true);
    const PropertyBag bag = Saved(desk.gauge);
    EXPECT_TRUE(bag.Holds("AutoMask"));
    EXPECT_TRUE(bag.Holds("UseMask"));
    GaugeDesk other;
    other.gauge.ReadProperties(bag);
    EXPECT_TRUE(other.shown->see_through);
    EXPECT_NE(other.shown->mask, nullptr);
}

}  // namespace
}  // namespace corvane
