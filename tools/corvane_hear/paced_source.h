// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <vector>

#include "engine/audio/audio_source.h"

namespace corvane::tools {

/// Sound that is there already, delivered no faster than a microphone would: a sample can be read
/// when it would have been said. The time begins with the first Read.
class PacedSource final : public engine::AudioSource {
public:
    using Clock = std::chrono::steady_clock;

    explicit PacedSource(std::vector<std::int16_t> samples) : samples_(std::move(samples)) {}

    std::size_t Read(std::span<std::int16_t> block) override;
    void Interrupt() override;

    /// When its first sample was said. Callable from any thread; not before a Read.
    [[nodiscard]] Clock::time_point Begin() const;

private:
    std::vector<std::int16_t> samples_;
    std::size_t position_ = 0;
    mutable std::mutex mutex_;
    std::condition_variable interruption_;
    bool interrupted_ = false;   ///< guarded by mutex_
    Clock::time_point begin_{};  ///< guarded by mutex_
};

}  // namespace corvane::tools
