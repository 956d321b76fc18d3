// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

class QWidget;

namespace corvane::linux_desktop {

class PrinterChoice;

/// Asks a person how to print, as IWindowPeer::AskForPrinter promises; what is confirmed becomes
/// the choice.
[[nodiscard]] bool AskHowToPrint(std::int32_t flags, PrinterChoice& choice, QWidget* holder);

}  // namespace corvane::linux_desktop
