// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/language_runtime.h"

namespace corvane::linux_desktop {

/// The present moment in the machine's time zone, or in that of TZ.
[[nodiscard]] DateTime LocalNow();

/// The names of the locale that LC_ALL, LC_TIME or LANG names; English ones where it is not
/// installed, and AM and PM where people of that locale do not halve their days.
[[nodiscard]] DateNames NamesOfLocale();

}  // namespace corvane::linux_desktop
