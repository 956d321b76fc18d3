// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "platform/user32.h"

/// The machine's players of discs.
namespace corvane {

class IWinMm {
public:
    virtual ~IWinMm() = default;

    /// Carries out a command of the Media Control Interface, in words of any case:
    /// "Set CDAudio Door Open" and "Set CDAudio Door Closed" move the tray of the first optical
    /// drive, and with a further word "Wait" the call returns only when it has moved. `reply` is
    /// given the answer where `replyLength`, the room in bytes, is not 0; `callback` would be told
    /// of the end, 0 is nobody. Returns 0, or a number of its own for a command that is not
    /// understood, a machine without a drive, or a tray that does not move. Never raises.
    virtual std::uint32_t mciSendStringA(const std::string& command, std::string& reply,
                                         std::uint32_t replyLength, HWND callback) = 0;
};

}  // namespace corvane
