// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "platform/controls.h"

/// What the Add Programs window looks like.
namespace corvane {

inline constexpr auto kForm1Controls = std::to_array<ControlDescription>({
    {.name = "ListView1",
     .kind = ControlKind::ListView,
     .place = {37, 15, 7680, 2880},
     .tab_index = 0,
     .text = "Program Name\nProgram Path",
     .role = "Programs"},
    {.name = "Text1",
     .kind = ControlKind::TextBox,
     .place = {705, 2970, 1110, 285},
     .tab_index = 1,
     .role = "Keyword"},
    {.name = "Label1",
     .kind = ControlKind::Label,
     .place = {30, 3015, 660, 195},
     .tab_index = 2,
     .text = "Keyword:"},
    {.name = "text2",
     .kind = ControlKind::TextBox,
     .place = {705, 3360, 3075, 285},
     .tab_index = 3,
     .role = "Path"},
    {.name = "Label2",
     .kind = ControlKind::Label,
     .place = {315, 3390, 375, 195},
     .tab_index = 4,
     .text = "Path:"},
    {.name = "Command1",
     .kind = ControlKind::CommandButton,
     .place = {3840, 3360, 900, 285},
     .tab_index = 5,
     .text = "&Browse"},
    {.name = "Command2",
     .kind = ControlKind::CommandButton,
     .place = {4785, 3000, 900, 780},
     .tab_index = 6,
     .text = "&Add",
     .picture = "add",
     .enabled = false},
    {.name = "Command3",
     .kind = ControlKind::CommandButton,
     .place = {5752, 3000, 900, 780},
     .tab_index = 7,
     .text = "&Delete",
     .picture = "delete",
     .enabled = false},
    {.name = "Command4",
     .kind = ControlKind::CommandButton,
     .place = {6720, 3000, 900, 780},
     .tab_index = 8,
     .text = "&Clear All",
     .picture = "clear",
     .enabled = false},
    {.name = "Check2",
     .kind = ControlKind::CheckBox,
     .place = {1905, 3000, 1635, 225},
     .tab_index = 9,
     .text = "Search for existing",
     .checked = true},
    {.name = "comdlg", .kind = ControlKind::CommonDialog, .place = {}},
});

}  // namespace corvane
