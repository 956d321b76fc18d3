// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "support/gauge_desk.h"

namespace corvane {
namespace {

using testing::GaugeDesk;

TEST(GaugeSizing, TheMainWindowsGauge) {
    GaugeDesk desk;
    desk.gauge.UserControl.SetSize(1485, 1320);
    EXPECT_EQ(desk.gauge.YCenter(), 44);
    EXPECT_EQ(desk.gauge.XCenter(), 49);
    EXPECT_EQ(desk.gauge.Radius(), 43);
    EXPECT_EQ(desk.shown->surface->Size(), (PixelSize{99, 88}));
}

TEST(GaugeSizing, TheFirstSizeCountsAlsoWhenItIsThatOfANewControl) {
    GaugeDesk desk;
    EXPECT_EQ(desk.gauge.Radius(), 0);
    EXPECT_EQ(desk.RepaintsOf([&] { desk.gauge.UserControl.SetSize(1005, 1005); }), 1);
    EXPECT_EQ(desk.gauge.XCenter(), 33);
    EXPECT_EQ(desk.gauge.YCenter(), 33);
    EXPECT_EQ(desk.gauge.Radius(), 32);
    EXPECT_EQ(desk.RepaintsOf([&] { desk.gauge.UserControl.SetSize(1005, 1005); }), 0)
        << "the same size again is no change";
}

TEST(GaugeSizing, ASquareOneTakesItsRadiusFromXCenter) {
    GaugeDesk desk(15, 10);  // 100 pixels across, 150 down
    desk.gauge.UserControl.SetSize(1500, 1500);
    EXPECT_EQ(desk.gauge.XCenter(), 50);
    EXPECT_EQ(desk.gauge.YCenter(), 75);
    EXPECT_EQ(desk.gauge.Radius(), 49);
}

TEST(GaugeSizing, TheBorderTakesHalfItsWidthAlsoWhenItIsNotShown) {
    GaugeDesk desk;
    desk.gauge.UserControl.SetSize(1500, 1500);
    desk.gauge.SetShowBorder(false);
    const std::pair<int, int> halves[] = {{1, 1}, {2, 1}, {3, 2}, {4, 2}, {5, 3}};
    for (const auto& [width, half] : halves) {
        desk.gauge.SetBorderWidth(width);
        EXPECT_EQ(desk.gauge.Radius(), 50 - half) << width;
    }
}

TEST(GaugeSizing, OutsideTicksTakeTheirSizeOrTheBordersHalfNotBoth) {
    GaugeDesk desk;
    desk.gauge.UserControl.SetSize(1500, 1500);
    desk.gauge.SetTickStyle(1);
    EXPECT_EQ(desk.gauge.Radius(), 49) << "ticks inside the rim take nothing";
    desk.gauge.SetTickPosition(1);
    EXPECT_EQ(desk.gauge.Radius(), 46);
    desk.gauge.SetTickSize(1);
    EXPECT_EQ(desk.gauge.Radius(), 49);
    desk.gauge.SetTickSize(4);
    desk.gauge.SetTickPosition(3);
    EXPECT_EQ(desk.gauge.Radius(), 49);
}

TEST(GaugeSizing, TicksOnTheRimTakeHalfTheirSizeRoundedToEven) {
    GaugeDesk desk;
    desk.gauge.SetTickStyle(1);
    desk.gauge.SetTickPosition(2);
    desk.gauge.SetTickSize(5);
    desk.gauge.UserControl.SetSize(1320, 1320);  // 44 - 2.5 = 41.5
    EXPECT_EQ(desk.gauge.Radius(), 42);
    desk.gauge.UserControl.SetSize(1350, 1350);  // 45 - 2.5 = 42.5
    EXPECT_EQ(desk.gauge.Radius(), 42);
    desk.gauge.SetTickSize(2);  // 1 is not greater than the border's half
    EXPECT_EQ(desk.gauge.Radius(), 44);
}

TEST(GaugeSizing, OuterSizesAreComparedThoughCentresAreOfTheInner) {
    GaugeDesk desk;
    desk.gauge.SetInset(true);
    desk.gauge.UserControl.SetSize(1500, 1200);
    EXPECT_EQ(desk.gauge.XCenter(), 49);
    EXPECT_EQ(desk.gauge.YCenter(), 39);
    EXPECT_EQ(desk.gauge.Radius(), 38);
}

TEST(GaugeSizing, WithoutAutoSizeAResizeMovesNothingButStretchesAndDraws) {
    GaugeDesk desk;
    desk.gauge.SetAutoSize(false);
    desk.gauge.SetXCenter(11);
    desk.gauge.SetYCenter(12);
    desk.gauge.SetRadius(13);
    desk.gauge.SetPicture(desk.SomePicture());
    const std::string calls = desk.CallsOf([&] { desk.gauge.UserControl.SetSize(1500, 1350); });
    EXPECT_EQ(desk.gauge.XCenter(), 11);
    EXPECT_EQ(desk.gauge.YCenter(), 12);
    EXPECT_EQ(desk.gauge.Radius(), 13);
    EXPECT_TRUE(calls.starts_with("Size 100 90\nPicture 100 90\nCls ")) << calls.substr(0, 80);
}

TEST(GaugeSizing, AutoSizeDoesNotDrawWhereItIsOnlyAskedForByATick) {
    GaugeDesk desk;
    desk.gauge.UserControl.SetSize(1500, 1500);
    EXPECT_EQ(desk.RepaintsOf([&] { desk.gauge.SetTickPosition(1); }), 0);
}

TEST(GaugePictures, AnInsetMakesTheStretchedCopyTwoPixelsNarrowerAndLower) {
    GaugeDesk desk;
    desk.gauge.SetInset(true);
    desk.gauge.SetPicture(desk.SomePicture());
    desk.gauge.UserControl.SetSize(1500, 1200);
    EXPECT_EQ(desk.gauge.UserControl.Picture()->Size(), (PixelSize{98, 78}));
    EXPECT_TRUE(desk.shown->framed);
}

TEST(GaugePictures, EachIsStretchedFromItsOwnAndSmoothly) {
    GaugeDesk desk;
    desk.gauge.UserControl.SetSize(1500, 1200);
    desk.gauge.SetPicture(desk.SomePicture());
    const auto& stretched =
        dynamic_cast<const simulated::DrawnPicture&>(*desk.gauge.UserControl.Picture());
    EXPECT_EQ(stretched.Calls(),
              "Size 100 1\nSize 100 80\nGetStretchBltMode\nSetStretchBltMode 4\n"
              "StretchBlt 0 0 100 80 from 0 0 64 48 0xCC0020\n");
    desk.gauge.UserControl.SetSize(750, 600);
    const auto& again =
        dynamic_cast<const simulated::DrawnPicture&>(*desk.gauge.UserControl.Picture());
    EXPECT_TRUE(again.Calls().ends_with(
        "GetStretchBltMode\nStretchBlt 0 0 50 40 from 0 0 64 48 0xCC0020\n"))
        << "the mode is set once, and the source is the picture itself:\n"
        << again.Calls();
    EXPECT_EQ(desk.gauge.Picture()->Size(), (PixelSize{64, 48}));
}

TEST(GaugePictures, AControlTakesThePicturesSize) {
    GaugeDesk desk;
    desk.gauge.AutoSizeToPicture();
    EXPECT_EQ(desk.gauge.UserControl.Width(), 1005) << "nothing without a picture";
    desk.gauge.SetPicture(desk.SomePicture());
    EXPECT_EQ(desk.RepaintsOf([&] { desk.gauge.AutoSizeToPicture(); }), 2) << "height, then width";
    EXPECT_EQ(desk.gauge.UserControl.Width(), 960);
    EXPECT_EQ(desk.gauge.UserControl.Height(), 720);
    desk.gauge.SetInset(true);
    desk.gauge.AutoSizeToPicture();
    EXPECT_EQ(desk.gauge.UserControl.Width(), 990);
    EXPECT_EQ(desk.gauge.UserControl.Height(), 750);
}

TEST(GaugePictures, APictureThatIsTakenAwayLeavesNoneAnywhere) {
    GaugeDesk desk;
    desk.gauge.SetPicture(desk.SomePicture());
    EXPECT_NE(desk.gauge.UserControl.Picture(), nullptr);
    desk.gauge.SetPicture(nullptr);
    EXPECT_EQ(desk.gauge.UserControl.Picture(), nullptr);
    EXPECT_EQ(desk.gauge.Picture(), nullptr);
    desk.gauge.SetMaskPicture(desk.SomePicture());
    EXPECT_NE(desk.gauge.UserControl.MaskPicture(), nullptr);
    desk.gauge.SetMaskPicture(nullptr);
    EXPECT_EQ(desk.gauge.UserControl.MaskPicture(), nullptr);
}

TEST(GaugeShape, IsTheMasksWhereItIsUsed) {
    GaugeDesk desk;
    desk.gauge.UserControl.SetSize(1500, 1500);
    desk.gauge.SetMaskPicture(desk.SomePicture());
    desk.gauge.SetMaskColor(0x00FF00);
    EXPECT_FALSE(desk.shown->see_through);
    desk.gauge.SetUseMask(true);
    EXPECT_TRUE(desk.shown->see_through);
    EXPECT_EQ(desk.shown->mask->Size(), (PixelSize{100, 100}));
    EXPECT_EQ(desk.shown->mask_colour, 0x00FF00);
    const Picture mask = desk.shown->mask;
    desk.gauge.Repaint();
    EXPECT_EQ(desk.shown->mask, mask) << "drawing does not touch the mask";
}

TEST(GaugeShape, WithAutoMaskIsWhatWasDrawn) {
    GaugeDesk desk;
    desk.gauge.UserControl.SetSize(1500, 1500);
    const std::string calls = desk.CallsOf([&] { desk.gauge.SetAutoMask(true); });
    EXPECT_TRUE(calls.starts_with("Picture empty\nCls 0x8000000F\n"));
    EXPECT_TRUE(calls.ends_with("Picture 100 100\n"));
    EXPECT_TRUE(desk.shown->see_through);
    EXPECT_EQ(desk.shown->mask_colour, static_cast<Colour>(0x8000000F));
    const auto& mask = dynamic_cast<const simulated::DrawnPicture&>(*desk.shown->mask);
    EXPECT_TRUE(mask.Calls().starts_with("Cls 0x8000000F\n"));
    EXPECT_GT(GaugeDesk::Count(mask.Calls(), "LineTo "), 100);
}

TEST(GaugeShape, AutoMaskWipesTheBackgroundPictureAtEachDrawing) {
    GaugeDesk desk;
    desk.gauge.UserControl.SetSize(1500, 1500);
    desk.gauge.SetPicture(desk.SomePicture());
    desk.gauge.SetAutoMask(true);
    EXPECT_NE(desk.gauge.Picture(), nullptr) << "though it is kept";
    const std::string calls = desk.CallsOf([&] { desk.gauge.UserControl.SetSize(1350, 1350); });
    EXPECT_TRUE(calls.starts_with("Size 90 90\nPicture 90 90\nPicture empty\nCls ")) << calls;
}

TEST(GaugeColours, ASystemColourIsTheOneOfTheMomentItWasAssigned) {
    GaugeDesk desk;
    desk.desktop.user32.SetSysColor(13, 0x0000AA);
    desk.gauge.SetGradient(false);
    desk.gauge.SetStartColor(static_cast<Colour>(0x8000000D));
    EXPECT_NE(desk.Drawing().find("ForeColor 0x0000AA\n"), std::string::npos);
    desk.desktop.user32.SetSysColor(13, 0x0000BB);
    EXPECT_NE(desk.Drawing().find("ForeColor 0x0000AA\n"), std::string::npos);
    EXPECT_EQ(desk.CallsOf([&] { desk.gauge.RecheckColors(); }), "") << "draws nothing";
    EXPECT_NE(desk.Drawing().find("ForeColor 0x0000BB\n"), std::string::npos);
}

TEST(GaugeColours, TheTopByteOfASystemColourDoesNotMatter) {
    GaugeDesk desk;
    desk.desktop.user32.SetSysColor(13, 0x0000AA);
    desk.gauge.SetGradient(false);
    desk.gauge.SetStartColor(static_cast<Colour>(0xFF00000D));
    EXPECT_NE(desk.Drawing().find("ForeColor 0x0000AA\n"), std::string::npos);
}

}  // namespace
}  // namespace corvane
