// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/voice/notation.h"
#include "engine/voice/synthesizer.h"
#include "engine/voice/words.h"

namespace corvane::engine {

/// The sample at which each word of a piece begins to be heard; never falling. Words of which the
/// synthesiser did not tell are placed between their neighbours by their letters. Empty where there
/// is no sound, else one for each word, all of them inside the sound.
[[nodiscard]] std::vector<std::size_t> FindWordTimes(const Notation& notation,
                                                     const Synthesis& synthesis,
                                                     std::span<const Word> words);

}  // namespace corvane::engine
