// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/worker.h"

#include <utility>

#include "runtime/failure.h"

namespace corvane::linux_desktop {

Worker::Worker(std::function<void(const std::string&)> failed)
    : failed_(std::move(failed)), thread_([this] { Run(); }) {}

Worker::~Worker() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void Worker::Do(Job job) {
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
    }
    changed_.notify_all();
}

void Worker::Tell(Then then) {
    if (then) QMetaObject::invokeMethod(&here_, std::move(then), Qt::QueuedConnection);
}

void Worker::Run() {
    for (;;) {
        Job job;
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [this] { return stopping_ || !jobs_.empty(); });
            if (stopping_) return;
            job = std::move(jobs_.front());
            jobs_.pop_front();
        }
        Tell(ResultOf(job));
    }
}

Worker::Then Worker::ResultOf(const Job& job) const {
    Then then;
    on_error([&] { then = job(); },
             [&](const RuntimeError& error) {
                 then = [tell = failed_, what = std::string(error.what())] { tell(what); };
             });
    return then;
}

}  // namespace corvane::linux_desktop
