// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/error.h"

namespace corvane::linux_desktop {

[[noreturn]] inline void RaisePrinterError() {
    throw RuntimeError(kPrinterError, "Printer error");
}

}  // namespace corvane::linux_desktop
