// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/system_commands.h"
#include "platform/kernel32.h"
#include "platform/language_runtime.h"
#include "platform/wininet.h"
#include "runtime/forms/form.h"
#include "shell/form2.h"

namespace corvane {

/// Once a second: free disk space and free memory on the gauges, the connection in words and as a
/// picture. Nothing is kept from one tick to the next but what stands on the screen.
class StatusMonitor {
public:
    StatusMonitor(const ILanguageRuntime& runtime, IKernel32& kernel32, IWinInet& wininet,
                  SystemCommands& system, forms::Lazy<Form2>& main_window);

    /// The tick. It has no rule for errors: a drive that can't be asked ends the process.
    void Timer1_Timer();

private:
    void ShowConnection(bool connected, std::uint32_t flags);

    const ILanguageRuntime& runtime_;
    IKernel32& kernel32_;
    IWinInet& wininet_;
    SystemCommands& system_;
    forms::Lazy<Form2>& form2_;
};

}  // namespace corvane
