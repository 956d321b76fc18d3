// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/reading_catcher.h"

#include <algorithm>

#include "engine/recogniser/interference_judge.h"
#include "engine/recogniser/utterance_sound.h"

namespace corvane::engine {

ReadingCatcher::Event ReadingCatcher::Push(std::span<const std::int16_t> frame) {
    sound_.insert(sound_.end(), frame.begin(), frame.end());
    const Endpointer::Event event = endpointer_.Push(frame);
    if (event == Endpointer::Event::speech_began && !reading_) {
        Forget(endpointer_.Begin());
        reading_ = true;
        spoken_ = false;
        return Event::began;
    }
    if (!reading_) {
        Forget(endpointer_.EarliestBegin());
        return Event::none;
    }
    if (event == Endpointer::Event::speech_ended) {
        spoken_ = true;
        last_loud_ = endpointer_.LastLoud();
    } else if (event == Endpointer::Event::speech_denied && !spoken_) {
        reading_ = false;
        return Event::denied;
    }
    const std::int64_t now = endpointer_.Position();
    if (endpointer_.InSpeech()) last_loud_ = endpointer_.LastLoud();
    const bool over = spoken_ && !endpointer_.InSpeech() && now - last_loud_ >= kPauseFrames;
    if (!over && now - begin_ < kLongestFrames) return Event::none;
    reading_ = false;
    caught_ = Catch();
    return Event::ended;
}

void ReadingCatcher::Forget(std::int64_t until) {
    const std::int64_t old = until - begin_;
    if (old <= 0) return;
    sound_.erase(sound_.begin(), sound_.begin() + old * std::int64_t{Endpointer::kFrameSamples});
    begin_ += old;
}

std::span<const std::int16_t> ReadingCatcher::Sound(std::int64_t end) const {
    const std::int64_t last = std::min(end, endpointer_.Position());
    return std::span(sound_).first(static_cast<std::size_t>(last - begin_) *
                                   Endpointer::kFrameSamples);
}

ReadingCatcher::Reading ReadingCatcher::Catch() const {
    const auto sound = Sound(last_loud_ + Endpointer::kTrailingFrames);
    Reading reading;
    reading.sound.assign(sound.begin(), sound.end());
    InterferenceJudge judge;
    for (const SpeechInterference heard :
         judge.HearUtterance(MeasureUtterance(Sound(last_loud_)))) {
        reading.too_loud = reading.too_loud || heard == SITooLoud;
        reading.too_quiet = reading.too_quiet || heard == SITooQuiet;
    }
    return reading;
}

}  // namespace corvane::engine
