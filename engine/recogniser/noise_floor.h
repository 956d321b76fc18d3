// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <vector>

#include "engine/recogniser/frame_sound.h"

namespace corvane::engine {

/// How loud the room is while nobody speaks, dB, followed frame by frame: quickly down, slowly up.
/// What stays the same for a second is the room however loud it is, since nobody speaks so.
class NoiseFloor {
public:
    enum class Mood { still, speech, long_speech };

    /// Takes the next frame. Returns how many of the last frames, up to this one, turn out to have
    /// been the room, so that the floor has leapt up to them: 0 as a rule.
    int Follow(const FrameSound& sound, Mood mood);

    [[nodiscard]] double Level() const { return floor_; }

private:
    static constexpr int kRememberedFrames = 300;

    struct Steadiness {
        int frames;     ///< for so long
        double spread;  ///< dB, between the stillest and the loudest twentieth
        int voiced;     ///< frames at most
    };
    static const Steadiness kNoise;
    static const Steadiness kTone;

    [[nodiscard]] int SteadyFrames();
    [[nodiscard]] bool Steady(const Steadiness& least);
    /// The level that `share` of the last frames, at most all that are remembered, don't reach.
    [[nodiscard]] double Quantile(int frames, double share);

    std::deque<FrameSound> last_;  ///< the last kRememberedFrames, oldest first
    std::vector<double> sorting_;
    bool room_known_ = false;
    double floor_ = 0.0;
};

}  // namespace corvane::engine
