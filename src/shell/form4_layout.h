// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "platform/controls.h"

/// What the splash and about window looks like.
namespace corvane {

inline constexpr auto kForm4Controls = std::to_array<ControlDescription>({
    {.name = "Image1",
     .kind = ControlKind::Image,
     .place = {15, 15, 3000, 3135},
     .text = "product",
     .role = "Product picture"},
    {.name = "Label1",
     .kind = ControlKind::Label,
     .place = {3405, 450, 1890, 2490},
     .role = "Title"},
    {.name = "Command1",
     .kind = ControlKind::CommandButton,
     .place = {4200, 2790, 1185, 360},
     .tab_index = 0,
     .text = "&Ok"},
    {.name = "Timer1", .kind = ControlKind::Timer, .place = {}},
});

}  // namespace corvane
