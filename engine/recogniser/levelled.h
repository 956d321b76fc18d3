// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace corvane::engine {

/// An utterance as the decoder likes it best: at the level of the acoustic model's recordings, and
/// never quite still. Exact zeros, as a muted moment or a file made by a program has them, lie so
/// far below any room that they draw the mean of the whole utterance with them.
[[nodiscard]] std::vector<std::int16_t> Levelled(std::span<const std::int16_t> utterance);

}  // namespace corvane::engine
