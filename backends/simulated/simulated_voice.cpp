// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_voice.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane::simulated {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kCharacter{100};
constexpr std::int64_t kBytesPerMillisecond = 32;

struct SpokenWord {
    milliseconds after;  // the stream's beginning
    std::int32_t position;
    std::int32_t length;
};

struct SpokenText {
    std::vector<SpokenWord> words;
    milliseconds duration{0};
};

bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Letters, digits and whatever is not ASCII.
bool BelongsToWord(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') || static_cast<unsigned char>(byte) >= 0x80;
}

/// Length in bytes of the tag at the beginning of a text; 0 where there is none.
std::size_t TagLength(std::string_view text) {
    if (!text.starts_with('<')) return 0;
    const std::size_t name = text.starts_with("</") ? 2 : 1;
    const std::size_t end = text.find_first_of("<>", 1);
    if (end == std::string_view::npos || text[end] != '>' || !BelongsToWord(text[name])) return 0;
    return end + 1;
}

SpokenText Say(std::string_view text, bool markup) {
    SpokenText spoken;
    SpokenWord word{};
    std::int32_t position = 0;
    const auto finish = [&] {
        if (word.length > 0) spoken.words.push_back(std::exchange(word, {}));
    };
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (const std::size_t tag = markup ? TagLength(text.substr(at)) : 0; tag > 0) {
            finish();
            for (; text[at] != '>'; ++at) position += ContinuesCharacter(text[at]) ? 0 : 1;
            ++position;
            continue;
        }
        if (ContinuesCharacter(text[at])) continue;
        if (text[at] == ' ' || text[at] == '\t' || text[at] == '\r' || text[at] == '\n') finish();
        if (BelongsToWord(text[at])) {
            if (word.length == 0) word = {spoken.duration, position, 0};
            // From the first letter to the last: signs inside belong to the word.
            word.length = position + 1 - word.position;
        }
        ++position;
        spoken.duration += kCharacter;
    }
    finish();
    return spoken;
}

Variant PositionAfter(milliseconds time) {
    return time.count() * kBytesPerMillisecond;
}

}  // namespace

SimulatedVoice::SimulatedVoice(CallRecord& record, VirtualQueue& queue)
    : record_(record), queue_(queue) {}

void SimulatedVoice::SetEventInterests(std::int32_t Mask) {
    record_.Call("voice.EventInterests", std::to_string(Mask));
    interests_ = Mask;
}

std::int32_t SimulatedVoice::Speak(const std::string& Text, std::int32_t Flags) {
    record_.Call("Speak", "\"" + Text + "\" flags=" + std::to_string(Flags));
    const milliseconds now = queue_.Now();
    const bool purge = (Flags & SVSFPurgeBeforeSpeak) != 0;
    const bool sounding = silent_at_ > now;
    if (purge) cut_off_ = stream_;
    const milliseconds begin = purge ? now : std::max(now, silent_at_);
    const std::int32_t stream = ++stream_;
    if (purge && sounding) RaiseLevel(stream, begin, {}, 0);

    const SpokenText spoken = Say(Text, (Flags & SVSFIsXML) != 0);
    silent_at_ = begin + spoken.duration;
    for (const SpokenWord& word : spoken.words) {
        Raise(stream, begin + word.after, SVEWordBoundary,
              [stream, word](const SpeechVoiceHandlers& to) {
                  if (to.Word)
                      to.Word(stream, PositionAfter(word.after), word.position, word.length);
              });
        RaiseLevel(stream, begin, word.after, std::min(100, 20 + 5 * word.length));
    }
    if (spoken.duration > milliseconds(0)) RaiseLevel(stream, begin, spoken.duration, 0);
    Raise(stream, silent_at_, SVEEndInputStream,
          [stream, duration = spoken.duration](const SpeechVoiceHandlers& to) {
              if (to.EndStream) to.EndStream(stream, PositionAfter(duration));
          });
    return stream;
}

bool SimulatedVoice::WaitUntilDone(std::int32_t msTimeout) {
    record_.Call("WaitUntilDone", std::to_string(msTimeout));
    const auto left = std::max(silent_at_ - queue_.Now(), milliseconds(0));
    const auto timeout = milliseconds(msTimeout);
    queue_.Block(std::min(left, timeout));
    return left <= timeout;
}

void SimulatedVoice::Raise(std::int32_t stream, milliseconds due, std::int32_t interest,
                           Delivery deliver) {
    queue_.PostAfter(due - queue_.Now(),
                     [weak = weak_from_this(), stream, interest, deliver = std::move(deliver)] {
                         const auto alive = weak.lock();
                         if (!alive || stream <= alive->cut_off_) return;
                         if ((alive->interests_ & interest) == 0) return;
                         // A copy: a handler may connect others while it runs.
                         deliver(SpeechVoiceHandlers(alive->handlers_));
                     });
}

void SimulatedVoice::RaiseLevel(std::int32_t stream, milliseconds begin, milliseconds after,
                                std::int32_t level) {
    Raise(stream, begin + after, SVEAudioLevel,
          [stream, after, level](const SpeechVoiceHandlers& to) {
              if (to.AudioLevel) to.AudioLevel(stream, PositionAfter(after), level);
          });
}

}  // namespace corvane::simulated
