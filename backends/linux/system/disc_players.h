// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/winmm.h"

namespace corvane::linux_desktop {

/// The optical drives.
class DiscPlayers final : public IWinMm {
public:
    std::uint32_t mciSendStringA(const std::string&, std::string&, std::uint32_t, HWND) override {
        return 1;
    }
};

}  // namespace corvane::linux_desktop
