// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "platform/user32.h"

/// The machine's connection to the internet.
namespace corvane {

enum ConnectionFlags : std::uint32_t {
    INTERNET_CONNECTION_MODEM = 1,
    INTERNET_CONNECTION_LAN = 2,
    INTERNET_CONNECTION_PROXY = 4,
    INTERNET_CONNECTION_MODEM_BUSY = 8,
};

enum AutodialFlags : std::uint32_t { INTERNET_AUTODIAL_FORCE_UNATTENDED = 2 };

class IWinInet {
public:
    virtual ~IWinInet() = default;

    /// Whether a connection is thought to stand; `flags` is set to what kind it is, also when none
    /// stands. `reserved` is 0. Never waits for the network.
    virtual bool InternetGetConnectedState(std::uint32_t& flags, std::uint32_t reserved) = 0;

    /// Dials the default connection, also while another one stands, and returns when the dialler is
    /// done: messages wait meanwhile. With INTERNET_AUTODIAL_FORCE_UNATTENDED in `flags` nobody is
    /// asked to press a button; `parent` would own the dialler's window, 0 is none. Whether the
    /// connection stands. Never raises.
    virtual bool InternetAutodial(std::uint32_t flags, HWND parent) = 0;

    /// Closes the connection that InternetAutodial dials, however it came to stand. `reserved` is
    /// 0. False when there is none. Never raises.
    virtual bool InternetAutodialHangup(std::uint32_t reserved) = 0;
};

}  // namespace corvane
