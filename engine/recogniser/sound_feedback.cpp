// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/sound_feedback.h"

#include <algorithm>
#include <utility>

#include "engine/recogniser/endpointer.h"

namespace corvane::engine {
namespace {

constexpr int kFramesPerBlock =
    static_cast<int>(InterferenceJudge::kBlock.count()) * Endpointer::kFramesPerSecond / 1000;

}  // namespace

SoundFeedback::SoundFeedback(std::weak_ptr<Audience> audience, Post post)
    : audience_(std::move(audience)), post_(std::move(post)) {}

void SoundFeedback::Hear(std::span<const std::int16_t> frame, std::int64_t position,
                         std::int32_t interests) {
    SoundPower alone;
    alone.Add(frame);
    stillest_ = frames_ == 0 ? alone.MeanSquare() : std::min(stillest_, alone.MeanSquare());
    block_.Add(frame);
    if (++frames_ < kFramesPerBlock) return;
    const double mean_square = std::exchange(block_, {}).MeanSquare();
    frames_ = 0;

    if ((interests & SREAudioLevel) != 0)
        TellLevel(mean_square, position);
    else
        told_level_.reset();
    // It judges also while nobody asks: what began then is not told late.
    const InterferenceJudge::Events events = judge_.HearBlock({mean_square, stillest_});
    if ((interests & SREInterference) != 0) TellInterferences(events, position);
}

void SoundFeedback::HearUtterance(const UtteranceSound& sound, std::int64_t position,
                                  std::int32_t interests) {
    const InterferenceJudge::Events events = judge_.HearUtterance(sound);
    if ((interests & SREInterference) != 0) TellInterferences(events, position);
}

void SoundFeedback::TellLevel(double mean_square, std::int64_t position) {
    const std::int32_t level = AudioLevel(Decibels(mean_square));
    if (level == told_level_) return;
    told_level_ = level;
    {
        const std::lock_guard lock(mailbox_->mutex);
        if (std::exchange(mailbox_->waiting, Mailbox::Reading{position, level})) return;
    }
    post_([audience = audience_, mailbox = mailbox_] {
        std::optional<Mailbox::Reading> reading;
        {
            const std::lock_guard lock(mailbox->mutex);
            reading.swap(mailbox->waiting);
        }
        const std::shared_ptr<Audience> listening = audience.lock();
        if (!listening || !reading) return;
        for (const auto& client : listening->Clients())
            client->HeardLevel(reading->position, reading->level);
    });
}

void SoundFeedback::TellInterferences(const InterferenceJudge::Events& events,
                                      std::int64_t position) {
    for (const SpeechInterference interference : events)
        post_([audience = audience_, position, interference] {
            const std::shared_ptr<Audience> listening = audience.lock();
            if (!listening) return;
            for (const auto& client : listening->Clients())
                client->HeardInterference(position, interference);
        });
}

}  // namespace corvane::engine
