// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/audio/memory_source.h"

#include <algorithm>
#include <utility>

namespace corvane::engine {

MemorySource::MemorySource(std::vector<std::int16_t> samples) : samples_(std::move(samples)) {}

std::size_t MemorySource::Read(std::span<std::int16_t> block) {
    if (interrupted_) return 0;
    const std::size_t count = std::min(block.size(), samples_.size() - position_);
    std::copy_n(samples_.begin() + static_cast<std::ptrdiff_t>(position_), count, block.begin());
    position_ += count;
    return count;
}

}  // namespace corvane::engine
