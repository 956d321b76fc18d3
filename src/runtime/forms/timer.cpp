// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/timer.h"

namespace corvane::forms {

Timer::Timer(MessageLoop& loop, std::chrono::milliseconds interval, bool enabled)
    : loop_(loop), interval_(interval) {
    SetEnabled(enabled);
}

void Timer::SetInterval(std::chrono::milliseconds interval) {
    interval_ = interval;
    if (Enabled()) Arm();
}

void Timer::SetEnabled(bool enabled) {
    if (enabled)
        Arm();
    else
        armed_.reset();
}

void Timer::Arm() {
    armed_ = std::make_shared<char>();
    loop_.PostAfter(interval_, armed_, [this] {
        Arm();
        // A copy, since the handler may put another one in its place.
        if (const auto handler = Tick) handler();
    });
}

}  // namespace corvane::forms
