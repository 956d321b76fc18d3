// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/interference_judge.h"

#include <cstddef>

#include "engine/recogniser/sound_level.h"

namespace corvane::engine {
namespace {

using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

constexpr int Blocks(std::chrono::milliseconds duration) {
    return static_cast<int>(duration / InterferenceJudge::kBlock);
}

// Levels in dB re one squared sample step, paces in phones a second. README.md has what was
// measured.

// A microphone always has some noise: nothing at all is a cable, a switch or a server.
constexpr int kSilentToBegin = Blocks(3s);

// The stillest frames of speech in a quiet room lie at 40 at most in any three seconds; the quieter
// speakers are at 51, so little of them stands out of a room that never falls below 50.
constexpr double kNoisyLevel = 50.0;
constexpr int kNoisyToBegin = Blocks(3s);
// The room is calm again when all of it, not its stillest frames alone, is below that for a moment.
constexpr double kCalmLevel = 50.0;
constexpr int kCalmToEnd = Blocks(500ms);

// What is shorter is a click or a knock. 400 ms of it are the room before it, and a curt word has
// 300.
constexpr auto kShortestSpeech = 700ms;

// Unclipped recordings have no sample there.
constexpr double kTooLoudShare = 0.005;

// The quietest speaker we have is at 51.
constexpr double kTooQuietLevel = 42.0;

// Accepted phrases had 6 to 17.6. Phones of three states can't be shorter than three frames, 33.
constexpr double kTooFastPace = 20.0;
constexpr double kTooSlowPace = 6.0;
// A short phrase has no pace: too much of it is its first and last sound.
constexpr int kPhonesForPace = 8;

}  // namespace

InterferenceJudge::Events InterferenceJudge::HearBlock(const Block& block) {
    silent_ = block.mean_square == 0.0 ? silent_ + 1 : 0;
    noisy_ = Decibels(block.stillest) > kNoisyLevel ? noisy_ + 1 : 0;
    calm_ = Decibels(block.mean_square) < kCalmLevel ? calm_ + 1 : 0;

    Conditions next = conditions_;
    next[SINoSignal] = silent_ >= kSilentToBegin;
    if (noisy_ >= kNoisyToBegin) next[SINoise] = true;
    if (calm_ >= kCalmToEnd) next[SINoise] = false;
    return Become(next);
}

InterferenceJudge::Events InterferenceJudge::HearUtterance(const UtteranceSound& sound) {
    if (sound.duration < kShortestSpeech) return {};
    const bool paced = sound.phones >= kPhonesForPace;
    Conditions next = conditions_;
    next[SITooLoud] = sound.clipped_share > kTooLoudShare;
    next[SITooQuiet] = sound.level < kTooQuietLevel;
    next[SITooFast] = paced && sound.pace > kTooFastPace;
    next[SITooSlow] = paced && sound.pace < kTooSlowPace;
    return Become(next);
}

InterferenceJudge::Events InterferenceJudge::Become(Conditions next) {
    Events events;
    for (const SpeechInterference condition :
         {SINoise, SINoSignal, SITooLoud, SITooQuiet, SITooFast, SITooSlow}) {
        const auto bit = static_cast<std::size_t>(condition);
        if (next[bit] && !conditions_[bit]) events.push_back(condition);
    }
    if (conditions_.any() && next.none()) events.push_back(SINone);
    conditions_ = next;
    return events;
}

}  // namespace corvane::engine
