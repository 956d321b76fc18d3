// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <utility>
#include <variant>

#include "engine/voice/utterance.h"
#include "platform/speech_api.h"

namespace corvane::engine {

struct EndMark {};

/// What a voice tells of: a mark has been heard.
struct VoiceEvent {
    std::int32_t stream = 0;
    std::int64_t sample = 0;  ///< since the stream's beginning
    std::variant<Word, LevelMark, BookmarkMark, EndMark> what;
};

/// Who listens to a voice, and for what. For the loop's thread; may outlive its voice.
class VoiceListener {
public:
    void Advise(SpeechVoiceHandlers handlers) { handlers_ = std::move(handlers); }
    [[nodiscard]] std::int32_t Interests() const { return interests_; }
    void SetInterests(std::int32_t mask) { interests_ = mask; }

    /// From now on nothing of this stream nor of any before it is told.
    void CutOff(std::int32_t stream) { cut_off_ = stream; }
    /// Calls the handler of the event, if it is of interest. A level is told when it is another.
    void Tell(const VoiceEvent& event);

private:
    SpeechVoiceHandlers handlers_;
    std::int32_t interests_ = 0;
    std::int32_t cut_off_ = 0;
    std::int32_t level_ = 0;  ///< the last one told
};

}  // namespace corvane::engine
