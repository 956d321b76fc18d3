// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/canvas/control_view.h"

#include <gtest/gtest.h>

#include <QPixmap>

#include "gauge/bkcprog.h"
#include "linux/canvas/system_colours.h"
#include "linux/windows/control_handles.h"
#include "linux/windows/user32.h"
#include "platform/error.h"

namespace corvane::linux_desktop {
namespace {

constexpr QRgb kBehind = 0xFF12AB34;

/// A gauge in a window of one colour.
class ControlViewTest : public ::testing::Test {
protected:
    ControlViewTest() {
        QPalette palette;
        palette.setColor(QPalette::Window, QColor(kBehind));
        window.setPalette(palette);
        window.resize(120, 100);
        gauge.ReadProperties({});
        gauge.UserControl.SetSize(1500, 1500);
    }
    [[nodiscard]] QImage Seen() { return window.grab().toImage(); }

    QWidget window;
    ControlView* view = new ControlView(&window);
    Gdi gdi;
    ControlHandles controls;
    User32 user32{MakeSessionWindows(), controls, gdi};
    bkCProg gauge{std::make_unique<QtControlHost>(gdi, *view), gdi, user32};
};

TEST_F(ControlViewTest, AnOpaqueControlIsARectangle) {
    const QImage seen = Seen();
    EXPECT_EQ(seen.pixel(1, 1), PixelOf(static_cast<Colour>(0x8000000F)));
    EXPECT_EQ(seen.pixel(110, 1), kBehind);
}

TEST_F(ControlViewTest, WithAutoMaskOnlyWhatIsDrawnIsSeen) {
    gauge.SetAutoMask(true);
    const QImage seen = Seen();
    EXPECT_EQ(seen.pixel(1, 1), kBehind);
    EXPECT_EQ(seen.pixel(30, 50), kBehind) << "beyond the value the dial is empty";
    EXPECT_EQ(seen.pixel(50, 1), PixelOf(0)) << "its border";
    EXPECT_NE(seen.pixel(70, 50), kBehind);
}

TEST_F(ControlViewTest, TheShapeFollowsTheValue) {
    gauge.SetAutoMask(true);
    gauge.SetValue(100);
    EXPECT_NE(Seen().pixel(30, 50), kBehind);
    gauge.SetValue(10);
    EXPECT_EQ(Seen().pixel(30, 50), kBehind);
}

TEST_F(ControlViewTest, AMaskPictureCutsItsColourOut) {
    QImage mask(2, 1, QImage::Format_RGB32);
    mask.setPixel(0, 0, qRgb(0, 255, 0));
    mask.setPixel(1, 0, qRgb(255, 255, 255));
    gauge.SetMaskColor(0x00FF00);
    gauge.SetMaskPicture(std::make_shared<ImagePicture>(mask));
    gauge.SetUseMask(true);
    const QImage seen = Seen();
    EXPECT_EQ(seen.pixel(2, 2), kBehind);
    EXPECT_NE(seen.pixel(97, 2), kBehind);
    gauge.SetUseMask(false);
    EXPECT_NE(Seen().pixel(2, 2), kBehind);
}

TEST_F(ControlViewTest, ABackgroundPictureIsStretchedBehindTheDial) {
    QImage picture(64, 48, QImage::Format_RGB32);
    picture.fill(qRgb(9, 8, 7));
    gauge.SetPicture(std::make_shared<ImagePicture>(picture));
    EXPECT_EQ(Seen().pixel(1, 1), qRgb(9, 8, 7));
    EXPECT_EQ(Seen().pixel(98, 98), qRgb(9, 8, 7));
    EXPECT_EQ(gauge.Image()->Size(), (PixelSize{64, 48}));
}

TEST_F(ControlViewTest, AnInsetHasAFrameOfOnePixel) {
    gauge.SetInset(true);
    gauge.Repaint();
    const QImage seen = Seen();
    EXPECT_NE(seen.pixel(0, 0), seen.pixel(1, 1));
    EXPECT_EQ(seen.pixel(1, 1), PixelOf(static_cast<Colour>(0x8000000F)));
}

TEST_F(ControlViewTest, WhatItSaysIsAlsoSaidToThoseWhoDoNotSeeIt) {
    gauge.SetShowValueAsPercent(true);
    gauge.SetValue(37);
    EXPECT_EQ(view->accessibleDescription(), "37%");
}

TEST_F(ControlViewTest, PicturesComeFromFilesOrAreEmpty) {
    IControlHost& host = gauge.UserControl.Host();
    EXPECT_EQ(host.LoadPicture("")->Handle(), 0U);
    const auto error_of = [&](const char* path) {
        try {
            (void)host.LoadPicture(path);
        } catch (const RuntimeError& error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(error_of("/nowhere/at/all.png"), kFileNotFound);
    EXPECT_EQ(error_of("/proc/meminfo"), kInvalidPicture);
}

TEST_F(ControlViewTest, TheWindowMayGoBeforeTheControl) {
    delete view;
    view = nullptr;
    gauge.SetValue(3);
    EXPECT_EQ(gauge.hwnd(), 0U);
}

}  // namespace
}  // namespace corvane::linux_desktop
