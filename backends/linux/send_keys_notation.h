// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <vector>

#include "linux/session/keys.h"

namespace corvane::linux_desktop {

/// The strokes that `keys` describes. A plain character is that key; "~" is Enter; "^", "+" and "%"
/// hold Ctrl, Shift and Alt for the key or the group "(...)" behind them, within which they stay
/// down from key to key. "{NAME}" is the key of that name, in either case, and "{x}" the character
/// x itself; with a count, as in "{LEFT 3}", it is struck so often, 0 to 32767 times. A control
/// character is what makes it: "\r", "\n" and "\r\n" are one Enter, "\t" Tab, "\b" Backspace, 27
/// Esc, any other Ctrl and its letter. Anything else raises kInvalidProcedureCall.
[[nodiscard]] std::vector<KeyStroke> ParseKeys(std::string_view keys);

}  // namespace corvane::linux_desktop
