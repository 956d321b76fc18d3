// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/contrast.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QProgressBar>
#include <QTextEdit>

#include "linux/windows/month_calendar.h"
#include "linux/windows/outlined_style.h"

namespace corvane::linux_desktop {
namespace {

constexpr std::int32_t kDarkBlue = 160 * 0x10000;
constexpr CalendarDescription kDarkBlueCalendar{
    .date = {}, .grid_colour = kDarkBlue, .title_colour = kDarkBlue};

QPalette BlackPalette() {
    QPalette colours(Qt::black, Qt::black);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button, QPalette::Light,
                                QPalette::Midlight, QPalette::Mid, QPalette::Dark})
            colours.setColor(group, role, Qt::black);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            colours.setColor(group, role, group == QPalette::Disabled ? Qt::black : Qt::white);
    }
    return colours;
}

/// The desktop's colours while a test has others.
class OnABlackDesktop : public testing::Test {
protected:
    OnABlackDesktop() { QApplication::setPalette(WithoutVanishing(BlackPalette())); }
    ~OnABlackDesktop() override { QApplication::setPalette(before_); }

    /// In the first row of dots below the edge, what is not black.
    static int Lit(QWidget& widget) {
        QImage picture(widget.size(), QImage::Format_RGB32);
        picture.fill(Qt::black);
        widget.render(&picture);
        int lit = 0;
        for (int x = 0; x < picture.width(); ++x)
            if (Contrast(picture.pixelColor(x, 0), Qt::black) > 3) ++lit;
        return lit;
    }

private:
    QPalette before_ = QApplication::palette();
};

TEST(Contrast, RunsFromOneToTwentyOne) {
    EXPECT_DOUBLE_EQ(Contrast(Qt::red, Qt::red), 1);
    EXPECT_DOUBLE_EQ(Contrast(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(Contrast(Qt::white, Qt::black), 21);
}

TEST(Contrast, ATextKeepsItsColourWhereItCanBeRead) {
    const QColor dark_blue(0, 0, 160);
    EXPECT_EQ(Readable(dark_blue, Qt::white, Qt::black), dark_blue);
    EXPECT_EQ(Readable(dark_blue, QColor(239, 239, 239), Qt::black), dark_blue);
    EXPECT_EQ(Readable(dark_blue, Qt::black, Qt::white), QColor(Qt::white));
}

TEST(Contrast, OrdinaryColoursStayAsTheDesktopHasThem) {
    const QPalette ordinary = QApplication::palette();
    EXPECT_EQ(WithoutVanishing(ordinary), ordinary);
}

TEST(Contrast, GreyedTextsOnBlackCanBeSeenAndStandBack) {
    const QPalette colours = WithoutVanishing(BlackPalette());
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        const double greyed = Contrast(colours.color(QPalette::Disabled, role), Qt::black);
        EXPECT_GT(greyed, 3);
        EXPECT_LT(greyed, Contrast(colours.color(QPalette::Active, role), Qt::black));
    }
}

TEST_F(OnABlackDesktop, BoxesAndBarsHaveAnEdge) {
    OutlinedStyle style;
    QTextEdit box;
    QProgressBar bar;
    for (QWidget* widget : {static_cast<QWidget*>(&box), static_cast<QWidget*>(&bar)}) {
        widget->setStyle(&style);
        widget->resize(100, 20);
        EXPECT_GT(Lit(*widget), 90) << widget->metaObject()->className();
    }
}

TEST_F(OnABlackDesktop, TheCalendarsDarkBlueGivesWay) {
    MonthCalendar calendar(nullptr);
    calendar.SetLook(kDarkBlueCalendar);
    EXPECT_EQ(calendar.weekdayTextFormat(Qt::Monday).foreground().color(), QColor(Qt::white));
}

TEST(Contrast, TheCalendarIsDarkBlueOnALightDesktop) {
    MonthCalendar calendar(nullptr);
    calendar.SetLook(kDarkBlueCalendar);
    EXPECT_EQ(calendar.weekdayTextFormat(Qt::Monday).foreground().color(), QColor(0, 0, 160));
}

}  // namespace
}  // namespace corvane::linux_desktop
