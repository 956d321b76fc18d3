// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

/// The machine's connection to the internet.
namespace corvane {

enum ConnectionFlags : std::uint32_t {
    INTERNET_CONNECTION_MODEM = 1,
    INTERNET_CONNECTION_LAN = 2,
    INTERNET_CONNECTION_PROXY = 4,
    INTERNET_CONNECTION_MODEM_BUSY = 8,
};

class IWinInet {
public:
    virtual ~IWinInet() = default;

    /// Whether a connection is thought to stand; `flags` is set to what kind it is, also when none
    /// stands. `reserved` is 0. Never waits for the network.
    virtual bool InternetGetConnectedState(std::uint32_t& flags, std::uint32_t reserved) = 0;
};

}  // namespace corvane
