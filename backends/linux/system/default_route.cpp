// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/default_route.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <vector>

namespace corvane::linux_desktop {
namespace {

std::vector<std::string> Fields(const std::string& line) {
    std::istringstream text(line);
    return {std::istream_iterator<std::string>(text), {}};
}

std::string Content(const char* path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::optional<std::string> DefaultRouteOf(const std::string& route, const std::string& ipv6_route) {
    constexpr const char* kNowhere4 = "00000000";
    const std::string nowhere6(32, '0');
    std::istringstream lines(route);
    for (std::string line; std::getline(lines, line);) {
        // device, destination, gateway, flags, count, use, metric, mask
        const auto fields = Fields(line);
        if (fields.size() > 7 && fields[1] == kNowhere4 && fields[7] == kNowhere4) return fields[0];
    }
    std::istringstream lines6(ipv6_route);
    for (std::string line; std::getline(lines6, line);) {
        // destination, its length, source, its length, next, metric, count, use, flags, device
        const auto fields = Fields(line);
        if (fields.size() > 9 && fields[0] == nowhere6 && fields[1] == "00" && fields[9] != "lo")
            return fields[9];
    }
    return std::nullopt;
}

std::optional<std::string> PresentDefaultRoute() {
    return DefaultRouteOf(Content("/proc/net/route"), Content("/proc/net/ipv6_route"));
}

bool IsModemDevice(const std::string& device) {
    return device.starts_with("ppp") || device.starts_with("wwan") || device.starts_with("wwp");
}

}  // namespace corvane::linux_desktop
