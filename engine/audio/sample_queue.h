// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <span>

namespace corvane::engine {

/// Sound on its way from the thread that captures it to the thread that hears it. When the hearer
/// falls behind by more than the capacity, the oldest sound is lost.
class SampleQueue {
public:
    explicit SampleQueue(std::size_t capacity) : capacity_(capacity) {}

    void Push(std::span<const std::int16_t> samples);

    /// Waits for sound; returns how many samples were put into `block`, 0 for good once closed.
    std::size_t Pop(std::span<std::int16_t> block);

    /// Samples in it.
    [[nodiscard]] std::size_t Waiting();

    void Close();

private:
    std::size_t capacity_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::int16_t> samples_;  ///< guarded by mutex_
    bool closed_ = false;               ///< guarded by mutex_
};

}  // namespace corvane::engine
