// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "engine/voice/synthesizer.h"

namespace corvane::engine {

/// Samples over which a level is taken: 50 ms.
inline constexpr std::size_t kLevelWindow = kVoiceRate / 20;

/// How loud the voice is, 0 to 100. Its loudest vowels come near to 100.
[[nodiscard]] std::int32_t LevelOf(std::span<const std::int16_t> samples);

}  // namespace corvane::engine
