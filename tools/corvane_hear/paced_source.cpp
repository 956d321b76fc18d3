// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "paced_source.h"

#include <algorithm>

namespace corvane::tools {

std::size_t PacedSource::Read(std::span<std::int16_t> block) {
    const std::size_t count = std::min(block.size(), samples_.size() - position_);
    const auto begin = samples_.begin() + static_cast<std::ptrdiff_t>(position_);
    std::copy_n(begin, count, block.begin());
    position_ += count;
    const auto said = std::chrono::microseconds(1'000'000 * static_cast<std::int64_t>(position_) /
                                                engine::kSampleRate);
    std::unique_lock lock(mutex_);
    if (begin_ == Clock::time_point{}) begin_ = Clock::now();
    interruption_.wait_until(lock, begin_ + said, [this] { return interrupted_; });
    return interrupted_ ? 0 : count;
}

void PacedSource::Interrupt() {
    {
        const std::lock_guard lock(mutex_);
        interrupted_ = true;
    }
    interruption_.notify_all();
}

PacedSource::Clock::time_point PacedSource::Begin() const {
    const std::lock_guard lock(mutex_);
    return begin_;
}

}  // namespace corvane::tools
