// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/advapi32.h"
#include "simulated/call_record.h"

namespace corvane::simulated {

/// The token of the system's own process. It holds the privilege to shut down, switched off, as it
/// is at a person's desktop.
class SimulatedTokens final : public IProcessTokens {
public:
    /// What GetCurrentProcess gives.
    static constexpr HANDLE kCurrentProcess = 0xFFFFFFFF;

    explicit SimulatedTokens(CallRecord& record) : record_(record) {}

    bool OpenProcessToken(HANDLE process, std::uint32_t access, HANDLE& token) override;
    bool LookupPrivilegeValueA(const std::string& system, const std::string& name,
                               LUID& luid) override;
    bool AdjustTokenPrivileges(HANDLE token, std::int32_t disableAll,
                               const TOKEN_PRIVILEGES& newState, std::uint32_t bufferLength,
                               TOKEN_PRIVILEGES& previousState,
                               std::uint32_t& returnLength) override;

    /// Whether this person may shut the machine down at all.
    void HoldShutdown(bool held) { held_ = held; }
    [[nodiscard]] bool ShutdownSwitchedOn() const { return switched_on_; }

private:
    CallRecord& record_;
    std::uint32_t access_ = 0;  // with which the token was opened
    bool held_ = true;
    bool switched_on_ = false;
};

}  // namespace corvane::simulated
