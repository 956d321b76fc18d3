// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <map>

#include "platform/language_runtime.h"

namespace corvane::linux_desktop {

/// The messages of the system among the events of Qt's loop. Needs a QCoreApplication, and belongs
/// to the thread that makes it.
class QtMessageQueue final : public IMessageQueue, private QObject {
public:
    void Post(Message message) override;
    void PostAfter(std::chrono::milliseconds delay, Message message) override;
    void DispatchThrough(std::function<void(const Message&)> run) override;
    void DoEvents() override;
    void Run() override;

private:
    class MessageEvent;

    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

    std::function<void(const Message&)> run_ = [](const Message& message) { message(); };
    std::map<int, Message> delayed_;  // by the number of the timer
    std::atomic<int> ready_ = 0;
};

}  // namespace corvane::linux_desktop
