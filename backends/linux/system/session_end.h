// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <cstdint>

#include "linux/system/process_tokens.h"

namespace corvane::linux_desktop {

/// Ends the session by asking logind for the end of the machine. The person is not asked: where
/// logind would need a password it refuses. Its answer is waited for, for five seconds at most.
class SessionEnd {
public:
    /// `tokens` outlive this. `bus` is the one on which logind is.
    SessionEnd(QDBusConnection bus, const ProcessTokens& tokens);

    /// As IUser32::ExitWindowsEx. Ending the session alone is not to be had.
    bool ExitWindowsEx(std::uint32_t flags);

private:
    QDBusConnection bus_;
    const ProcessTokens& tokens_;
};

}  // namespace corvane::linux_desktop
