// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_printer.h"

#include <gtest/gtest.h>

#include "simulated/simulated_desktop.h"
#include "support/expect_error.h"

namespace corvane::simulated {
namespace {

constexpr WindowDescription kSheet{.name = "Sheet", .caption = "Sheet", .controls = {}};
constexpr ControlDescription kText{.name = "Text", .kind = ControlKind::RichTextBox, .place = {}};

/// A text of which ten letters fit a line and two lines a page.
class SimulatedPrinterTest : public ::testing::Test {
protected:
    std::int32_t Format(std::int32_t from, std::uint32_t draw = 1) {
        const FORMATRANGE range{.hdc = desktop.printer.hDC(),
                                .hdcTarget = desktop.printer.hDC(),
                                .rc = {0, 0, 1200, 480},
                                .rcPage = {},
                                .chrg = {from, -1}};
        return desktop.user32.SendMessageA(text->hWnd(), EM_FORMATRANGE, draw, &range);
    }
    [[nodiscard]] std::vector<std::string> Printed() {
        desktop.printer.EndDoc();
        return desktop.printer.Jobs().back().back().lines;
    }

    SimulatedDesktop desktop;
    std::unique_ptr<IWindowPeer> window = desktop.windows.CreateWindow(kSheet, {});
    std::unique_ptr<ITextPeer> text = window->AddText(kText, {});
};

TEST_F(SimulatedPrinterTest, LinesAreWrappedAtWordsAndPagesFill) {
    text->SetText("one two three four five six");
    desktop.printer.Print(" ");
    EXPECT_EQ(Format(0), 19);
    EXPECT_EQ(Printed(), (std::vector<std::string>{"one two ", "three four "}));
}

TEST_F(SimulatedPrinterTest, AWordLongerThanALineIsBrokenAndLineEndsAreTakenAsTheyCome) {
    text->SetText("abcdefghijklm\r\n\nlast");
    desktop.printer.Print(" ");
    EXPECT_EQ(Format(0), 15);
    EXPECT_EQ(Format(15), 20);
    EXPECT_EQ(Printed(), (std::vector<std::string>{"", "last"}));
}

TEST_F(SimulatedPrinterTest, MeasuringDrawsNothing) {
    text->SetText("one");
    desktop.printer.Print(" ");
    EXPECT_EQ(Format(0, 0), 3);
    EXPECT_TRUE(Printed().empty());
}

TEST_F(SimulatedPrinterTest, APageThatHasNotBegunCannotBeDrawnOn) {
    EXPECT_ERROR(kPrinterError, Format(0));
    desktop.printer.Print(" ");
    desktop.printer.NewPage();
    EXPECT_ERROR(kPrinterError, Format(0));
}

TEST_F(SimulatedPrinterTest, NoTextAnswersToAnUnknownHandleOrAnotherMessage) {
    const FORMATRANGE range;
    EXPECT_EQ(desktop.user32.SendMessageA(1, EM_FORMATRANGE, 1, &range), 0);
    EXPECT_EQ(desktop.user32.SendMessageA(text->hWnd(), WM_MOUSEMOVE, 1, &range), 0);
}

TEST_F(SimulatedPrinterTest, OnlyAPageThatHasBegunTellsItsBorder) {
    EXPECT_EQ(desktop.gdi.GetDeviceCaps(desktop.printer.hDC(), PHYSICALOFFSETX), 0);
    desktop.printer.Print(" ");
    EXPECT_EQ(desktop.gdi.GetDeviceCaps(desktop.printer.hDC(), PHYSICALOFFSETX), 150);
    EXPECT_EQ(desktop.gdi.GetDeviceCaps(desktop.printer.hDC(), PHYSICALOFFSETY), 50);
    EXPECT_EQ(desktop.gdi.GetDeviceCaps(desktop.printer.hDC(), 110), 0);
}

TEST_F(SimulatedPrinterTest, SizesFollowTheScaleModeAndThePaperDoesNot) {
    EXPECT_FLOAT_EQ(desktop.printer.ScaleWidth(), 11520);
    EXPECT_FLOAT_EQ(desktop.printer.ScaleHeight(), 15360);
    desktop.printer.SetScaleMode(kScalePixels);
    EXPECT_FLOAT_EQ(desktop.printer.ScaleWidth(), 4800);
    EXPECT_FLOAT_EQ(desktop.printer.ScaleHeight(), 3200);
    EXPECT_FLOAT_EQ(desktop.printer.Width(), 12240);
    EXPECT_FLOAT_EQ(desktop.printer.ScaleX(1440, kScaleTwips, kScalePixels), 600);
    EXPECT_FLOAT_EQ(desktop.printer.ScaleY(300, kScalePixels, kScaleTwips), 1440);
}

}  // namespace
}  // namespace corvane::simulated
