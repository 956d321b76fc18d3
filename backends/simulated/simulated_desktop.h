// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>

#include "platform/platform.h"
#include "simulated/call_record.h"
#include "simulated/cell_windows.h"
#include "simulated/disc_tray.h"
#include "simulated/memory_files.h"
#include "simulated/memory_registry.h"
#include "simulated/screen.h"
#include "simulated/simulated_clipboard.h"
#include "simulated/simulated_machine.h"
#include "simulated/simulated_printer.h"
#include "simulated/simulated_runtime.h"
#include "simulated/simulated_shell.h"
#include "simulated/simulated_speech.h"
#include "simulated/simulated_tokens.h"
#include "simulated/simulated_user32.h"
#include "simulated/virtual_queue.h"

namespace corvane::simulated {

/// A whole desktop in memory, on a clock of its own.
class SimulatedDesktop {
public:
    VirtualQueue queue;
    CallRecord record{[this] { return queue.Now(); }};
    Screen screen;
    SimulatedMachine machine{record, queue};
    MemoryFiles files{record, machine};
    SimulatedGdi gdi;
    CellWindows windows{record, queue, gdi, screen};
    SimulatedRuntime runtime{record, [this] { return queue.Now(); }};
    SimulatedClipboard clipboard{record};
    SimulatedSpeech speech{record, files, queue};
    SimulatedAutomation automation{record};
    MemoryRegistry registry{record};
    SimulatedTray tray{record};
    SimulatedTokens tokens{record};
    SimulatedPrinter printer{record, gdi};
    SimulatedUser32 user32{record, queue, screen, tokens, windows, printer};
    DiscTray disc_tray{record, queue};

    SimulatedDesktop();
    [[nodiscard]] Platform AsPlatform();

    /// Lets a person or the system act; when that ends the process, nothing queued runs any more.
    /// Nothing acts in a process that has ended.
    void Drive(const std::function<void()>& act);
    /// Lets time pass.
    void RunFor(std::chrono::milliseconds span);
};

}  // namespace corvane::simulated
