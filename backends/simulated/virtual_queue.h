// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <utility>

#include "platform/language_runtime.h"

namespace corvane::simulated {

/// A message queue on a clock that moves only when nothing is ready, and only when somebody waits.
/// It lives on one thread.
class VirtualQueue final : public IMessageQueue {
public:
    void Post(Message message) override;
    void PostAfter(std::chrono::milliseconds delay, Message message) override;
    void DispatchThrough(std::function<void(const Message&)> run) override;
    void DoEvents() override;
    /// Runs what is ready and hands back to whoever plays the person; RunFor goes on.
    void Run() override;

    /// Lets that much time pass and runs all that falls due, each at its own time.
    void RunFor(std::chrono::milliseconds span);
    /// Lets time pass to the next message and runs it. There must be one.
    void RunNext();
    /// Lets time pass without running anything, as a call that blocks does.
    void Block(std::chrono::milliseconds span) { now_ += span; }
    [[nodiscard]] bool Empty() const { return messages_.empty(); }
    [[nodiscard]] std::chrono::milliseconds Now() const { return now_; }
    void Clear() { messages_.clear(); }

private:
    std::chrono::milliseconds now_{0};
    std::uint64_t posted_ = 0;
    std::map<std::pair<std::chrono::milliseconds, std::uint64_t>, Message> messages_;
    std::function<void(const Message&)> run_ = [](const Message& message) { message(); };
};

}  // namespace corvane::simulated
