// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/audio/audio_source.h"
#include "engine/recogniser/frame_sound.h"
#include "engine/recogniser/noise_floor.h"

namespace corvane::engine {

/// Finds where speech begins and ends, frame by frame: by how far it rises above the noise of the
/// room, and by the voice in it, without which loud sound is a knock, a breath, typing. All
/// positions count frames of the stream from 0.
class Endpointer {
public:
    static constexpr int kFramesPerSecond = 100;
    static constexpr std::size_t kFrameSamples = kSampleRate / kFramesPerSecond;
    static_assert(kFrameSamples == FrameMeasure::kFrameSamples);

    /// A stretch of stillness this long ends an utterance. It stays part of it: whole-utterance
    /// normalisation wants some of the room at both ends.
    static constexpr int kTrailingFrames = 30;
    /// Stillness this long is a sign that what is being said may be over: time to find out.
    static constexpr int kRestFrames = 20;
    /// What is kept from before the first loud frame.
    static constexpr int kLeadingFrames = 30;
    /// Speech that finds no end is cut by then; no command is as long.
    static constexpr int kLongestFrames = 12 * kFramesPerSecond;

    enum class Event {
        none,
        speech_began,
        speech_ended,
        speech_denied,  ///< what had begun was no speech
    };

    /// Takes the next frame of kFrameSamples samples.
    Event Push(std::span<const std::int16_t> frame);

    /// Ends speech that is under way: the stream has ended, or what was said is known to be all.
    Event Finish();

    [[nodiscard]] bool InSpeech() const { return state_ == State::speech; }
    /// Whether it has been still for kRestFrames, within speech that is under way.
    [[nodiscard]] bool Rests() const;
    /// Number of frames taken.
    [[nodiscard]] std::int64_t Position() const { return position_; }
    /// Where the utterance under way, or the last one, begins, leading frames included.
    [[nodiscard]] std::int64_t Begin() const { return begin_; }
    /// Behind the last frame of the utterance under way, or of the last one, trailing frames
    /// included.
    [[nodiscard]] std::int64_t End() const { return end_; }
    /// Behind its last loud frame so far.
    [[nodiscard]] std::int64_t LastLoud() const { return last_loud_; }
    /// Whether it is all that was said between two stretches of stillness. Speech that was cut
    /// because it was too long gives pieces, its last one included.
    [[nodiscard]] bool Whole() const { return whole_; }
    /// No utterance to come begins before this frame.
    [[nodiscard]] std::int64_t EarliestBegin() const;
    /// Noise of the room, dB re one squared sample step.
    [[nodiscard]] double Floor() const { return floor_.Level(); }

private:
    /// noise: loud, but there was no voice in it yet.
    enum class State { still, noise, speech };

    [[nodiscard]] NoiseFloor::Mood Mood() const;
    [[nodiscard]] Event Noise();
    [[nodiscard]] Event Speech(double level);
    [[nodiscard]] Event Fall(std::int64_t end);
    [[nodiscard]] Event Cut();

    FrameMeasure measure_;
    NoiseFloor floor_;
    State state_ = State::still;
    bool whole_ = true;
    std::int64_t position_ = 0;
    std::int64_t begin_ = 0;
    std::int64_t end_ = 0;
    std::int64_t last_loud_ = 0;
    std::int64_t earliest_begin_ = 0;
    std::int64_t last_voiced_ = 0;
    std::int64_t rise_ = 0;       ///< where it first was loud for long enough
    std::bitset<10> loud_;        ///< the last frames, newest first
    std::bitset<40> voiced_;      ///< likewise; loud ones only
    bool cut_ = false;            ///< the next frame begins the next piece
    std::vector<double> levels_;  ///< of the utterance under way, without what leads up to it
};

}  // namespace corvane::engine
