// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/endpointer.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace corvane::engine {
namespace {

constexpr double kSpeechAboveFloor = 8.0;  // dB
/// What holds speech together once it has begun: weak syllables in a noisy room.
constexpr double kVoiceAboveFloor = 4.0;

constexpr std::size_t kLoudOfTen = 5;
/// Speech that begins again may have to be waited for until it is loud in kLoudOfTen frames.
constexpr int kResumingFrames = 10;
constexpr unsigned long kLastThree = 0b111;

/// This many voiced frames out of 40 are a voice. With 5 a loud knock of 60 ms passed; with 10 two
/// more of 80 short words were lost than with 7.
constexpr std::size_t kFewestVoiced = 7;
/// What has no voice before a word may be its first sound only as long as this.
constexpr int kBeforeVoice = 100;
/// Loud sound without a voice that goes on for so long behind a word ends it, and only its first
/// frames, which may be a hiss of the word's, are kept.
constexpr int kAfterVoice = 80;
constexpr int kHissFrames = 50;

constexpr int kLongSpeech = 4 * Endpointer::kFramesPerSecond;
/// Speech is cut at the stillest moment, this long, of its last seconds.
constexpr std::size_t kCutWithin = std::size_t{3} * Endpointer::kFramesPerSecond;
constexpr std::ptrdiff_t kMoment = 5;

}  // namespace

Endpointer::Event Endpointer::Push(std::span<const std::int16_t> frame) {
    const FrameSound sound = measure_.Measure(frame);
    const int room = floor_.Follow(sound, Mood());
    const bool sustained = state_ == State::speech && sound.voiced;
    const bool loud =
        sound.level > floor_.Level() + (sustained ? kVoiceAboveFloor : kSpeechAboveFloor);
    ++position_;
    loud_ <<= 1;
    loud_[0] = loud;
    voiced_ <<= 1;
    voiced_[0] = loud && sound.voiced;
    const bool loudness = loud && loud_.count() >= kLoudOfTen;
    if (loudness) last_loud_ = position_;
    if (voiced_[0]) last_voiced_ = position_;
    if (room > 0) last_loud_ = std::min(last_loud_, position_ - room);

    if (state_ == State::speech) return Speech(sound.level);
    if (state_ == State::still && loudness) {
        begin_ = EarliestBegin();
        state_ = State::noise;
        rise_ = position_;
    }
    return state_ == State::noise ? Noise() : Event::none;
}

NoiseFloor::Mood Endpointer::Mood() const {
    if (state_ != State::speech) return NoiseFloor::Mood::still;
    const bool endless = !whole_ || position_ - begin_ > kLongSpeech;
    return endless ? NoiseFloor::Mood::long_speech : NoiseFloor::Mood::speech;
}

std::int64_t Endpointer::EarliestBegin() const {
    if (state_ == State::speech) return begin_;
    const auto before = state_ == State::noise
                            ? std::int64_t{kBeforeVoice}
                            : static_cast<std::int64_t>(loud_.size()) + kLeadingFrames;
    return std::max(state_ == State::noise ? begin_ : earliest_begin_, position_ - before);
}

bool Endpointer::Rests() const {
    return state_ == State::speech && !cut_ && position_ - last_loud_ >= kRestFrames &&
           (loud_.to_ulong() & kLastThree) == 0;
}

Endpointer::Event Endpointer::Noise() {
    if (position_ - last_loud_ >= kTrailingFrames) {
        state_ = State::still;
    } else if (voiced_.count() >= kFewestVoiced) {
        begin_ = EarliestBegin();
        state_ = State::speech;
        whole_ = true;
        levels_.clear();
        return Event::speech_began;
    }
    return Event::none;
}

Endpointer::Event Endpointer::Speech(double level) {
    levels_.push_back(level);
    if (cut_) {
        cut_ = false;
        begin_ = end_;
        return Event::speech_began;
    }
    const std::int64_t still = position_ - last_loud_;
    const bool resumes =
        (loud_.to_ulong() & kLastThree) != 0 && still < kTrailingFrames + kResumingFrames;
    if (still >= kTrailingFrames && !resumes) return Fall(last_loud_ + kTrailingFrames);
    if (position_ - last_voiced_ >= kAfterVoice) {
        return Fall(last_voiced_ + kHissFrames);
    }
    if (position_ - begin_ >= kLongestFrames) return Cut();
    return Event::none;
}

Endpointer::Event Endpointer::Finish() {
    if (state_ != State::speech) return Event::none;
    if (cut_) begin_ = end_;
    return Fall(position_);
}

Endpointer::Event Endpointer::Fall(std::int64_t end) {
    state_ = State::still;
    loud_.reset();
    voiced_.reset();
    cut_ = false;
    end_ = std::clamp(end, begin_, position_);
    // What comes next may begin in the stillness of this, but not before it: the listener has
    // thrown that away.
    earliest_begin_ = std::max(last_loud_, begin_);
    // Nothing is left when what had begun turned out to be the room, or when what follows a cut is
    // only the pause in which it was made.
    const bool nothing = last_loud_ <= rise_ || last_loud_ <= begin_ || end_ <= begin_;
    return nothing ? Event::speech_denied : Event::speech_ended;
}

Endpointer::Event Endpointer::Cut() {
    auto moment = levels_.end() - kMoment;
    double least = std::numeric_limits<double>::infinity();
    const auto seconds = static_cast<std::ptrdiff_t>(std::min(levels_.size(), kCutWithin));
    for (auto from = levels_.end() - seconds; from + kMoment <= levels_.end(); ++from) {
        const double sum = std::accumulate(from, from + kMoment, 0.0);
        if (sum >= least) continue;
        least = sum;
        moment = from;
    }
    levels_.erase(levels_.begin(), moment + kMoment / 2);
    end_ = position_ - std::ssize(levels_);
    whole_ = false;
    cut_ = true;
    return Event::speech_ended;
}

}  // namespace corvane::engine
