// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_tokens.h"

namespace corvane::simulated {
namespace {

constexpr HANDLE kToken = 61;
constexpr LUID kShutdownPrivilege{.LowPart = 19, .HighPart = 0};

}  // namespace

bool SimulatedTokens::OpenProcessToken(HANDLE process, std::uint32_t access, HANDLE& token) {
    record_.Call("OpenProcessToken", std::to_string(process) + " " + std::to_string(access));
    if (process != kCurrentProcess) return false;
    access_ = access;
    token = kToken;
    return true;
}

bool SimulatedTokens::LookupPrivilegeValueA(const std::string& system, const std::string& name,
                                            LUID& luid) {
    record_.Call("LookupPrivilegeValueA", "\"" + system + "\" \"" + name + "\"");
    if (!system.empty() || name != "SeShutdownPrivilege") return false;
    luid = kShutdownPrivilege;
    return true;
}

bool SimulatedTokens::AdjustTokenPrivileges(HANDLE token, std::int32_t disableAll,
                                            const TOKEN_PRIVILEGES& newState,
                                            std::uint32_t bufferLength,
                                            TOKEN_PRIVILEGES& previousState,
                                            std::uint32_t& returnLength) {
    record_.Call("AdjustTokenPrivileges", std::to_string(token) + " " + std::to_string(disableAll) +
                                              " {" + std::to_string(newState.PrivilegeCount) + " " +
                                              std::to_string(newState.Luid.LowPart) + ":" +
                                              std::to_string(newState.Luid.HighPart) + " " +
                                              std::to_string(newState.Attributes) + "} " +
                                              std::to_string(bufferLength));
    if (token != kToken || (access_ & TOKEN_ADJUST_PRIVILEGES) == 0 ||
        bufferLength < sizeof(TOKEN_PRIVILEGES))
        return false;
    previousState = {};
    returnLength = sizeof(TOKEN_PRIVILEGES);
    const bool asked = newState.PrivilegeCount == 1 && newState.Luid == kShutdownPrivilege;
    if (!held_ || (disableAll == 0 && !asked)) return true;
    previousState = {.PrivilegeCount = 1,
                     .Luid = kShutdownPrivilege,
                     .Attributes = switched_on_ ? std::uint32_t{SE_PRIVILEGE_ENABLED} : 0};
    switched_on_ = disableAll == 0 && (newState.Attributes & SE_PRIVILEGE_ENABLED) != 0;
    return true;
}

}  // namespace corvane::simulated
