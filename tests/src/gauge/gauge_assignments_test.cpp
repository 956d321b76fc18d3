// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "gauge/gauge_members.h"
#include "support/expect_error.h"
#include "support/gauge_desk.h"

namespace corvane {
namespace {

using testing::GaugeDesk;
using Signals = std::vector<std::string>;

struct Assignment {
    const char* name;
    std::function<void(bkCProg&)> assign;
    const char* key;
    std::function<void(bkCProg&)> visible;  // makes it matter to the drawing; empty: always does
    std::function<void(bkCProg&)> unseen;   // makes it not matter; empty: it always does
};

const std::function<void(bkCProg&)> kTicks = [](bkCProg& g) { g.SetTickStyle(1); };
const std::function<void(bkCProg&)> kNone = [](bkCProg&) {};
const std::function<void(bkCProg&)> kText = [](bkCProg& g) { g.SetShowValue(true); };
const std::function<void(bkCProg&)> kShadow = [](bkCProg& g) {
    g.SetShowValue(true);
    g.SetTextShadow(true);
};
const std::function<void(bkCProg&)> kPlain = [](bkCProg& g) {
    g.SetGradient(false);
    g.SetFade(false);
};

// Each with what makes it matter to the drawing and what makes it not. Signals are those of the
// assignment alone.
const Assignment kAssignments[] = {
    {"AutoMask", [](bkCProg& g) { g.SetAutoMask(true); }, "AutoMask", {}, {}},
    {"AutoSize", [](bkCProg& g) { g.SetAutoSize(true); }, "AutoSize", {}, {}},
    {"BackColor", [](bkCProg& g) { g.SetBackColor(1); }, "BackColor", {}, {}},
    {"BorderColor", [](bkCProg& g) { g.SetBorderColor(1); }, "BorderColor", kNone,
     [](bkCProg& g) { g.SetShowBorder(false); }},
    {"BorderWidth", [](bkCProg& g) { g.SetBorderWidth(2); }, "BorderWidth", kNone,
     [](bkCProg& g) { g.SetShowBorder(false); }},
    {"CircleColor", [](bkCProg& g) { g.SetCircleColor(1); }, "CircleColor", kNone,
     [](bkCProg& g) { g.SetShowCircle(false); }},
    {"Clockwise", [](bkCProg& g) { g.SetClockwise(false); }, "Clockwise", {}, {}},
    {"EndColor", [](bkCProg& g) { g.SetEndColor(1); }, "EndColor", kNone, kPlain},
    {"Fade", [](bkCProg& g) { g.SetFade(true); }, "Fade", {}, {}},
    {"Font", [](bkCProg& g) { g.SetFont({.Name = "Sans"}); }, "Font", {}, {}},
    {"Gradient", [](bkCProg& g) { g.SetGradient(false); }, "Gradient", {}, {}},
    {"Inset", [](bkCProg& g) { g.SetInset(true); }, "Inset", nullptr, kNone},
    {"MaskColor", [](bkCProg& g) { g.SetMaskColor(1); }, "MaskColor", nullptr, kNone},
    {"MaskPicture", [](bkCProg& g) { g.SetMaskPicture(nullptr); }, "MaskPicture", {}, {}},
    {"Max", [](bkCProg& g) { g.SetMax(90); }, "Max", {}, {}},
    {"MidColor", [](bkCProg& g) { g.SetMidColor(1); }, "MidColor", kNone, kPlain},
    {"MidColor", [](bkCProg& g) { g.SetMidColor(1); }, "MidColor", kNone,
     [](bkCProg& g) { g.SetTricolor(false); }},
    {"Min", [](bkCProg& g) { g.SetMin(1); }, "Min", {}, {}},
    {"NeedleColor", [](bkCProg& g) { g.SetNeedleColor(1); }, "NeedleColor",
     [](bkCProg& g) { g.SetShowNeedle(true); }, kNone},
    {"OffsetAngle", [](bkCProg& g) { g.SetOffsetAngle(1); }, "OffsetAngle", {}, {}},
    {"Picture", [](bkCProg& g) { g.SetPicture(nullptr); }, "Picture", {}, {}},
    {"Radius", [](bkCProg& g) { g.SetRadius(1); }, "Radius", {}, {}},
    {"ShowArc", [](bkCProg& g) { g.SetShowArc(true); }, "ShowArc", {}, {}},
    {"ShowBorder", [](bkCProg& g) { g.SetShowBorder(false); }, "Border", {}, {}},
    {"ShowCircle", [](bkCProg& g) { g.SetShowCircle(false); }, "ShowCircle", {}, {}},
    {"ShowNeedle", [](bkCProg& g) { g.SetShowNeedle(true); }, "ShowNeedle", {}, {}},
    {"ShowValue", [](bkCProg& g) { g.SetShowValue(false); }, "ShowValue", {}, {}},
    {"ShowValueAsPercent", [](bkCProg& g) { g.SetShowValueAsPercent(false); }, "ShowValueAsPercent",
     kText, kNone},
    {"ShowZeroLine", [](bkCProg& g) { g.SetShowZeroLine(true); }, "ShowZeroLine",
     [](bkCProg& g) { g.SetValue(0); }, kNone},
    {"Span", [](bkCProg& g) { g.SetSpan(90); }, "Span", {}, {}},
    {"StartColor", [](bkCProg& g) { g.SetStartColor(1); }, "StartColor", {}, {}},
    {"TextColor", [](bkCProg& g) { g.SetTextColor(1); }, "EndColor", kText, kNone},
    {"TextOffsetX", [](bkCProg& g) { g.SetTextOffsetX(1); }, "TextOffsetX", kText, kNone},
    {"TextOffsetY", [](bkCProg& g) { g.SetTextOffsetY(1); }, "TextOffsetY", kText, kNone},
    {"TextShadow", [](bkCProg& g) { g.SetTextShadow(true); }, "TextShadow", kText, kNone},
    {"TextShadowColor", [](bkCProg& g) { g.SetTextShadowColor(1); }, "TextShadowColor", kShadow,
     kText},
    {"TextShadowXOffset", [](bkCProg& g) { g.SetTextShadowXOffset(2); }, "TextShadowXOffset",
     kShadow, kText},
    {"TextShadowYOffset", [](bkCProg& g) { g.SetTextShadowYOffset(2); }, "TextShadowYOffset",
     kShadow, kText},
    {"TickColor", [](bkCProg& g) { g.SetTickColor(1); }, "TickColor", kTicks, kNone},
    {"TickFrequency", [](bkCProg& g) { g.SetTickFrequency(5); }, "TickFrequency", kTicks, kNone},
    {"TickPosition", [](bkCProg& g) { g.SetTickPosition(1); }, "TickPosition", kTicks, kNone},
    {"TickSize", [](bkCProg& g) { g.SetTickSize(5); }, "TickSize", kTicks, kNone},
    {"TickStyle", [](bkCProg& g) { g.SetTickStyle(0); }, "TickStyle", {}, {}},
    {"TickWidth", [](bkCProg& g) { g.SetTickWidth(2); }, "TickWidth", kTicks, kNone},
    {"Tricolor", [](bkCProg& g) { g.SetTricolor(false); }, "Tricolor", kNone, kPlain},
    {"UseMask", [](bkCProg& g) { g.SetUseMask(true); }, "UseMask", nullptr, kNone},
    {"Value", [](bkCProg& g) { g.SetValue(50); }, "Value", {}, {}},
    {"XCenter", [](bkCProg& g) { g.SetXCenter(50); }, "XCenter", {}, {}},
    {"YCenter", [](bkCProg& g) { g.SetYCenter(50); }, "YCenter", {}, {}},
};

int RepaintsOf(const Assignment& row, const std::function<void(bkCProg&)>& first) {
    GaugeDesk desk;
    desk.gauge.UserControl.SetSize(1500, 1500);
    if (first) first(desk.gauge);
    desk.signals.clear();
    const int repaints = desk.RepaintsOf([&] { row.assign(desk.gauge); });
    EXPECT_EQ(desk.signals, Signals{row.key}) << row.name;
    return repaints;
}

TEST(GaugeAssignments, EachDrawsWhereItMattersAndTellsItsKey) {
    for (const auto& row : kAssignments) {
        const bool never = row.visible == nullptr && row.unseen != nullptr;
        if (!never) {
            EXPECT_EQ(RepaintsOf(row, row.visible), 1) << row.name;
        }
        if (row.unseen) {
            EXPECT_EQ(RepaintsOf(row, row.unseen), 0) << row.name << " where it does not matter";
        }
    }
}

TEST(GaugeAssignments, TheTableOfThemHoldsEveryPropertyThatCanBeAssigned) {
    for (const auto& member : kGaugeMembers) {
        const bool assigned = std::ranges::any_of(
            kAssignments, [&](const Assignment& row) { return row.name == member.name; });
        EXPECT_EQ(assigned, member.kind == GaugeMemberKind::Property) << member.name;
    }
}

TEST(GaugeAssignments, SwitchingAutoSizeOffDrawsNothing) {
    GaugeDesk desk;
    EXPECT_EQ(desk.RepaintsOf([&] { desk.gauge.SetAutoSize(false); }), 0);
    EXPECT_EQ(desk.signals, Signals{"AutoSize"});
}

TEST(GaugeValue, IsHeldBetweenMinAndMax) {
    GaugeDesk desk;
    desk.gauge.SetValue(150);
    EXPECT_EQ(desk.gauge.Value(), 100);
    desk.gauge.SetValue(-5);
    EXPECT_EQ(desk.gauge.Value(), 0);
}

TEST(GaugeValue, WithMinAboveMaxAValueAboveBothIsStoredAsMax) {
    GaugeDesk desk;
    desk.gauge.SetMin(200);
    desk.gauge.SetValue(250);
    EXPECT_EQ(desk.gauge.Value(), 100);
    desk.gauge.SetValue(200);
    EXPECT_EQ(desk.gauge.Value(), 100);
    desk.gauge.SetValue(199);
    EXPECT_EQ(desk.gauge.Value(), 200);
}

TEST(GaugeValue, StaysAboveALoweredMaxUntilItIsAssignedAgain) {
    GaugeDesk desk;
    desk.gauge.SetValue(80);
    desk.gauge.SetMax(60);
    EXPECT_EQ(desk.gauge.Value(), 80);
    desk.gauge.SetValue(desk.gauge.Value());
    EXPECT_EQ(desk.gauge.Value(), 60);
}

TEST(GaugeValue, DrawsAlsoWhenItIsTheSame) {
    GaugeDesk desk;
    EXPECT_EQ(desk.RepaintsOf([&] { desk.gauge.SetValue(50); }), 1);
}

TEST(GaugeMin, ANegativeOneIsStoredAsZero) {
    GaugeDesk desk;
    desk.gauge.SetMin(-10);
    EXPECT_EQ(desk.gauge.Min(), 0);
}

TEST(GaugeSpan, IsBroughtBetween45And360) {
    GaugeDesk desk;
    const std::pair<int, int> stored[] = {{720, 360}, {405, 45}, {10, 45}, {-30, 330}, {360, 360},
                                          {0, 45},    {361, 45}, {45, 45}, {-360, 45}};
    for (const auto& [given, kept] : stored) {
        desk.gauge.SetSpan(given);
        EXPECT_EQ(desk.gauge.Span(), kept) << given;
    }
}

TEST(GaugeOffsetAngle, IsBroughtBetween0And359) {
    GaugeDesk desk;
    const std::pair<int, int> stored[] = {{360, 0}, {-90, 270}, {359, 359}, {-720, 0}, {1000, 280}};
    for (const auto& [given, kept] : stored) {
        desk.gauge.SetOffsetAngle(given);
        EXPECT_EQ(desk.gauge.OffsetAngle(), kept) << given;
    }
}

TEST(GaugeBorderWidth, IsAtLeastOneAndBelowTheRadius) {
    GaugeDesk desk;
    desk.gauge.SetAutoSize(false);
    desk.gauge.SetRadius(20);
    desk.gauge.SetBorderWidth(0);
    EXPECT_EQ(desk.gauge.BorderWidth(), 1);
    desk.gauge.SetBorderWidth(50);
    EXPECT_EQ(desk.gauge.BorderWidth(), 19);
    desk.gauge.SetBorderWidth(20);
    EXPECT_EQ(desk.gauge.BorderWidth(), 19);
}

TEST(GaugeBorderWidth, TheUpperLimitGoesBelowTheLower) {
    GaugeDesk desk;
    desk.gauge.SetAutoSize(false);
    desk.gauge.SetRadius(1);
    desk.gauge.SetBorderWidth(5);
    EXPECT_EQ(desk.gauge.BorderWidth(), 0);
    desk.gauge.SetRadius(0);
    desk.gauge.SetBorderWidth(5);
    EXPECT_EQ(desk.gauge.BorderWidth(), -1);
}

TEST(GaugeBorderWidth, ALimitThatIsNoIntegerOverflowsAndKeepsTheOldWidth) {
    GaugeDesk desk;
    desk.gauge.SetAutoSize(false);
    desk.gauge.SetRadius(50000);
    desk.signals.clear();
    EXPECT_ERROR(kOverflow, desk.gauge.SetBorderWidth(60000));
    EXPECT_EQ(desk.gauge.BorderWidth(), 1);
    EXPECT_TRUE(desk.signals.empty());
}

TEST(GaugeTickWidth, IsAtLeastOne) {
    GaugeDesk desk;
    desk.gauge.SetTickWidth(-3);
    EXPECT_EQ(desk.gauge.TickWidth(), 1);
}

TEST(GaugeArcAndNeedle, WithoutAnArcTheNeedleIsShownAndToldFirst) {
    GaugeDesk desk;
    EXPECT_EQ(desk.RepaintsOf([&] { desk.gauge.SetShowArc(false); }), 1);
    EXPECT_FALSE(desk.gauge.ShowArc());
    EXPECT_TRUE(desk.gauge.ShowNeedle());
    EXPECT_EQ(desk.signals, (Signals{"ShowNeedle", "ShowArc"}));
}

TEST(GaugeArcAndNeedle, WithoutANeedleTheArcIsShownAndToldFirst) {
    GaugeDesk desk;
    desk.gauge.SetShowArc(false);
    desk.signals.clear();
    EXPECT_EQ(desk.RepaintsOf([&] { desk.gauge.SetShowNeedle(false); }), 1);
    EXPECT_TRUE(desk.gauge.ShowArc());
    EXPECT_FALSE(desk.gauge.ShowNeedle());
    EXPECT_EQ(desk.signals, (Signals{"ShowArc", "ShowNeedle"}));
}

TEST(GaugeShowValueAsPercent, AlsoShowsTheValueAndDoesNotHideItAgain) {
    GaugeDesk desk;
    desk.gauge.SetShowValueAsPercent(true);
    EXPECT_TRUE(desk.gauge.ShowValue());
    EXPECT_EQ(desk.signals, Signals{"ShowValueAsPercent"});
    desk.gauge.SetShowValueAsPercent(false);
    EXPECT_TRUE(desk.gauge.ShowValue());
}

TEST(GaugeAutoMask, SwitchedOffLeavesShapeAndColourAsTheyAre) {
    GaugeDesk desk;
    desk.gauge.SetBackColor(0x123456);
    desk.gauge.SetAutoMask(true);
    desk.gauge.SetAutoMask(false);
    EXPECT_TRUE(desk.gauge.UseMask());
    EXPECT_EQ(desk.gauge.MaskColor(), 0x123456);
}

TEST(GaugeAutoMask, WhileItIsOnTheMaskCannotBeSwitchedOff) {
    GaugeDesk desk;
    desk.gauge.SetAutoMask(true);
    desk.gauge.SetUseMask(false);
    EXPECT_TRUE(desk.gauge.UseMask());
    desk.gauge.SetAutoMask(false);
    desk.gauge.SetUseMask(false);
    EXPECT_FALSE(desk.gauge.UseMask());
}

TEST(GaugeAutoMask, TheMaskFollowsTheBackground) {
    GaugeDesk desk;
    desk.gauge.SetAutoMask(true);
    desk.gauge.SetBackColor(0x00FF00);
    EXPECT_EQ(desk.gauge.MaskColor(), 0x00FF00);
    EXPECT_EQ(desk.shown->mask_colour, 0x00FF00);
}

TEST(GaugeColours, ASystemColourStaysOneInEveryPublicField) {
    GaugeDesk desk;
    bkCProg& g = desk.gauge;
    const Long system = static_cast<Colour>(0x80000005);
    desk.desktop.user32.SetSysColor(5, 0x00FE01);
    g.SetStartColor(system);
    g.SetMidColor(system);
    g.SetEndColor(system);
    g.SetBackColor(system);
    g.SetBorderColor(system);
    g.SetCircleColor(system);
    g.SetMaskColor(system);
    g.SetNeedleColor(system);
    g.SetTextColor(system);
    g.SetTextShadowColor(system);
    g.SetTickColor(system);
    for (const Long colour : {g.StartColor(), g.MidColor(), g.EndColor(), g.BackColor(),
                              g.BorderColor(), g.CircleColor(), g.MaskColor(), g.NeedleColor(),
                              g.TextColor(), g.TextShadowColor(), g.TickColor()})
        EXPECT_EQ(colour, system);
    PropertyBag bag;
    g.WriteProperties(bag);
    EXPECT_EQ(CLng(bag.ReadProperty("StartColor", {})), system);
    const std::string drawing = desk.Drawing();
    EXPECT_NE(drawing.find("ForeColor 0x00FE01\nMoveToEx"), std::string::npos)
        << "what is blended is translated";
    EXPECT_NE(drawing.find("ForeColor 0x80000005\n"), std::string::npos)
        << "the border's colour is handed on as it is";
}

TEST(GaugeFailure, AFailedDrawingComesBehindTheValueAndBeforeTheKey) {
    GaugeDesk desk;
    desk.gauge.SetMax(60);
    desk.signals.clear();
    EXPECT_ERROR(kDivisionByZero, desk.gauge.SetMin(60));
    EXPECT_EQ(desk.gauge.Min(), 60);
    EXPECT_TRUE(desk.signals.empty());
    EXPECT_EQ(desk.shown->surface->Shown(), "Cls 0x8000000F\n");
}

TEST(GaugeMembers, TheImageIsThatOfTheBackgroundPictureAndTheHandleThatOfTheSurface) {
    GaugeDesk desk;
    desk.gauge.SetPicture(desk.SomePicture());
    EXPECT_EQ(desk.gauge.Image()->Size(), (PixelSize{64, 48}));
    EXPECT_EQ(desk.gauge.hwnd(), 4001U);
}

TEST(GaugeMembers, AreThe53InTheirOrder) {
    ASSERT_EQ(kGaugeMembers.size(), 53U);
    std::string names;
    for (const auto& member : kGaugeMembers) names += std::string(member.name) + " ";
    EXPECT_EQ(names,
              "Repaint AutoMask AutoSize AutoSizeToPicture BackColor BorderColor BorderWidth "
              "CircleColor Clockwise EndColor Fade Font Gradient Inset "
              "hwnd Image MaskColor MaskPicture Max MidColor Min "
              "NeedleColor OffsetAngle Picture Radius RecheckColors ShowArc ShowBorder "
              "ShowCircle ShowNeedle ShowValue ShowValueAsPercent ShowZeroLine Span StartColor "
              "TextColor TextOffsetX TextOffsetY TextShadow TextShadowColor TextShadowXOffset "
              "TextShadowYOffset "
              "TickColor TickFrequency TickPosition TickSize TickStyle TickWidth Tricolor "
              "UseMask Value XCenter YCenter ");
    std::string arguments;
    for (const auto& member : kGaugeMembers)
        if (!member.argument.empty()) arguments += std::string(member.argument) + " ";
    EXPECT_EQ(arguments,
              "blnAutoMask blnAutoSize lBackColor lBorderColor lBorderWidth lCircleColor "
              "bClockwise lEndColor bFade oFont blnGradient blnInset lMaskColor pMaskPicture lMax "
              "lMidColor lMin lNeedleColor lOffsetAngle pPicture lRadius blnShowArc bBorder "
              "blnShowCircle blnShowNeedle blnShowValue blnShowValueAsPercent bShowZeroLine lSpan "
              "lStartColor lTextColor lTextOffsetX lTextOffsetY blnTextShadow lTextShadowColor "
              "iTextShadowXOffset iTextShadowYOffset lTickColor sngTickFrequency nTickPosition "
              "iTickSize nTickStyle iTickWidth bTricolor bUseMask lValue lXCenter lYCenter ");
    const auto id_of = [](std::string_view name) {
        return std::ranges::find(kGaugeMembers, name, &GaugeMember::name)->id;
    };
    EXPECT_EQ(id_of("Value"), 0);
    EXPECT_EQ(id_of("Repaint"), -550);
    EXPECT_EQ(id_of("Font"), -512);
    EXPECT_EQ(id_of("hwnd"), -515);
    EXPECT_EQ(id_of("BorderWidth"), -509);
}

TEST(GaugeBoolean, TrueIsMinusOneIn16Bits) {
    EXPECT_EQ(Boolean(true).rep(), -1);
    EXPECT_EQ(sizeof(Boolean), 2U);
}

}  // namespace
}  // namespace corvane
