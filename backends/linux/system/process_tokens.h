// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "platform/advapi32.h"

namespace corvane::linux_desktop {

/// Stands for the process itself.
inline constexpr HANDLE kThisProcess = 0xFFFFFFFF;

/// The tokens of this process. A program asks nobody's leave before it asks for the machine's end,
/// so the one privilege that there is means only that the program has asked for it.
class ProcessTokens final : public IProcessTokens {
public:
    bool OpenProcessToken(HANDLE process, std::uint32_t access, HANDLE& token) override;
    bool LookupPrivilegeValueA(const std::string& system, const std::string& name,
                               LUID& luid) override;
    bool AdjustTokenPrivileges(HANDLE token, std::int32_t disableAll,
                               const TOKEN_PRIVILEGES& newState, std::uint32_t bufferLength,
                               TOKEN_PRIVILEGES& previousState,
                               std::uint32_t& returnLength) override;

    /// Whether "SeShutdownPrivilege" is switched on.
    [[nodiscard]] bool MayShutDown() const { return shutdown_enabled_; }

private:
    std::vector<std::uint32_t> accesses_;  // of the tokens that have been opened, from 1
    bool shutdown_enabled_ = false;
};

}  // namespace corvane::linux_desktop
