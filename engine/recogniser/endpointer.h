// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/audio/audio_source.h"

namespace corvane::engine {

/// Finds where speech begins and ends, frame by frame, by how far it rises above the noise of the
/// room. All positions count frames of the stream from 0.
class Endpointer {
public:
    static constexpr int kFramesPerSecond = 100;
    static constexpr std::size_t kFrameSamples = kSampleRate / kFramesPerSecond;

    /// A stretch of stillness this long ends an utterance. It stays part of it: whole-utterance
    /// normalisation wants some of the room at both ends.
    static constexpr int kTrailingFrames = 28;
    /// What is kept from before the first loud frame.
    static constexpr int kLeadingFrames = 30;
    /// Speech that finds no end is cut here; no command is as long.
    static constexpr int kLongestFrames = 12 * kFramesPerSecond;

    enum class Event { none, speech_began, speech_ended };

    /// Takes the next frame of kFrameSamples samples.
    Event Push(std::span<const std::int16_t> frame);

    /// The stream has ended or broken off: ends speech that is under way.
    Event Finish();

    [[nodiscard]] bool InSpeech() const { return in_speech_; }
    /// Number of frames taken.
    [[nodiscard]] std::int64_t Position() const { return position_; }
    /// Where the utterance under way, or the last one, begins, leading frames included.
    [[nodiscard]] std::int64_t Begin() const { return begin_; }
    /// Behind its last loud frame so far.
    [[nodiscard]] std::int64_t LastLoud() const { return last_loud_; }
    /// Noise of the room, dB re one squared sample step.
    [[nodiscard]] double NoiseFloor() const { return floor_; }

private:
    void FollowNoise(double level);
    Event End();

    std::int64_t position_ = 0;
    std::int64_t begin_ = 0;
    std::int64_t last_loud_ = 0;
    std::int64_t earliest_begin_ = 0;
    bool in_speech_ = false;
    std::bitset<10> loud_;  ///< the last frames, newest first
    bool room_known_ = false;
    double floor_ = 0.0;
    std::vector<double> levels_;  ///< of the utterance under way
};

}  // namespace corvane::engine
