// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "runtime/message_loop.h"

namespace corvane::forms {

/// Raises `Tick` once per interval while it is enabled. It is armed again before each call, and
/// never more than one tick waits: a handler that takes long loses ticks, it does not collect them.
class Timer {
public:
    Timer(MessageLoop& loop, std::chrono::milliseconds interval, bool enabled);

    std::function<void()> Tick;

    [[nodiscard]] std::chrono::milliseconds Interval() const { return interval_; }
    [[nodiscard]] bool Enabled() const { return armed_ != nullptr; }
    /// Either starts a whole new interval.
    void SetInterval(std::chrono::milliseconds interval);
    void SetEnabled(bool enabled);

private:
    void Arm();

    MessageLoop& loop_;
    std::chrono::milliseconds interval_;
    std::shared_ptr<void> armed_;  // its end takes the tick that still waits along
};

}  // namespace corvane::forms
