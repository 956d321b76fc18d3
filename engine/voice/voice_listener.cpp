// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/voice_listener.h"

#include <charconv>
#include <utility>

#include "engine/voice/synthesizer.h"

namespace corvane::engine {
namespace {

/// The number that a bookmark's name begins with.
std::int32_t BookmarkId(const std::string& name) {
    std::int32_t id = 0;
    std::from_chars(name.data(), name.data() + name.size(), id);
    return id;
}

Variant PositionOf(const VoiceEvent& event) {
    constexpr std::int64_t kSamplesASecond = 16000;
    constexpr std::int64_t kSampleBytes = 2;
    return event.sample * kSamplesASecond / kVoiceRate * kSampleBytes;
}

}  // namespace

void VoiceListener::Tell(const VoiceEvent& event) {
    if (event.stream <= cut_off_) return;
    // The handlers are copied: one may connect others while it runs.
    if (const auto* word = std::get_if<Word>(&event.what)) {
        const auto handler = handlers_.Word;
        if ((interests_ & SVEWordBoundary) != 0 && handler)
            handler(event.stream, PositionOf(event), static_cast<std::int32_t>(word->position),
                    static_cast<std::int32_t>(word->length));
    } else if (const auto* level = std::get_if<LevelMark>(&event.what)) {
        const auto handler = handlers_.AudioLevel;
        if ((interests_ & SVEAudioLevel) != 0 && handler &&
            std::exchange(level_, level->level) != level->level)
            handler(event.stream, PositionOf(event), level->level);
    } else if (const auto* bookmark = std::get_if<BookmarkMark>(&event.what)) {
        const auto handler = handlers_.Bookmark;
        if ((interests_ & SVEBookmark) != 0 && handler)
            handler(event.stream, PositionOf(event), bookmark->name, BookmarkId(bookmark->name));
    } else {
        const auto handler = handlers_.EndStream;
        if ((interests_ & SVEEndInputStream) != 0 && handler)
            handler(event.stream, PositionOf(event));
    }
}

}  // namespace corvane::engine
