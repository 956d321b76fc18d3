// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/canvas/canvas.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>
#include <set>

#include "linux/canvas/system_colours.h"

namespace corvane::linux_desktop {
namespace {

constexpr Colour kRed = 0x0000FF;
constexpr Colour kBlue = 0xFF0000;
constexpr Colour kWhite = 0xFFFFFF;

class CanvasTest : public ::testing::Test {
protected:
    CanvasTest() {
        canvas.SetSize({40, 30});
        canvas.Cls(kWhite);
        canvas.SetForeColor(kRed);
    }
    [[nodiscard]] QRgb At(int x, int y) const { return canvas.Shown().pixel(x, y); }
    [[nodiscard]] int Coloured() const {
        int count = 0;
        for (int y = 0; y < canvas.Shown().height(); ++y)
            for (int x = 0; x < canvas.Shown().width(); ++x)
                if (At(x, y) != PixelOf(kWhite)) ++count;
        return count;
    }
    [[nodiscard]] HDC hdc() const { return canvas.hDC(); }

    Gdi gdi;
    Canvas canvas{gdi};
};

TEST_F(CanvasTest, ALineLeavesOutItsEndAndGoesOnFromThere) {
    gdi.MoveToEx(hdc(), 3, 5, nullptr);
    gdi.LineTo(hdc(), 8, 5);
    EXPECT_EQ(Coloured(), 5);
    EXPECT_EQ(At(3, 5), PixelOf(kRed));
    EXPECT_EQ(At(8, 5), PixelOf(kWhite));
    POINT before;
    gdi.MoveToEx(hdc(), 0, 0, &before);
    EXPECT_EQ(before, (POINT{8, 5}));
}

TEST_F(CanvasTest, ALineToItsOwnPlaceDrawsNothingWithAThinPenAndASpotWithAWideOne) {
    gdi.MoveToEx(hdc(), 10, 10, nullptr);
    gdi.LineTo(hdc(), 10, 10);
    EXPECT_EQ(Coloured(), 0);
    canvas.SetDrawWidth(4);
    gdi.LineTo(hdc(), 10, 10);
    EXPECT_EQ(Coloured(), 12);  // 2, 4, 4, 2
}

TEST_F(CanvasTest, LinesFarBeyondTheSurfaceAreDrawnWhereTheyCrossItAndAtOnce) {
    gdi.MoveToEx(hdc(), -2'000'000'000, 7, nullptr);
    gdi.LineTo(hdc(), 2'000'000'000, 7);
    EXPECT_EQ(Coloured(), 40);
    canvas.SetDrawWidth(30000);
    gdi.LineTo(hdc(), -2'000'000'000, -2'000'000'000);
    gdi.Ellipse(hdc(), -2'000'000'000, -2'000'000'000, 2'000'000'000, 2'000'000'000);
    gdi.Arc(hdc(), -5000, -5000, 5000, 5000, 1, 1, -1, 1);
    canvas.SetDrawWidth(1);
    gdi.Ellipse(hdc(), -1'000'000, 10, 1'000'000, 2'000'000);  // its top is in sight
    EXPECT_EQ(At(0, 10), PixelOf(kRed));
}

TEST_F(CanvasTest, BoxesEndInFrontOfTheirRightAndBottom) {
    gdi.Rectangle(hdc(), 2, 3, 6, 8);
    EXPECT_EQ(At(2, 3), PixelOf(kRed));
    EXPECT_EQ(At(5, 7), PixelOf(kRed));
    EXPECT_EQ(At(6, 8), PixelOf(kWhite));
    EXPECT_EQ(At(3, 4), PixelOf(kWhite)) << "the fill is transparent at first";
    gdi.Rectangle(hdc(), 20, 3, 20, 8);
    gdi.Ellipse(hdc(), 20, 3, 30, 3);
    EXPECT_EQ(Coloured(), 14) << "an empty box is nothing";
}

TEST_F(CanvasTest, TheCornersOfABoxMayComeInAnyOrder) {
    gdi.Rectangle(hdc(), 6, 8, 2, 3);
    EXPECT_EQ(Coloured(), 14);
}

TEST_F(CanvasTest, AnEllipseReachesTheEdgesOfItsBoxAndIsFilledWhenTheFillIsSolid) {
    canvas.SetFillColor(kBlue);
    canvas.SetFillStyle(kSolidFill);
    gdi.Ellipse(hdc(), 5, 5, 16, 16);
    EXPECT_EQ(At(5, 10), PixelOf(kRed));
    EXPECT_EQ(At(15, 10), PixelOf(kRed));
    EXPECT_EQ(At(10, 5), PixelOf(kRed));
    EXPECT_EQ(At(10, 10), PixelOf(kBlue));
    EXPECT_EQ(At(5, 5), PixelOf(kWhite));
}

TEST_F(CanvasTest, AnArcRunsCounterclockwise) {
    gdi.Arc(hdc(), 5, 5, 26, 26, 40, 15, 15, 0);  // from the right to the top
    EXPECT_EQ(At(25, 15), PixelOf(kRed));
    EXPECT_EQ(At(15, 25), PixelOf(kWhite));
    EXPECT_EQ(At(5, 15), PixelOf(kWhite));
    gdi.Arc(hdc(), 5, 5, 26, 26, 15, 0, 40, 15);  // the other three quarters
    EXPECT_EQ(At(15, 25), PixelOf(kRed));
    EXPECT_EQ(At(5, 15), PixelOf(kRed));
}

TEST_F(CanvasTest, AnArcBeginsBehindThePlaceThatItsStartPointsAtInTheLowerHalfAndAtItInTheUpper) {
    gdi.Arc(hdc(), 10, 5, 29, 24, 25, 17, 19, 0);  // the middle is 19, 14
    EXPECT_EQ(At(27, 18), PixelOf(kWhite));        // 8 to the right and 4 down, as 6 and 3 are
    EXPECT_EQ(At(27, 17), PixelOf(kRed));
    EXPECT_EQ(At(11, 10), PixelOf(kWhite));
    gdi.Arc(hdc(), 10, 5, 29, 24, 13, 11, 19, 29);
    EXPECT_EQ(At(11, 10), PixelOf(kRed));
}

TEST_F(CanvasTest, TwoArcsOfOneEllipseLeaveOutTheLastPixelOfEach) {
    for (const int right : {29, 30}) {
        canvas.Cls(kWhite);
        gdi.Ellipse(hdc(), 10, 5, right, 24);
        const int whole = Coloured();
        canvas.Cls(kWhite);
        gdi.Arc(hdc(), 10, 5, right, 24, 38, 7, 2, 20);
        gdi.Arc(hdc(), 10, 5, right, 24, 2, 20, 38, 7);
        EXPECT_EQ(Coloured(), whole - 2) << right;
    }
}

TEST_F(CanvasTest, AnArcThatEndsWhereItBeginsIsTheWholeEllipseWithoutItsLastPixel) {
    gdi.Ellipse(hdc(), 10, 5, 29, 24);
    const int whole = Coloured();
    canvas.Cls(kWhite);
    gdi.Arc(hdc(), 10, 5, 29, 24, 25, 17, 31, 20);
    EXPECT_EQ(Coloured(), whole - 1);
}

TEST_F(CanvasTest, TextHasNoBackgroundAndBeginsAtItsTopLeft) {
    canvas.Cls(kBlue);
    gdi.TextOutA(hdc(), 4, 6, "50%", 3);
    EXPECT_EQ(At(4, 5), PixelOf(kBlue));
    EXPECT_EQ(At(1, 12), PixelOf(kBlue));
    int red = 0;
    int blue = 0;
    const int width = static_cast<int>(canvas.TextWidth("50%") / 15);
    for (int y = 6; y < 6 + static_cast<int>(canvas.TextHeight("50%") / 15); ++y)
        for (int x = 4; x < 4 + width; ++x) (At(x, y) == PixelOf(kBlue) ? blue : red)++;
    EXPECT_GT(red, 20);
    EXPECT_GT(blue, red);
}

TEST_F(CanvasTest, OnlyTheFirstCharactersAreDrawn) {
    gdi.TextOutA(hdc(), 0, 0, "50%", 0);
    EXPECT_EQ(Coloured(), 0);
}

TEST_F(CanvasTest, APictureIsShownAtOnceAndLaidOverTheBackgroundAtEachClearing) {
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(PixelOf(kBlue));
    canvas.SetPicture(std::make_shared<ImagePicture>(image));
    EXPECT_EQ(At(3, 3), PixelOf(kBlue));
    EXPECT_EQ(At(4, 4), PixelOf(kWhite));
    gdi.LineTo(hdc(), 30, 0);
    canvas.Cls(kRed);
    EXPECT_EQ(At(3, 3), PixelOf(kBlue));
    EXPECT_EQ(At(20, 0), PixelOf(kRed));
    canvas.SetPicture(std::make_shared<ImagePicture>(QImage()));
    EXPECT_EQ(At(3, 3), PixelOf(kRed));
}

TEST_F(CanvasTest, AnImageIsACopyOfThatMoment) {
    const Picture image = canvas.Image();
    EXPECT_NE(image->Handle(), 0U);
    canvas.Cls(kBlue);
    EXPECT_EQ(ImageOf(image).pixel(0, 0), PixelOf(kWhite));
    EXPECT_NE(canvas.Image()->Handle(), image->Handle());
}

TEST_F(CanvasTest, ANewSizeKeepsWhatWasDrawn) {
    gdi.Rectangle(hdc(), 0, 0, 3, 3);
    canvas.SetSize({60, 10});
    EXPECT_EQ(At(2, 2), PixelOf(kRed));
    EXPECT_EQ(At(59, 9), PixelOf(kWhite));
    canvas.SetSize({0, -4});
    EXPECT_EQ(canvas.Shown().size(), QSize(1, 1));
}

TEST_F(CanvasTest, AStretchIsSmoothInItsModeAndOnlyThere) {
    Canvas source(gdi);
    source.SetSize({2, 1});
    source.Cls(0);
    gdi.MoveToEx(source.hDC(), 1, 0, nullptr);
    source.SetForeColor(kWhite);
    gdi.LineTo(source.hDC(), 2, 0);
    const auto colours = [&] {
        std::set<QRgb> found;
        for (int x = 0; x < 40; ++x) found.insert(At(x, 0));
        return found.size();
    };
    EXPECT_TRUE(gdi.StretchBlt(hdc(), 0, 0, 40, 30, source.hDC(), 0, 0, 2, 1, SRCCOPY));
    EXPECT_EQ(colours(), 2U);
    gdi.SetStretchBltMode(hdc(), HALFTONE);
    EXPECT_EQ(gdi.GetStretchBltMode(hdc()), HALFTONE);
    EXPECT_TRUE(gdi.StretchBlt(hdc(), 0, 0, 40, 30, source.hDC(), 0, 0, 2, 1, SRCCOPY));
    EXPECT_GT(colours(), 10U);
    EXPECT_FALSE(gdi.StretchBlt(hdc(), 0, 0, 40, 0, source.hDC(), 0, 0, 2, 1, SRCCOPY));
}

TEST_F(CanvasTest, AContextThatIsGoneDrawsNothing) {
    HDC gone = 0;
    {
        const Canvas other(gdi);
        gone = other.hDC();
    }
    EXPECT_FALSE(gdi.LineTo(gone, 1, 1));
    EXPECT_FALSE(gdi.TextOutA(gone, 0, 0, "x", 1));
    EXPECT_EQ(gdi.GetStretchBltMode(0), 0);
}

TEST_F(CanvasTest, SystemColoursAreThePalettesOfTheMoment) {
    QPalette palette = QApplication::palette();
    const QPalette before = palette;
    palette.setColor(QPalette::Active, QPalette::Button, QColor(1, 2, 3));
    QApplication::setPalette(palette);
    EXPECT_EQ(SystemColour(15), 0x030201);
    EXPECT_EQ(PixelOf(static_cast<Colour>(0x8000000F)), qRgb(1, 2, 3));
    EXPECT_EQ(SystemColour(4711), 0);
    QApplication::setPalette(before);
}

}  // namespace
}  // namespace corvane::linux_desktop
