// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "gauge/painting.h"
#include "gauge/scale.h"
#include "support/expect_error.h"
#include "support/gauge_desk.h"

namespace corvane {
namespace {

using testing::GaugeDesk;

/// A dial of radius 40 around 50, 50, with nothing on it but its arc.
class GaugeDrawing : public ::testing::Test {
protected:
    GaugeDrawing() {
        desk.gauge.UserControl.SetSize(1515, 1515);
        desk.gauge.SetAutoSize(false);
        desk.gauge.SetRadius(40);
        desk.gauge.SetShowBorder(false);
    }
    [[nodiscard]] int Drawn(const std::string& start) {
        return GaugeDesk::Count(desk.Drawing(), start);
    }
    void Load(const std::string& key, PropertyValue value) {
        PropertyBag bag;
        gauge.WriteProperties(bag);
        bag.Put(key, std::move(value));
        gauge.ReadProperties(bag);
    }

    GaugeDesk desk;
    bkCProg& gauge = desk.gauge;
};

TEST_F(GaugeDrawing, AtMinThereIsNoArc) {
    gauge.SetValue(0);
    EXPECT_EQ(desk.Drawing(), "Cls 0x8000000F\nForeColor 0x8000000F\nDrawWidth 1\n");
}

TEST_F(GaugeDrawing, AtMinWithAZeroLineThereIsOneSpokeAtTheScalesStart) {
    gauge.SetValue(0);
    gauge.SetShowZeroLine(true);
    EXPECT_EQ(desk.Drawing(),
              "Cls 0x8000000F\nForeColor 0x8000000F\nDrawWidth 1\nDrawWidth 2\n"
              "ForeColor 0x0000C0\nForeColor 0x0000C0\nMoveToEx 50 50\nLineTo 50 10\n");
}

TEST_F(GaugeDrawing, AtMaxAFullDialHas361Spokes) {
    gauge.SetValue(100);
    EXPECT_EQ(Drawn("LineTo "), 361);
    const std::string drawing = desk.Drawing();
    EXPECT_TRUE(drawing.ends_with("ForeColor 0x00C000\nMoveToEx 50 50\nLineTo 50 10\n"))
        << "the last on top of the first";
}

TEST_F(GaugeDrawing, HalfwayOnAPartialDialTheArcEndsAt135AndFadesToTheMiddle) {
    gauge.SetSpan(270);
    gauge.SetGradient(false);
    gauge.SetFade(true);
    EXPECT_EQ(Drawn("LineTo "), 136);
    EXPECT_NE(desk.Drawing().find("DrawWidth 2\nForeColor 0x00FFFF\nMoveToEx"), std::string::npos);
}

TEST_F(GaugeDrawing, TheLastSpokeOfAFullScaleHasTheEndColour) {
    gauge.SetSpan(270);
    gauge.SetValue(100);
    const std::string drawing = desk.Drawing();
    EXPECT_EQ(GaugeDesk::Count(drawing, "LineTo "), 271);
    EXPECT_NE(drawing.rfind("ForeColor 0x00C000\nMoveToEx 50 50\n"), std::string::npos);
    EXPECT_EQ(drawing.rfind("ForeColor "), drawing.rfind("ForeColor 0x00C000"));
    EXPECT_NE(drawing.find("ForeColor 0x00FFFF\nMoveToEx 50 50\nLineTo 78 78\n"), std::string::npos)
        << "spoke 135 is half of the scale";
}

TEST(GaugeColour, InTheMiddleItIsTheMiddleColourExactly) {
    GaugeState gauge;
    gauge.MidColorRGB = 0x123456;
    EXPECT_EQ(GetGaugeColor(gauge, 0.5F), 0x123456);
    EXPECT_EQ(GetGaugeColor(gauge, 0.0F), 192);
    EXPECT_EQ(GetGaugeColor(gauge, 1.0F), 49152);
    EXPECT_EQ(GetGaugeColor(gauge, -3.0F), 192);
}

TEST(GaugeColour, WithoutTheMiddleItRunsFromStartToEnd) {
    GaugeState gauge;
    gauge.Tricolor = false;
    gauge.StartColorRGB = 0;
    gauge.EndColorRGB = 0xFF8040;
    EXPECT_EQ(GetGaugeColor(gauge, 0.5F), 0x804020);  // 127.5 goes to the even 128
}

TEST(GaugeColour, ComponentsAreRoundedEachByItself) {
    EXPECT_EQ(BlendColors(0.25F, 0x0000FF, 0xFF0000), 0xBF0040);
    EXPECT_EQ(BlendColors(0.1F, 0x00C000, 0x0000C0), 0x0013AD);
}

TEST(GaugeColour, Bit24FailsAtAnyFraction) {
    for (const float fraction : {-1.0F, 0.0F, 0.5F, 1.0F, 2.0F}) {
        EXPECT_ERROR(kOverflow, BlendColors(fraction, 0x1000000, 0));
        EXPECT_ERROR(kOverflow, BlendColors(fraction, 0, 0x1000000));
    }
    EXPECT_EQ(BlendColors(1.0F, 0x2000000, 0), 0x2000000) << "bit 25 passes";
}

TEST_F(GaugeDrawing, Bit24InAColourFailsWhereItIsBlended) {
    EXPECT_ERROR(kOverflow, gauge.SetEndColor(0x1000000));
    EXPECT_EQ(gauge.EndColor(), 0x1000000);
    gauge.SetValue(0);  // no arc, no colour
    gauge.SetTricolor(false);
    EXPECT_ERROR(kOverflow, gauge.SetShowArc(false));
}

GaugeState Dial(Long offset, bool clockwise) {
    GaugeState gauge;
    gauge.XCenter = 50;
    gauge.YCenter = 50;
    gauge.OffsetAngle = offset;
    gauge.Clockwise = clockwise;
    return gauge;
}

TEST(GaugePoint, QuartersAreOffByTheShortConstantAndTruncation) {
    const GaugeState gauge = Dial(0, true);
    EXPECT_EQ(GetCirclePoint(gauge, 40, 0), (POINT{50, 10}));
    EXPECT_EQ(GetCirclePoint(gauge, 40, 90), (POINT{90, 49}));
    EXPECT_EQ(GetCirclePoint(gauge, 40, 180), (POINT{50, 90}));
    EXPECT_EQ(GetCirclePoint(gauge, 40, 270), (POINT{10, 50}));
}

TEST(GaugePoint, AnOffsetOf90StartsAt3OClockInBothSenses) {
    EXPECT_EQ(GetCirclePoint(Dial(90, true), 40, 0), (POINT{90, 49}));
    EXPECT_EQ(GetCirclePoint(Dial(90, false), 40, 0).x, 90);
    EXPECT_GT(GetCirclePoint(Dial(90, true), 40, 45).y, 70) << "clockwise runs down";
    EXPECT_LT(GetCirclePoint(Dial(90, false), 40, 45).y, 30) << "counterclockwise runs up";
}

TEST(GaugePoint, AnAngleThatIsNoLongOverflows) {
    EXPECT_ERROR(kOverflow, GetCirclePoint(Dial(2147483647, true), 40, 1));
}

TEST_F(GaugeDrawing, TenTicksOnAFullDialElevenOnAPartialOne) {
    gauge.SetValue(0);
    gauge.SetTickStyle(kLineTicks);
    gauge.SetTickFrequency(10);
    EXPECT_EQ(Drawn("LineTo "), 10);
    EXPECT_NE(desk.Drawing().find("MoveToEx 50 10\nLineTo 50 14\n"), std::string::npos);
    gauge.SetSpan(270);
    EXPECT_EQ(Drawn("LineTo "), 11);
    EXPECT_TRUE(desk.Drawing().ends_with("MoveToEx 10 50\nLineTo 14 50\n")) << desk.Drawing();
}

TEST_F(GaugeDrawing, TicksOfAFullDialStandEvery36Degrees) {
    gauge.SetValue(0);
    gauge.SetTickStyle(kLineTicks);
    GaugeState dial;
    dial.XCenter = dial.YCenter = 50;
    std::string ticks;
    for (int angle = 0; angle <= 324; angle += 36) {
        const POINT p = GetCirclePoint(dial, 40, angle);
        const POINT q = GetCirclePoint(dial, 36, angle);
        ticks += "MoveToEx " + std::to_string(p.x) + " " + std::to_string(p.y) + "\nLineTo " +
                 std::to_string(q.x) + " " + std::to_string(q.y) + "\n";
    }
    EXPECT_TRUE(desk.Drawing().ends_with("FillColor 0x000000\n" + ticks)) << desk.Drawing();
}

TEST_F(GaugeDrawing, ATickFrequencyOfZeroNeverComesToAnEnd) {
    gauge.SetTickFrequency(0);
    EXPECT_THROW(gauge.SetTickStyle(kLineTicks), simulated::EndlessDrawing);
}

TEST_F(GaugeDrawing, ANegativeTickFrequencyDrawsNoTicks) {
    gauge.SetValue(0);
    gauge.SetTickFrequency(-10);
    gauge.SetTickStyle(kLineTicks);
    EXPECT_EQ(Drawn("LineTo "), 0);
}

TEST_F(GaugeDrawing, TicksCountInUnitsOfTheValueAndTheirAngleIsASumOfSingles) {
    gauge.SetValue(0);
    gauge.SetMax(7);
    gauge.SetTickFrequency(0.1F);
    gauge.SetTickStyle(kLineTicks);
    int turns = 0;
    const float step = static_cast<float>(double{0.1F} / 7 * 360);
    for (float c = 0; c <= 359.0F; c = static_cast<float>(double{c} + step)) ++turns;
    EXPECT_EQ(Drawn("LineTo "), turns);
}

TEST_F(GaugeDrawing, TicksOfNoPositionLieInTheDialsCentre) {
    gauge.SetValue(0);
    gauge.SetTickPosition(3);
    gauge.SetTickStyle(kLineTicks);
    EXPECT_EQ(Drawn("MoveToEx 50 50\nLineTo 50 50\n"), 10);
    gauge.SetTickStyle(kSolidSquareTicks);
    EXPECT_EQ(Drawn("Rectangle 48 48 52 52\n"), 10);
}

TEST_F(GaugeDrawing, ATickStyleBeyondTheKnownChangesThePenAndDrawsNothing) {
    gauge.SetValue(0);
    gauge.SetTickWidth(3);
    gauge.SetTickColor(0x112233);
    gauge.SetTickStyle(6);
    EXPECT_TRUE(desk.Drawing().ends_with(
        "DrawWidth 3\nForeColor 0x112233\nFillColor 0x112233\nFillStyle 1\n"));
}

TEST_F(GaugeDrawing, LineTicksLieInsideOutsideAndAcrossTheRim) {
    gauge.SetValue(0);
    gauge.SetTickStyle(kLineTicks);
    gauge.SetTickSize(5);
    EXPECT_EQ(Drawn("MoveToEx 50 10\nLineTo 50 15\n"), 1);
    gauge.SetTickPosition(kOutsideRim);
    EXPECT_EQ(Drawn("MoveToEx 50 10\nLineTo 50 5\n"), 1);
    gauge.SetTickPosition(kOnRim);  // 37.5 goes to 38, 42.5 to 42
    EXPECT_EQ(Drawn("MoveToEx 50 12\nLineTo 50 8\n"), 1);
}

TEST_F(GaugeDrawing, MarksAreFilledWhenSolidAndHaveTheirCentreAtTheRim) {
    gauge.SetValue(0);
    gauge.SetTickPosition(kOnRim);
    gauge.SetTickSize(5);
    gauge.SetTickStyle(kSolidCircleTicks);
    EXPECT_NE(desk.Drawing().find("FillStyle 0\nEllipse 48 8 53 13\n"), std::string::npos);
    gauge.SetTickStyle(kHollowCircleTicks);
    EXPECT_NE(desk.Drawing().find("FillStyle 1\nEllipse 48 8 53 13\n"), std::string::npos);
    gauge.SetTickStyle(kSolidSquareTicks);
    EXPECT_NE(desk.Drawing().find("FillStyle 0\nRectangle 48 8 53 13\n"), std::string::npos);
    gauge.SetTickStyle(kHollowSquareTicks);
    EXPECT_NE(desk.Drawing().find("FillStyle 1\nRectangle 48 8 53 13\n"), std::string::npos);
}

TEST_F(GaugeDrawing, WithoutAnArcTheNeedleTakesTheValuesColour) {
    gauge.SetNeedleColor(0x777777);
    gauge.SetShowNeedle(true);
    EXPECT_NE(desk.Drawing().find("ForeColor 0x777777\nMoveToEx 50 50\nLineTo 50 90\n"),
              std::string::npos);
    gauge.SetShowArc(false);
    EXPECT_EQ(Drawn("ForeColor 0x777777"), 0);
    EXPECT_TRUE(
        desk.Drawing().ends_with("DrawWidth 2\nForeColor 0x00FFFF\nMoveToEx 50 50\nLineTo 50 90\n"))
        << desk.Drawing();
    gauge.SetGradient(false);
    EXPECT_EQ(Drawn("ForeColor 0x777777"), 1);
    gauge.SetFade(true);
    EXPECT_EQ(Drawn("ForeColor 0x777777"), 0);
}

TEST_F(GaugeDrawing, TheTextIsTheValueOrItsShareOfTheRange) {
    gauge.SetValue(7);
    gauge.SetShowValue(true);
    gauge.SetTextColor(0);
    EXPECT_TRUE(desk.Drawing().ends_with("ForeColor 0x000000\nTextOutA 47 44 \"7\" 1\n"))
        << desk.Drawing();
    gauge.SetShowValueAsPercent(true);
    EXPECT_TRUE(desk.Drawing().ends_with("TextOutA 44 44 \"7%\" 2\n"));
    gauge.SetSpan(90);  // whatever the span
    EXPECT_TRUE(desk.Drawing().ends_with("TextOutA 44 44 \"7%\" 2\n"));
}

TEST_F(GaugeDrawing, ANegativeValueHasALeadingMinus) {
    Load("Min", Long(-50));
    Load("Value", Long(-8));
    gauge.SetShowValue(true);
    EXPECT_EQ(desk.shown->surface->Words(), "-8\n");
}

TEST_F(GaugeDrawing, TheShadowLiesUnderTheText) {
    gauge.SetValue(0);
    gauge.SetShowValueAsPercent(true);
    gauge.SetTextOffsetX(3);
    gauge.SetTextOffsetY(-2);
    gauge.SetTextShadow(true);
    gauge.SetTextShadowXOffset(2);
    EXPECT_TRUE(
        desk.Drawing().ends_with("ForeColor 0x808080\nTextOutA 49 43 \"0%\" 2\n"
                                 "ForeColor 0xFFFFFF\nTextOutA 47 42 \"0%\" 2\n"))
        << desk.Drawing();
}

TEST(GaugePercent, IsAWholeNumberAndATieGoesAwayFromZero) {
    EXPECT_EQ(FormatPercent(0.5), "50%");
    EXPECT_EQ(FormatPercent(0), "0%");
    EXPECT_EQ(FormatPercent(1), "100%");
    EXPECT_EQ(FormatPercent(0.125), "13%");
    EXPECT_EQ(FormatPercent(-0.125), "-13%");
    EXPECT_EQ(FormatPercent(2.0 / 3), "67%");
    EXPECT_EQ(FormatPercent(-0.001), "0%");
    EXPECT_EQ(FormatPercent(30000000), "3000000000%") << "more than a Long holds";
}

TEST_F(GaugeDrawing, CirclesOfTheBackgroundsColourAreLeftOut) {
    gauge.SetValue(0);
    EXPECT_EQ(Drawn("Ellipse "), 0);
    gauge.SetCircleColor(0x8000000F - 0x100000000LL);
    EXPECT_EQ(Drawn("Ellipse "), 0);
    // Compared as stored: the RGB of that very system colour is another colour.
    gauge.SetCircleColor(desk.desktop.user32.GetSysColor(15));
    EXPECT_EQ(Drawn("Ellipse 10 10 91 91\n"), 1);
}

TEST_F(GaugeDrawing, AFullDialsCircleIsOutlinedWithTheBordersPen) {
    gauge.SetValue(0);
    gauge.SetShowBorder(true);
    gauge.SetBorderColor(0x010203);
    gauge.SetBorderWidth(3);
    gauge.SetCircleColor(0x445566);
    EXPECT_EQ(desk.Drawing(),
              "Cls 0x8000000F\nForeColor 0x010203\nDrawWidth 3\nFillColor 0x445566\nFillStyle 0\n"
              "Ellipse 10 10 91 91\nForeColor 0x010203\nDrawWidth 3\nFillStyle 1\n"
              "Ellipse 10 10 91 91\n");
}

TEST_F(GaugeDrawing, OnAPartialDialTheCircleCoversOnlyWhatIsAboveTheArc) {
    gauge.SetSpan(90);
    gauge.SetValue(50);
    gauge.SetCircleColor(0);
    EXPECT_EQ(Drawn("LineTo "), 46 + 46);  // 90 down to 45, 0 up to 45
    gauge.SetShowArc(false);
    EXPECT_EQ(Drawn("LineTo "), 91 + 1);  // 90 down to 0, and the needle
}

TEST_F(GaugeDrawing, ThePartialDialsBorderIsAnArcThatStaysOnTheDial) {
    gauge.SetValue(0);
    gauge.SetShowBorder(true);
    gauge.SetSpan(90);
    EXPECT_TRUE(desk.Drawing().ends_with("Arc 10 10 91 91 89 49 50 11\n")) << desk.Drawing();
    gauge.SetClockwise(false);
    EXPECT_TRUE(desk.Drawing().ends_with("Arc 10 10 91 91 50 11 11 49\n")) << desk.Drawing();
}

TEST_F(GaugeDrawing, PensGrowWithTheRadius) {
    gauge.SetRadius(16);
    EXPECT_NE(desk.Drawing().find("DrawWidth 1\nDrawWidth 1\nForeColor"), std::string::npos);
    gauge.SetRadius(17);
    EXPECT_NE(desk.Drawing().find("DrawWidth 1\nDrawWidth 2\nForeColor"), std::string::npos);
    gauge.SetRadius(96);
    EXPECT_NE(desk.Drawing().find("DrawWidth 1\nDrawWidth 4\nForeColor"), std::string::npos);
}

TEST_F(GaugeDrawing, TheRimLiesInsideHalfTheBorder) {
    gauge.SetShowBorder(true);
    gauge.SetBorderWidth(4);
    gauge.SetShowZeroLine(true);
    gauge.SetValue(0);
    EXPECT_EQ(Drawn("LineTo 50 12\n"), 1);  // 40 - 5 \ 2
}

TEST_F(GaugeDrawing, WithMaxAtMinItIsBlank) {
    EXPECT_ERROR(kDivisionByZero, gauge.SetMax(0));
    EXPECT_EQ(desk.shown->surface->Shown(), "Cls 0x8000000F\n");
}

TEST_F(GaugeDrawing, ARangeThatIsNoLongOverflows) {
    EXPECT_ERROR(kOverflow, [&] {
        Load("Min", Long(-2147483647));
        Load("Max", Long(2147483647));
    }());
}

TEST_F(GaugeDrawing, ALoadedSpanOfZeroFailsWhereItDivides) {
    EXPECT_ERROR(kOverflow, Load("Span", Long(0)));  // 0 of 0 at the first spoke
    EXPECT_ERROR(kDivisionByZero, gauge.SetFade(true));
}

TEST_F(GaugeDrawing, ALoadedSpanOfZeroWithoutGradientAndFadeIsDrawn) {
    gauge.SetGradient(false);
    Load("Span", Long(0));
    EXPECT_EQ(Drawn("LineTo "), 1);
}

TEST_F(GaugeDrawing, ADrawingRunsToItsEndWithoutYielding) {
    bool ran = false;
    desk.desktop.queue.Post([&] { ran = true; });
    gauge.Repaint();
    EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace corvane
