// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "engine/voice/piece.h"

namespace corvane::engine {

/// Samples a second of the synthesiser's one channel.
inline constexpr int kVoiceRate = 22050;

/// Whether the synthesiser and its voice data are installed.
[[nodiscard]] bool CanSynthesize();

/// The sound of a piece; no sound when the synthesiser can't be used. Takes some milliseconds, in
/// which nobody else can use the library: it is never broken off, since settings inside the text
/// would then hold for the next one.
[[nodiscard]] std::vector<std::int16_t> Synthesize(const Piece& piece);

}  // namespace corvane::engine
