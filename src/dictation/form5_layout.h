// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "platform/controls.h"

/// What the Dictation Pad looks like. In twips.
namespace corvane {

inline constexpr auto kForm5Controls = std::to_array<ControlDescription>({
    {.name = "Text1",
     .kind = ControlKind::MultilineTextBox,
     .place = {33, 3930, 5730, 915},
     .tab_index = 0,
     .role = "Dictation log"},
    {.name = "Command2",
     .kind = ControlKind::CommandButton,
     .place = {1450, 4905, 1425, 450},
     .tab_index = 1,
     .text = "&Close"},
    {.name = "Command1",
     .kind = ControlKind::CommandButton,
     .place = {0, 4905, 1425, 450},
     .tab_index = 2,
     .text = "&Train Profile"},
    {.name = "txtSpeech",
     .kind = ControlKind::RichTextBox,
     .place = {15, 270, 5730, 3645},
     .tab_index = 3,
     .role = "Dictated text"},
    {.name = "Label1",
     .kind = ControlKind::Label,
     .place = {15, 30, 3240, 210},
     .tab_index = 4,
     .text = "Say \"quit dictation\" to exit Dictation Pad.",
     .colours = ControlColours::RedOnYellow,
     .font_family = "Arial",
     .bold = true},
    {.name = "dlgPrint", .kind = ControlKind::CommonDialog, .place = {}},
});

}  // namespace corvane
