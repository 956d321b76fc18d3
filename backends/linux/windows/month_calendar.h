// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCalendarWidget>
#include <memory>

#include "platform/controls.h"

namespace corvane::linux_desktop {

/// A month whose marked day goes along when a person turns to another month or year.
class MonthCalendar final : public QCalendarWidget {
public:
    explicit MonthCalendar(QWidget* holder);

    void SetLook(const CalendarDescription& look);
    void SetEvents(CalendarPeerEvents events) { events_ = std::move(events); }
    /// Tells nothing.
    void ShowDate(const CalendarDate& date);
    /// The day that stands in a cell of the grid, be it of the month before or behind; none in the
    /// row of the names.
    [[nodiscard]] QDate DateAt(const QModelIndex& cell) const;

private:
    void NameParts();
    void TurnTo(int year, int month);
    void TellDate();
    void Know(const QDate& date);

    CalendarPeerEvents events_;
    QDate known_;
};

/// The peer of such a widget. It shows nothing more once its widget is gone.
[[nodiscard]] std::unique_ptr<ICalendarPeer> MakeCalendarPeer(QWidget& widget,
                                                              const CalendarDescription& calendar,
                                                              CalendarPeerEvents events);

}  // namespace corvane::linux_desktop
