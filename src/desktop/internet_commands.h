// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/wininet.h"

namespace corvane {

/// Dials and hangs up. What came of it is not looked at; the status monitor shows it.
class InternetCommands {
public:
    explicit InternetCommands(IWinInet& wininet) : wininet_(wininet) {}

    /// Returns when the dialler is done; nothing else runs meanwhile.
    void DialDefaultConnection() {
        constexpr HWND kNoParent = 0;
        wininet_.InternetAutodial(INTERNET_AUTODIAL_FORCE_UNATTENDED, kNoParent);
    }

    void HangUp() { wininet_.InternetAutodialHangup(0); }

private:
    IWinInet& wininet_;
};

}  // namespace corvane
