// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bitset>
#include <chrono>
#include <vector>

#include "engine/recogniser/utterance_sound.h"
#include "platform/speech_api.h"

namespace corvane::engine {

/// Tells why it is hard to hear, from the sound alone.
///
/// Any number of conditions may hold at a time. Each is told once, when it begins; SINone is told
/// once, when the last has ended. What the room does (SINoSignal, SINoise) begins and ends by
/// itself. How somebody speaks (SITooLoud, SITooQuiet, SITooFast, SITooSlow) is judged by each
/// utterance and holds until an utterance without it; a click is none.
class InterferenceJudge {
public:
    /// In the order in which they are to be told.
    using Events = std::vector<SpeechInterference>;

    static constexpr std::chrono::milliseconds kBlock{100};

    /// The next kBlock of sound, in squared sample steps; 0 where there was none.
    struct Block {
        double mean_square = 0.0;
        double stillest = 0.0;  ///< mean square of its stillest frame
    };
    [[nodiscard]] Events HearBlock(const Block& block);

    [[nodiscard]] Events HearUtterance(const UtteranceSound& sound);

private:
    using Conditions = std::bitset<SITooSlow + 1>;

    [[nodiscard]] Events Become(Conditions next);

    Conditions conditions_;
    // Blocks on end.
    int silent_ = 0;
    int noisy_ = 0;
    int calm_ = 0;
};

}  // namespace corvane::engine
