// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/qt_message_queue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimerEvent>
#include <utility>

namespace corvane::linux_desktop {

class QtMessageQueue::MessageEvent final : public QEvent {
public:
    explicit MessageEvent(Message message) : QEvent(User), message_(std::move(message)) {}

    [[nodiscard]] const Message& message() const { return message_; }

private:
    Message message_;
};

void QtMessageQueue::Post(Message message) {
    ++ready_;
    // Qt keeps the order of what is posted to one receiver and takes it off before it is delivered.
    QCoreApplication::postEvent(this, new MessageEvent(std::move(message)));
}

void QtMessageQueue::PostAfter(std::chrono::milliseconds delay, Message message) {
    if (delay <= std::chrono::milliseconds::zero())
        Post(std::move(message));
    else
        delayed_[startTimer(delay, Qt::PreciseTimer)] = std::move(message);
}

void QtMessageQueue::DispatchThrough(std::function<void(const Message&)> run) {
    run_ = std::move(run);
}

void QtMessageQueue::DoEvents() {
    // One pass fires the timers that are due, whose messages then stand in the queue.
    do {
        QCoreApplication::processEvents();
        // Inside a message Qt takes what had been posted before that message for sent already.
        QCoreApplication::sendPostedEvents();
    } while (ready_ > 0);
}

void QtMessageQueue::Run() {
    QCoreApplication::exec();
}

bool QtMessageQueue::event(QEvent* event) {
    if (event->type() != QEvent::User) return QObject::event(event);
    --ready_;
    run_(static_cast<const MessageEvent*>(event)->message());
    return true;
}

void QtMessageQueue::timerEvent(QTimerEvent* event) {
    killTimer(event->timerId());
    Post(std::move(delayed_.extract(event->timerId()).mapped()));
}

}  // namespace corvane::linux_desktop
