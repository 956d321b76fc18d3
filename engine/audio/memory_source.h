// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>
#include <vector>

#include "engine/audio/audio_source.h"

namespace corvane::engine {

/// Sound that is there already, delivered as fast as it is asked for.
class MemorySource final : public AudioSource {
public:
    explicit MemorySource(std::vector<std::int16_t> samples);

    std::size_t Read(std::span<std::int16_t> block) override;
    void Interrupt() override { interrupted_ = true; }

private:
    std::vector<std::int16_t> samples_;
    std::size_t position_ = 0;
    std::atomic<bool> interrupted_ = false;
};

}  // namespace corvane::engine
