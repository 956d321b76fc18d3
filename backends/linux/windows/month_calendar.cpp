// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/month_calendar.h"

#include <QAbstractItemModel>
#include <QLocale>
#include <QPointer>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTextCharFormat>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "linux/windows/contrast.h"
#include "linux/windows/look.h"

namespace corvane::linux_desktop {
namespace {

QColor Colour(std::int32_t value) {
    return {value & 0xFF, value >> 8 & 0xFF, value >> 16 & 0xFF};
}

}  // namespace

MonthCalendar::MonthCalendar(QWidget* holder) : QCalendarWidget(holder) {
    setGridVisible(true);
    setVerticalHeaderFormat(NoVerticalHeader);
    setHorizontalHeaderFormat(ShortDayNames);
    setDateRange(QDate(1900, 1, 1), QDate(2100, 12, 31));
    NameParts();
    Know(selectedDate());
    connect(this, &QCalendarWidget::currentPageChanged, this,
            [this](int year, int month) { TurnTo(year, month); });
    connect(this, &QCalendarWidget::selectionChanged, this, [this] { TellDate(); });
}

void MonthCalendar::SetLook(const CalendarDescription& look) {
    setFont(FontOf(look.grid_font));
    QTextCharFormat names;
    names.setFont(FontOf(look.day_font));
    setHeaderTextFormat(names);
    QTextCharFormat days;
    days.setForeground(Readable(Colour(look.grid_colour), palette().color(QPalette::Base),
                                palette().color(QPalette::Text)));
    for (const auto day : {Qt::Monday, Qt::Tuesday, Qt::Wednesday, Qt::Thursday, Qt::Friday,
                           Qt::Saturday, Qt::Sunday})
        setWeekdayTextFormat(day, days);

    auto* title = findChild<QWidget*>("qt_calendar_navigationbar");
    QPalette colours = title->palette();
    const QColor behind = palette().color(QPalette::Window);
    const QColor words =
        Readable(Colour(look.title_colour), behind, palette().color(QPalette::WindowText));
    colours.setColor(QPalette::Highlight, behind);
    colours.setColor(QPalette::HighlightedText, words);
    colours.setColor(QPalette::ButtonText, words);
    title->setPalette(colours);
    for (auto* button : title->findChildren<QToolButton*>()) {
        button->setFont(FontOf(look.title_font));
        button->setPalette(colours);
    }
    title->findChild<QSpinBox*>()->setFont(FontOf(look.title_font));
}

void MonthCalendar::ShowDate(const CalendarDate& date) {
    const QSignalBlocker quiet(this);
    Know(QDate(date.year, date.month, date.day));
    setSelectedDate(known_);
    setCurrentPage(date.year, date.month);
}

QDate MonthCalendar::DateAt(const QModelIndex& cell) const {
    const int day = cell.data().toInt();
    if (day == 0) return {};
    QDate month(yearShown(), monthShown(), 1);
    // The first two rows may hold the last days of the month before, the last two the first ones
    // of the month behind.
    if (cell.row() <= 2 && day > 20) month = month.addMonths(-1);
    if (cell.row() >= 5 && day < 15) month = month.addMonths(1);
    return {month.year(), month.month(), day};
}

void MonthCalendar::NameParts() {
    struct Part {
        const char* object;
        const char* name;
    };
    for (const auto& [object, name] :
         {Part{"qt_calendar_prevmonth", "Previous month"},
          Part{"qt_calendar_nextmonth", "Next month"}, Part{"qt_calendar_yearedit", "Year"},
          Part{"qt_calendar_calendarview", "Days"}})
        findChild<QWidget*>(object)->setAccessibleName(QString::fromLatin1(name));
    // Their names are what they show.
    for (const auto& [object, name] :
         {Part{"qt_calendar_monthbutton", "Month"}, Part{"qt_calendar_yearbutton", "Year"}})
        findChild<QWidget*>(object)->setAccessibleDescription(QString::fromLatin1(name));
}

void MonthCalendar::TurnTo(int year, int month) {
    const int last = QDate(year, month, 1).daysInMonth();
    const QDate date(year, month, std::min(selectedDate().day(), last));
    {
        const QSignalBlocker quiet(this);
        setSelectedDate(date);
    }
    TellDate();
}

void MonthCalendar::Know(const QDate& date) {
    known_ = date;
    // For people who do not see it.
    setAccessibleDescription(QLocale().toString(date, QLocale::LongFormat));
}

void MonthCalendar::TellDate() {
    const QDate date = selectedDate();
    if (date == known_) return;
    Know(date);
    // A copy, since the handler may let this calendar go.
    if (const auto handler = events_.Chosen) handler({date.year(), date.month(), date.day()});
}

namespace {

class CalendarPeer final : public ICalendarPeer {
public:
    CalendarPeer(MonthCalendar& calendar, const CalendarDescription& description,
                 CalendarPeerEvents events)
        : calendar_(&calendar) {
        calendar.SetLook(description);
        calendar.ShowDate(description.date);
        calendar.SetEvents(std::move(events));
    }

    void SetFocus() override {
        if (calendar_) calendar_->setFocus();
    }
    void SetPlace(const ComputedPlace& place) override {
        if (calendar_) calendar_->setGeometry(PixelPlace(place));
    }
    void SetDate(const CalendarDate& date) override {
        if (calendar_) calendar_->ShowDate(date);
    }

private:
    QPointer<MonthCalendar> calendar_;
};

}  // namespace

std::unique_ptr<ICalendarPeer> MakeCalendarPeer(QWidget& widget,
                                                const CalendarDescription& calendar,
                                                CalendarPeerEvents events) {
    return std::make_unique<CalendarPeer>(dynamic_cast<MonthCalendar&>(widget), calendar,
                                          std::move(events));
}

}  // namespace corvane::linux_desktop
