// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "platform/controls.h"

/// What the calendar window looks like, and the day on which it opens.
namespace corvane {

inline constexpr auto kForm3Controls = std::to_array<ControlDescription>({
    {.name = "Calendar1",
     .kind = ControlKind::Calendar,
     .place = {180, 150, 4320, 2880},
     .tab_index = 0,
     .role = "Calendar"},
});

inline constexpr std::int32_t kDarkBlue = 160 * 0x10000;

inline constexpr CalendarDescription kCalendar1{
    .date = {.year = 2001, .month = 10, .day = 18},
    .day_font = {.family = "Arial", .points = 8.25, .bold = true},
    .grid_font = {.family = "Arial", .points = 8.25},
    .title_font = {.family = "Arial", .points = 12, .bold = true},
    .grid_colour = kDarkBlue,
    .title_colour = kDarkBlue};

}  // namespace corvane
