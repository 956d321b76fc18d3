// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "platform/language_runtime.h"

namespace corvane {

/// The one loop on which everything of the system runs, and the boundary that every handler has
/// behind it: an error that leaves a handler is reported and ends the process, even when the
/// handler ran inside a yield of another one.
class MessageLoop {
public:
    using Handler = std::function<void()>;

    /// Both must outlive the loop.
    MessageLoop(IMessageQueue& queue, ILanguageRuntime& runtime);

    MessageLoop(const MessageLoop&) = delete;
    MessageLoop& operator=(const MessageLoop&) = delete;

    /// Runs `handler` as a message after `delay`. `owner` is kept alive while it runs; when the
    /// owner has gone by then the message is dropped.
    void PostAfter(std::chrono::milliseconds delay, std::weak_ptr<void> owner, Handler handler);

    /// Runs `handler` at once as a message that the toolkit has just taken off its own queue.
    void Enter(const Handler& handler);

    /// Yields: runs what is ready, then returns.
    void DoEvents();

    /// Runs until the process ends.
    void Run();

private:
    IMessageQueue& queue_;
    ILanguageRuntime& runtime_;
};

}  // namespace corvane
