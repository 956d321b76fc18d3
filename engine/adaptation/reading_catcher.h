// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "engine/recogniser/endpointer.h"

namespace corvane::engine {

/// Finds what is read aloud in a stream of sound. Whoever reads takes breath, so it takes more
/// stillness than ends an utterance to end a reading.
class ReadingCatcher {
public:
    static constexpr int kPauseFrames = Endpointer::kFramesPerSecond * 6 / 5;
    /// What finds no end is ended by then.
    static constexpr int kLongestFrames = 40 * Endpointer::kFramesPerSecond;

    enum class Event {
        none,
        began,
        ended,
        denied,  ///< what had begun was no speech
    };

    /// Takes the next frame of Endpointer::kFrameSamples samples.
    Event Push(std::span<const std::int16_t> frame);

    /// Throws away the reading that is under way. The next one is what begins after that.
    void Drop() { reading_ = false; }

    struct Reading {
        std::vector<std::int16_t> sound;  ///< with stillness around it
        bool too_loud = false;            ///< some of it was cut off
        bool too_quiet = false;
    };
    /// The last reading that has ended.
    [[nodiscard]] const Reading& Caught() const { return caught_; }

private:
    void Forget(std::int64_t until);
    [[nodiscard]] Reading Catch() const;
    [[nodiscard]] std::span<const std::int16_t> Sound(std::int64_t end) const;

    Endpointer endpointer_;
    std::vector<std::int16_t> sound_;  ///< of the reading, or what may yet belong to one
    std::int64_t begin_ = 0;           ///< frame of the stream at which it begins
    bool reading_ = false;
    bool spoken_ = false;         ///< something of the reading is surely speech
    std::int64_t last_loud_ = 0;  ///< of the reading; behind its last loud frame
    Reading caught_;
};

}  // namespace corvane::engine
