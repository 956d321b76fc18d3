// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/noise_floor.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>

namespace corvane::engine {
namespace {

// Bounds of the floor, dB: below the first no microphone is, and digital silence would make a
// single step speech; a room above the second at the start is taken for somebody speaking.
constexpr double kLowestFloor = 18.0;
constexpr double kHighestFirstFloor = 40.0;

// How the floor follows a frame.
constexpr double kFallPerFrame = 0.25;          // of the distance
constexpr double kRisePerFrame = 0.06;          // dB, 6 dB a second
constexpr double kRisePerFrameInSpeech = 0.01;  // dB, 1 dB a second
// Who speaks on and on still pauses for breath: the stillest tenth of three seconds is the room.
constexpr double kRisePerFrameInLongSpeech = 0.06;
constexpr double kStillestShare = 0.1;

// What steady sound may do in a few of its frames.
constexpr double kFringe = 0.05;

}  // namespace

// Speech, with its consonants and pauses, spreads over tens of dB.
const NoiseFloor::Steadiness NoiseFloor::kNoise{.frames = 100, .spread = 6.0, .voiced = 30};
// A hum is as periodic as a voice, and a vowel drawn out for a second spread over 5 dB only.
const NoiseFloor::Steadiness NoiseFloor::kTone{.frames = 150, .spread = 3.0, .voiced = 150};

int NoiseFloor::Follow(const FrameSound& sound, Mood mood) {
    const double level = sound.level;
    // Digital silence is a switch or a gate, and tells nothing of the room.
    if (level <= 0.0) return 0;
    last_.push_back(sound);
    if (std::ssize(last_) > kRememberedFrames) last_.pop_front();

    if (!room_known_) floor_ = std::min(level, kHighestFirstFloor);
    room_known_ = true;
    if (level < floor_) {
        floor_ += kFallPerFrame * (level - floor_);
    } else if (mood == Mood::long_speech) {
        const double stillest = Quantile(kRememberedFrames, kStillestShare);
        floor_ += std::clamp(stillest - floor_, 0.0, kRisePerFrameInLongSpeech);
    } else {
        const double rise = mood == Mood::still ? kRisePerFrame : kRisePerFrameInSpeech;
        floor_ += std::min(level - floor_, rise);
    }
    floor_ = std::max(floor_, kLowestFloor);
    return SteadyFrames();
}

int NoiseFloor::SteadyFrames() {
    for (const Steadiness& least : {kNoise, kTone}) {
        if (!Steady(least)) continue;
        const double low = Quantile(least.frames, kFringe);
        if (low <= floor_) return 0;
        floor_ = low;
        return least.frames;
    }
    return 0;
}

bool NoiseFloor::Steady(const Steadiness& least) {
    if (std::ssize(last_) < least.frames) return false;
    const auto voiced =
        std::count_if(last_.end() - least.frames, last_.end(), std::mem_fn(&FrameSound::voiced));
    return voiced <= least.voiced &&
           Quantile(least.frames, 1.0 - kFringe) - Quantile(least.frames, kFringe) <= least.spread;
}

double NoiseFloor::Quantile(int frames, double share) {
    const auto count = std::min<std::ptrdiff_t>(frames, std::ssize(last_));
    sorting_.clear();
    std::transform(last_.end() - count, last_.end(), std::back_inserter(sorting_),
                   std::mem_fn(&FrameSound::level));
    const auto nth = static_cast<std::ptrdiff_t>(share * static_cast<double>(count - 1));
    std::ranges::nth_element(sorting_, sorting_.begin() + nth);
    return sorting_[static_cast<std::size_t>(nth)];
}

}  // namespace corvane::engine
