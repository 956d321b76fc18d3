// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/system_commands.h"

#include <bit>

namespace corvane {

SystemCommands::SystemCommands(IKernel32& kernel32, MessageLoop& loop)
    : kernel32_(kernel32), loop_(loop) {}

Currency SystemCommands::DiskFreePercent(const std::string& drive) {
    ByteCount available = 0;
    ByteCount total_bytes = 0;
    ByteCount free_bytes = 0;
    // Whether it succeeded is not looked at: a drive that can't be asked leaves 0 of 0.
    kernel32_.GetDiskFreeSpaceExA(drive + ":\\", available, total_bytes, free_bytes);
    // The counts are taken for decimals with four places as they stand; the factor cancels.
    const Currency free = Currency::OfUnits(std::bit_cast<std::int64_t>(free_bytes));
    const Currency total = Currency::OfUnits(std::bit_cast<std::int64_t>(total_bytes));
    const double share = Finite(Divide(free.ToDouble(), total.ToDouble()) * 100);
    const Integer percent = Round(share).rep();
    loop_.DoEvents();
    return {percent};
}

}  // namespace corvane
