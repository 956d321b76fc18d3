// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/process_tokens.h"

#include <cstddef>

namespace corvane::linux_desktop {
namespace {

constexpr LUID kShutdown{.LowPart = 19, .HighPart = 0};

}  // namespace

bool ProcessTokens::OpenProcessToken(HANDLE process, std::uint32_t access, HANDLE& token) {
    if (process != kThisProcess) return false;
    accesses_.push_back(access);
    token = static_cast<HANDLE>(accesses_.size());
    return true;
}

bool ProcessTokens::LookupPrivilegeValueA(const std::string& system, const std::string& name,
                                          LUID& luid) {
    if (!system.empty() || name != "SeShutdownPrivilege") return false;
    luid = kShutdown;
    return true;
}

bool ProcessTokens::AdjustTokenPrivileges(HANDLE token, std::int32_t disableAll,
                                          const TOKEN_PRIVILEGES& newState,
                                          std::uint32_t bufferLength,
                                          TOKEN_PRIVILEGES& previousState,
                                          std::uint32_t& returnLength) {
    if (token == 0 || token > accesses_.size()) return false;
    if ((accesses_[token - 1] & TOKEN_ADJUST_PRIVILEGES) == 0) return false;
    if (bufferLength < sizeof(TOKEN_PRIVILEGES)) return false;
    bool enable = shutdown_enabled_;
    if (disableAll != 0)
        enable = false;
    else if (newState.PrivilegeCount > 0 && newState.Luid == kShutdown)
        enable = (newState.Attributes & SE_PRIVILEGE_ENABLED) != 0;
    previousState = {};
    returnLength = offsetof(TOKEN_PRIVILEGES, Luid);
    if (enable == shutdown_enabled_) return true;
    previousState = {.PrivilegeCount = 1,
                     .Luid = kShutdown,
                     .Attributes = shutdown_enabled_ ? std::uint32_t{SE_PRIVILEGE_ENABLED} : 0};
    returnLength = sizeof(TOKEN_PRIVILEGES);
    shutdown_enabled_ = enable;
    return true;
}

}  // namespace corvane::linux_desktop
