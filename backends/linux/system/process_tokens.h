// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/advapi32.h"

namespace corvane::linux_desktop {

/// Processes have no privileges to switch on here.
class ProcessTokens final : public IProcessTokens {
public:
    bool OpenProcessToken(HANDLE, std::uint32_t, HANDLE&) override { return false; }
    bool LookupPrivilegeValueA(const std::string&, const std::string&, LUID&) override {
        return false;
    }
    bool AdjustTokenPrivileges(HANDLE, std::int32_t, const TOKEN_PRIVILEGES&, std::uint32_t,
                               TOKEN_PRIVILEGES&, std::uint32_t&) override {
        return false;
    }
};

}  // namespace corvane::linux_desktop
