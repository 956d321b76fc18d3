// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_desktop.h"

namespace corvane::simulated {

SimulatedDesktop::SimulatedDesktop() {
    runtime.OnSendKeys = [this](const std::string& keys) { screen.Strike(keys); };
}

Platform SimulatedDesktop::AsPlatform() {
    return {.runtime = runtime,
            .messages = queue,
            .files = files,
            .windows = windows,
            .speech = speech,
            .automation = automation,
            .advapi32 = registry,
            .shell32 = tray,
            .user32 = user32,
            .clipboard = clipboard,
            .gdi32 = gdi,
            .kernel32 = machine,
            .wininet = machine,
            .tokens = tokens,
            .winmm = disc_tray,
            .printer = printer};
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
