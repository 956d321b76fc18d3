// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_desktop.h"

namespace corvane::simulated {

Platform SimulatedDesktop::AsPlatform() {
    return {runtime, queue,  files,     windows, speech,  automation, registry,
            tray,    user32, clipboard, gdi,     machine, machine,    printer};
}

void SimulatedDesktop::Drive(const std::function<void()>& act) {
    if (runtime.Ended()) return;
    try {
        act();
    } catch (const ProcessEnded&) {
        queue.Clear();
    }
}

void SimulatedDesktop::RunFor(std::chrono::milliseconds span) {
    Drive([&] { queue.RunFor(span); });
}

}  // namespace corvane::simulated
