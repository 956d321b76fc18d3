// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeyEvent>
#include <cstdint>

/// Keys of Qt as Windows numbers them.
namespace corvane::linux_desktop {

/// The code of the key that goes down: letters and digits are their capitals' characters, with or
/// without Shift. 0 for a key that has none.
[[nodiscard]] std::int16_t KeyCode(const QKeyEvent& event);

/// 1 for Shift, 2 for Ctrl, 4 for Alt, the key that goes down included.
[[nodiscard]] std::int16_t ShiftState(const QKeyEvent& event);

}  // namespace corvane::linux_desktop
