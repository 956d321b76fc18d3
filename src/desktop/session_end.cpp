// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/session_end.h"

namespace corvane {
namespace {

constexpr std::uint32_t kTokenAccess = TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY;
static_assert(kTokenAccess == 40);

constexpr const char* kShutdownPrivilege = "SeShutdownPrivilege";

// Either one shuts down. Both, so that a machine which can't power itself off is still shut down,
// and one that can does not stop at the words that it is safe to do so by hand. No force: a program
// with unsaved work may ask about it.
constexpr std::uint32_t kPowerOff = EWX_SHUTDOWN | EWX_POWEROFF;

// All ones, deliberately, and not the 0 that a reserved argument has.
constexpr std::uint32_t kReserved = 0xFFFFFFFF;

}  // namespace

SessionEnd::SessionEnd(IKernel32& kernel32, IProcessTokens& tokens, IUser32& user32)
    : kernel32_(kernel32), tokens_(tokens), user32_(user32) {}

void SessionEnd::Reboot(const ResumeNext& step) {
    End(step, EWX_REBOOT);
}

void SessionEnd::Shutdown(const ResumeNext& step) {
    End(step, kPowerOff);
}

void SessionEnd::End(const ResumeNext& step, std::uint32_t flags) {
    step([&] { EnableShutdownPrivilege(); });
    step([&] { user32_.ExitWindowsEx(flags, kReserved); });
}

void SessionEnd::EnableShutdownPrivilege() {
    // No result is looked at: without the privilege the end of the session is refused, that is all.
    HANDLE token = 0;
    tokens_.OpenProcessToken(kernel32_.GetCurrentProcess(), kTokenAccess, token);
    LUID luid;
    tokens_.LookupPrivilegeValueA("", kShutdownPrivilege, luid);
    const TOKEN_PRIVILEGES record{
        .PrivilegeCount = 1, .Luid = luid, .Attributes = SE_PRIVILEGE_ENABLED};
    TOKEN_PRIVILEGES previous;
    std::uint32_t length = 0;
    tokens_.AdjustTokenPrivileges(token, 0, record, sizeof previous, previous, length);
}

}  // namespace corvane
