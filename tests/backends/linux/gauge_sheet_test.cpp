// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QLabel>
#include <QPixmap>
#include <set>
#include <string>
#include <vector>

#include "gauge/bkcprog.h"
#include "linux/canvas/control_view.h"
#include "linux/windows/control_handles.h"
#include "linux/windows/look.h"
#include "linux/windows/user32.h"

namespace corvane::linux_desktop {
namespace {

struct Look {
    const char* title;
    void (*set)(bkCProg&);
};

const Look kLooks[] = {
    {"new", [](bkCProg&) {}},
    {"value 0", [](bkCProg& g) { g.SetValue(0); }},
    {"zero line",
     [](bkCProg& g) {
         g.SetValue(0);
         g.SetShowZeroLine(true);
     }},
    {"value 100", [](bkCProg& g) { g.SetValue(100); }},
    {"fade 25",
     [](bkCProg& g) {
         g.SetGradient(false);
         g.SetFade(true);
         g.SetValue(25);
     }},
    {"fade 90",
     [](bkCProg& g) {
         g.SetGradient(false);
         g.SetFade(true);
         g.SetValue(90);
     }},
    {"plain",
     [](bkCProg& g) {
         g.SetGradient(false);
         g.SetStartColor(0xC06020);
     }},
    {"two colours",
     [](bkCProg& g) {
         g.SetTricolor(false);
         g.SetValue(100);
     }},
    {"counterclockwise",
     [](bkCProg& g) {
         g.SetClockwise(false);
         g.SetValue(30);
     }},
    {"offset 90",
     [](bkCProg& g) {
         g.SetOffsetAngle(90);
         g.SetValue(30);
     }},
    {"span 270",
     [](bkCProg& g) {
         g.SetSpan(270);
         g.SetOffsetAngle(225);
         g.SetValue(100);
     }},
    {"span 180",
     [](bkCProg& g) {
         g.SetSpan(180);
         g.SetOffsetAngle(270);
     }},
    {"span 45",
     [](bkCProg& g) {
         g.SetSpan(45);
         g.SetValue(100);
     }},
    {"circle", [](bkCProg& g) { g.SetCircleColor(0xFFFFFF); }},
    {"circle, partial",
     [](bkCProg& g) {
         g.SetCircleColor(0x605040);
         g.SetSpan(240);
     }},
    {"no border", [](bkCProg& g) { g.SetShowBorder(false); }},
    {"border 6",
     [](bkCProg& g) {
         g.SetBorderWidth(6);
         g.SetBorderColor(0x804020);
     }},
    {"border 6, partial",
     [](bkCProg& g) {
         g.SetBorderWidth(6);
         g.SetSpan(200);
     }},
    {"needle",
     [](bkCProg& g) {
         g.SetShowNeedle(true);
         g.SetNeedleColor(0xFF0000);
     }},
    {"needle alone",
     [](bkCProg& g) {
         g.SetShowArc(false);
         g.SetCircleColor(0);
         g.SetValue(70);
     }},
    {"line ticks",
     [](bkCProg& g) {
         g.SetTickStyle(1);
         g.SetValue(20);
     }},
    {"ticks outside",
     [](bkCProg& g) {
         g.SetTickPosition(1);
         g.SetTickSize(8);
         g.SetTickStyle(1);
     }},
    {"ticks on the rim",
     [](bkCProg& g) {
         g.SetTickPosition(2);
         g.SetTickSize(9);
         g.SetTickStyle(1);
     }},
    {"circle ticks",
     [](bkCProg& g) {
         g.SetTickStyle(2);
         g.SetTickSize(7);
         g.SetTickColor(0xC00000);
     }},
    {"hollow circles",
     [](bkCProg& g) {
         g.SetTickPosition(2);
         g.SetTickSize(8);
         g.SetTickStyle(3);
     }},
    {"square ticks",
     [](bkCProg& g) {
         g.SetTickPosition(1);
         g.SetTickSize(6);
         g.SetTickStyle(4);
     }},
    {"hollow squares",
     [](bkCProg& g) {
         g.SetTickStyle(5);
         g.SetTickSize(8);
         g.SetTickFrequency(12.5F);
     }},
    {"wide ticks",
     [](bkCProg& g) {
         g.SetTickStyle(1);
         g.SetTickWidth(4);
         g.SetTickSize(12);
     }},
    {"text",
     [](bkCProg& g) {
         g.SetTextColor(0);
         g.SetShowValue(true);
     }},
    {"percent, shadow",
     [](bkCProg& g) {
         g.SetShowValueAsPercent(true);
         g.SetTextShadow(true);
         g.SetMax(200);
     }},
    {"large text",
     [](bkCProg& g) {
         g.SetFont({.Name = "MS Sans Serif", .Size = 20, .Weight = 700});
         g.SetShowValue(true);
     }},
    {"inset",
     [](bkCProg& g) {
         g.SetInset(true);
         g.UserControl.SetSize(1350, 1350);
     }},
    {"shaped",
     [](bkCProg& g) {
         g.SetAutoMask(true);
         g.SetValue(80);
     }},
    {"shaped, partial",
     [](bkCProg& g) {
         g.SetAutoMask(true);
         g.SetSpan(300);
         g.SetOffsetAngle(210);
     }},
    {"main window 1",
     [](bkCProg& g) {
         g.SetStartColor(0x0000FF);
         g.SetEndColor(0x00FF00);
         g.SetTextColor(0);
         g.SetTextShadow(true);
         g.SetShowValueAsPercent(true);
         g.SetAutoMask(true);
         g.SetValue(91);
     }},
    {"main window 2",
     [](bkCProg& g) {
         g.SetStartColor(0xFFFFFF);
         g.SetMidColor(0xFF0000);
         g.SetEndColor(0xC000C0);
         g.SetTextColor(0);
         g.SetTextShadow(true);
         g.SetShowValueAsPercent(true);
         g.SetAutoMask(true);
         g.SetValue(64);
     }},
};

/// All of them on one sheet, drawn by themselves: `gauge_sheet.png` in the folder the test runs in,
/// for whoever wants to look at them.
TEST(GaugeSheet, EveryLookShowsSomethingOfItsOwn) {
    constexpr int kColumns = 9;
    constexpr int kCell = 108;
    constexpr int kCellHeight = 124;
    QWidget sheet;
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0xDD, 0xE6, 0xF0));
    sheet.setPalette(palette);
    sheet.setFont(DialogFont());
    sheet.resize(kColumns * kCell,
                 static_cast<int>(std::size(kLooks) + kColumns - 1) / kColumns * kCellHeight);
    Gdi gdi;
    const ControlHandles controls;
    User32 user32(MakeSessionWindows(), controls, gdi);
    std::vector<std::unique_ptr<bkCProg>> gauges;
    std::vector<ControlView*> views;
    int place = 0;
    for (const Look& look : kLooks) {
        const QPoint corner(place % kColumns * kCell + 6, place / kColumns * kCellHeight + 4);
        ++place;
        auto* const view = new ControlView(&sheet);
        view->move(corner);
        views.push_back(view);
        auto* const title = new QLabel(look.title, &sheet);
        title->move(corner + QPoint(0, 100));
        title->resize(kCell - 6, 16);
        gauges.push_back(
            std::make_unique<bkCProg>(std::make_unique<QtControlHost>(gdi, *view), gdi, user32));
        gauges.back()->ReadProperties({});
        gauges.back()->UserControl.SetSize(1440, 1440);
        look.set(*gauges.back());
        if (gauges.back()->AutoSize()) gauges.back()->SetAutoSize(true);
    }
    const QImage drawn = sheet.grab().toImage();
    EXPECT_TRUE(drawn.save("gauge_sheet.png"));

    std::set<QByteArray> looks;
    for (ControlView* view : views) {
        const QImage own = drawn.copy(view->geometry());
        looks.insert(QByteArray(reinterpret_cast<const char*>(own.constBits()),
                                static_cast<qsizetype>(own.sizeInBytes())));
    }
    EXPECT_EQ(looks.size(), std::size(kLooks));
}

}  // namespace
}  // namespace corvane::linux_desktop
