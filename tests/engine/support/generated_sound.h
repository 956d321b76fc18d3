// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <random>

#include "support/speech.h"

namespace corvane::engine::testing {

/// Sounds made up by rule, always the same. Loudness is the root mean square of the samples, of
/// 32768.
class GeneratedSound {
public:
    using Milliseconds = std::chrono::milliseconds;

    /// White noise, as of a room or a fan; offset: a constant that is added.
    [[nodiscard]] Sound Noise(Milliseconds duration, double rms, double offset = 0.0);
    /// A man's voice that babbles: five syllables a second, each with a vowel of its own pitch.
    [[nodiscard]] Sound Voice(Milliseconds duration, double rms);
    /// One vowel held at one loudness, as when somebody drags a word out: it still wavers.
    [[nodiscard]] Sound HeldVowel(Milliseconds duration, double rms);
    /// Mains hum of 50 or 100 Hz with its overtones.
    [[nodiscard]] Sound Hum(Milliseconds duration, double rms, double frequency);
    /// A knock on a table: noise and a low resonance that die away within the time.
    [[nodiscard]] Sound Knock(Milliseconds duration, double peak);
    /// Eight keys a second, each a click going down and a fainter one coming up.
    [[nodiscard]] Sound Typing(Milliseconds duration, double peak);
    /// Breathing out into the microphone: coloured noise that swells and dies away.
    [[nodiscard]] Sound Breath(Milliseconds duration, double rms);

private:
    [[nodiscard]] Sound Vowels(Milliseconds duration, double rms, double syllables_a_second,
                               double depth);

    std::mt19937 random_{1};
};

/// Both at a time.
[[nodiscard]] Sound Mixed(Sound one, const Sound& other);

}  // namespace corvane::engine::testing
