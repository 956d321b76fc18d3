// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace corvane::linux_desktop {

/// Makes sure that there is a display to show windows on and tells Qt which one to use. Without one
/// says so on stderr in clear words and ends the process with status 1. To be called before a
/// QApplication is made, which would abort instead.
void RequireDisplay();

}  // namespace corvane::linux_desktop
