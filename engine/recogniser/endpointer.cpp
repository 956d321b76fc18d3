// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/endpointer.h"

#include <algorithm>

#include "engine/recogniser/sound_level.h"

namespace corvane::engine {
namespace {

constexpr double kSpeechAboveFloor = 8.0;  // dB
constexpr std::size_t kLoudOfTen = 5;

// Bounds of the floor, dB: below the first no microphone is, and digital silence would make a
// single step speech; a room above the second at the start is taken for somebody speaking.
constexpr double kLowestFloor = 18.0;
constexpr double kHighestFirstFloor = 40.0;

// How the floor follows a frame: quickly down, slowly up, in speech hardly at all.
constexpr double kFallPerFrame = 0.25;          // of the distance
constexpr double kRisePerFrame = 0.06;          // dB, 6 dB a second
constexpr double kRisePerFrameInSpeech = 0.01;  // dB, 1 dB a second

}  // namespace

void Endpointer::FollowNoise(double level) {
    // Digital silence is a switch or a gate, and tells nothing of the room.
    if (level <= 0.0) return;
    if (!room_known_) floor_ = std::min(level, kHighestFirstFloor);
    room_known_ = true;
    if (level < floor_)
        floor_ += kFallPerFrame * (level - floor_);
    else
        floor_ += std::min(level - floor_, in_speech_ ? kRisePerFrameInSpeech : kRisePerFrame);
    floor_ = std::max(floor_, kLowestFloor);
}

Endpointer::Event Endpointer::Push(std::span<const std::int16_t> frame) {
    const double level = Decibels(frame);
    FollowNoise(level);
    const bool loud = level > floor_ + kSpeechAboveFloor;
    loud_ <<= 1;
    loud_[0] = loud;
    ++position_;

    const bool speech = loud_.count() >= kLoudOfTen;
    if (speech && loud) last_loud_ = position_;
    if (in_speech_) {
        levels_.push_back(level);
        if (position_ - last_loud_ >= kTrailingFrames) return End();
        if (position_ - begin_ >= kLongestFrames) {
            // What never falls silent is the room itself: a fan, a radio.
            const auto low = levels_.begin() + static_cast<std::ptrdiff_t>(levels_.size() / 10);
            std::ranges::nth_element(levels_, low);
            floor_ = std::max(floor_, *low);
            return End();
        }
    } else if (speech) {
        in_speech_ = true;
        levels_.assign(1, level);
        const auto window = static_cast<std::int64_t>(loud_.size());
        begin_ = std::max(earliest_begin_, position_ - window - kLeadingFrames);
        return Event::speech_began;
    }
    return Event::none;
}

Endpointer::Event Endpointer::Finish() {
    return in_speech_ ? End() : Event::none;
}

Endpointer::Event Endpointer::End() {
    in_speech_ = false;
    loud_.reset();
    earliest_begin_ = last_loud_;
    return Event::speech_ended;
}

}  // namespace corvane::engine
