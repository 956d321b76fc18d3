// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace corvane::engine {

/// What the endpointer knows of a frame of sound.
struct FrameSound {
    double level = 0.0;   ///< dB re one squared sample step, without what lies below speech
    bool voiced = false;  ///< something like a voice: it repeats itself 62 to 400 times a second
};

/// Measures a stream frame by frame. Mains hum, rumble and a sound card's constant offset lie below
/// speech and are filtered out first.
class FrameMeasure {
public:
    static constexpr std::size_t kFrameSamples = 160;

    /// Takes the next frame of kFrameSamples samples.
    [[nodiscard]] FrameSound Measure(std::span<const std::int16_t> frame);

private:
    static constexpr std::size_t kDecimation = 4;
    static constexpr std::size_t kFrameSteps = kFrameSamples / kDecimation;
    /// Voicing is looked for in the last four frames.
    static constexpr std::size_t kWindow = 4 * kFrameSteps;

    [[nodiscard]] double HighPass(double sample);
    [[nodiscard]] bool Voiced() const;

    // State of the filter.
    double last_in_ = 0.0, before_in_ = 0.0, last_out_ = 0.0, before_out_ = 0.0;
    bool settled_ = false;
    std::array<double, kWindow> window_{};  ///< at 4 kHz, oldest first
};

}  // namespace corvane::engine
