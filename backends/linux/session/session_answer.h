// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace corvane::linux_desktop {

/// What came of asking the desktop session for something.
enum class SessionAnswer {
    Done,
    Unsupported,  ///< not possible in this session; nothing was done
    Denied,       ///< the session does not let us, or has not done it in time
};

}  // namespace corvane::linux_desktop
