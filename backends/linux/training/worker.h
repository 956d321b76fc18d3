// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace corvane::linux_desktop {

/// A thread that does one job after the other, so that windows need not wait. What comes of a job
/// is done on the thread that made this, among its messages. For that thread, if nothing else is
/// said.
class Worker {
public:
    using Then = std::function<void()>;
    /// Runs on the worker's thread; what it gives, which may be empty, is done afterwards.
    using Job = std::function<Then()>;

    /// failed: told what a job raised, in place of what would have come of it.
    explicit Worker(std::function<void(const std::string&)> failed);
    /// Waits for the job that is being done; forgets all others, and what is still to be done.
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void Do(Job job);
    /// Has something done before the job is over. For jobs.
    void Tell(Then then);
    /// Whether nobody wants to know any more. For jobs.
    [[nodiscard]] bool Stopping() const { return stopping_; }

private:
    void Run();
    [[nodiscard]] Then ResultOf(const Job& job) const;

    std::function<void(const std::string&)> failed_;
    QObject here_;  ///< of the thread that made this
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Job> jobs_;  ///< guarded by mutex_
    std::atomic<bool> stopping_ = false;
    std::thread thread_;
};

}  // namespace corvane::linux_desktop
