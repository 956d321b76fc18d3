// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace corvane::linux_desktop {

/// The network device of the default route, from the kernel's tables of routes; nothing when there
/// is none.
[[nodiscard]] std::optional<std::string> DefaultRouteOf(const std::string& route,
                                                        const std::string& ipv6_route);

/// That of this machine at the moment.
[[nodiscard]] std::optional<std::string> PresentDefaultRoute();

/// Whether a network device is a modem.
[[nodiscard]] bool IsModemDevice(const std::string& device);

}  // namespace corvane::linux_desktop
