// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/message_loop.h"

#include <utility>

#include "platform/error.h"

namespace corvane {

MessageLoop::MessageLoop(IMessageQueue& queue, ILanguageRuntime& runtime)
    : queue_(queue), runtime_(runtime) {
    queue_.DispatchThrough([this](const Handler& handler) { Enter(handler); });
}

void MessageLoop::PostAfter(std::chrono::milliseconds delay, std::weak_ptr<void> owner,
                            Handler handler) {
    queue_.PostAfter(delay, [owner = std::move(owner), handler = std::move(handler)] {
        if (const auto alive = owner.lock()) handler();
    });
}

void MessageLoop::Enter(const Handler& handler) {
    try {
        handler();
    } catch (const RuntimeError& error) {
        runtime_.ShowErrorReport(error.number(), error.what());
        runtime_.End();
    }
}

void MessageLoop::DoEvents() {
    queue_.DoEvents();
}

void MessageLoop::Run() {
    queue_.Run();
}

}  // namespace corvane
