// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/audio/sample_queue.h"

#include <algorithm>

namespace corvane::engine {

void SampleQueue::Push(std::span<const std::int16_t> samples) {
    {
        const std::lock_guard lock(mutex_);
        samples_.insert(samples_.end(), samples.begin(), samples.end());
        if (samples_.size() > capacity_)
            samples_.erase(samples_.begin(),
                           samples_.end() - static_cast<std::ptrdiff_t>(capacity_));
    }
    changed_.notify_one();
}

std::size_t SampleQueue::Pop(std::span<std::int16_t> block) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return closed_ || !samples_.empty(); });
    if (closed_) return 0;
    const std::size_t count = std::min(block.size(), samples_.size());
    const auto end = samples_.begin() + static_cast<std::ptrdiff_t>(count);
    std::copy(samples_.begin(), end, block.begin());
    samples_.erase(samples_.begin(), end);
    return count;
}

std::size_t SampleQueue::Waiting() {
    const std::lock_guard lock(mutex_);
    return samples_.size();
}

void SampleQueue::Close() {
    {
        const std::lock_guard lock(mutex_);
        closed_ = true;
    }
    changed_.notify_all();
}

}  // namespace corvane::engine
