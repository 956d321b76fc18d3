// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace corvane::engine {

/// Samples a second of the synthesiser's one channel.
inline constexpr int kVoiceRate = 22050;

/// Whether the synthesiser and its voice data are installed.
[[nodiscard]] bool CanSynthesize();

struct Synthesis {
    std::vector<std::int16_t> sound;

    /// Where the synthesiser says that something begins. It tells of most words, of some in parts,
    /// and of some twice.
    struct Beginning {
        std::size_t character = 0;  ///< in the notation, from 0
        std::size_t sample = 0;
    };
    std::vector<Beginning> beginnings;
};

/// The sound of a text in the synthesiser's notation; no sound when it can't be used. Takes some
/// milliseconds, in which nobody else can use the library: it is never broken off, since settings
/// inside the text would then hold for the next one.
[[nodiscard]] Synthesis Synthesize(const std::string& notation, bool ends_sentence);

}  // namespace corvane::engine
