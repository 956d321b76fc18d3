// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/advapi32.h"
#include "platform/kernel32.h"
#include "platform/user32.h"
#include "runtime/failure.h"

namespace corvane {

/// Ends the person's session. Nothing is asked, said or saved first, and nobody learns when the
/// machine refuses.
class SessionEnd {
public:
    SessionEnd(IKernel32& kernel32, IProcessTokens& tokens, IUser32& user32);

    void Reboot(const ResumeNext& step);
    /// Shuts down and powers off.
    void Shutdown(const ResumeNext& step);

private:
    void EnableShutdownPrivilege();
    void End(const ResumeNext& step, std::uint32_t flags);

    IKernel32& kernel32_;
    IProcessTokens& tokens_;
    IUser32& user32_;
};

}  // namespace corvane
