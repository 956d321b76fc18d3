// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/kernel32.h"
#include "runtime/currency.h"
#include "runtime/message_loop.h"

namespace corvane {

/// What acts on the machine, not on a window.
class SystemCommands {
public:
    SystemCommands(IKernel32& kernel32, MessageLoop& loop);

    /// The free share of a drive in percent, a whole number; `drive` is its letter. Yields once. A
    /// drive that is missing or not ready raises kOverflow, since nothing is divided by nothing.
    [[nodiscard]] Currency DiskFreePercent(const std::string& drive);

private:
    IKernel32& kernel32_;
    MessageLoop& loop_;
};

}  // namespace corvane
