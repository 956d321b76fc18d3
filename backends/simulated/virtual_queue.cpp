// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/virtual_queue.h"

namespace corvane::simulated {

void VirtualQueue::Post(Message message) {
    PostAfter({}, std::move(message));
}

void VirtualQueue::PostAfter(std::chrono::milliseconds delay, Message message) {
    messages_.emplace(std::pair(now_ + delay, posted_++), std::move(message));
}

void VirtualQueue::DispatchThrough(std::function<void(const Message&)> run) {
    run_ = std::move(run);
}

void VirtualQueue::DoEvents() {
    while (!messages_.empty() && messages_.begin()->first.first <= now_) RunNext();
}

void VirtualQueue::Run() {
    DoEvents();
}

void VirtualQueue::RunFor(std::chrono::milliseconds span) {
    const auto end = now_ + span;
    while (!messages_.empty() && messages_.begin()->first.first <= end) RunNext();
    now_ = std::max(now_, end);
}

void VirtualQueue::RunNext() {
    // A handler that blocks may have moved the clock beyond the next message's time.
    now_ = std::max(now_, messages_.begin()->first.first);
    const Message message = std::move(messages_.begin()->second);
    messages_.erase(messages_.begin());
    run_(message);
}

}  // namespace corvane::simulated
