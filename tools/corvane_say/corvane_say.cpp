// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Speaks a text, which may hold markup, on the default audio output or into a sound file, and
// writes one line an event, fields parted by tabs: event (word, level, bookmark or end), its time
// in the sound in ms, position and length in the text, and the word, the level or the bookmark's
// name. While it speaks, a line is written when what it tells of is heard.

#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <iostream>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "engine/audio/wav_file.h"
#include "engine/voice/synthesizer.h"
#include "engine/voice/utf8.h"
#include "engine/voice/utterance.h"
#include "engine/voice/voice.h"
#include "engine/voice/voice_listener.h"
#include "platform/error.h"

namespace {

using namespace corvane;

constexpr std::int32_t kAllInterests =
    SVEWordBoundary | SVEAudioLevel | SVEBookmark | SVEEndInputStream;
constexpr std::int64_t kBytesPerMillisecond = 32;

/// Messages in the order of posting.
class MessageQueue {
public:
    void Post(std::function<void()> message) {
        {
            const std::lock_guard lock(mutex_);
            messages_.push_back(std::move(message));
        }
        posted_.notify_one();
    }

    /// Runs messages until one of them has set `done`.
    void RunUntil(const bool& done) {
        while (!done) {
            std::unique_lock lock(mutex_);
            posted_.wait(lock, [this] { return !messages_.empty(); });
            const auto messages = std::exchange(messages_, {});
            lock.unlock();
            for (const auto& message : messages) message();
        }
    }

private:
    std::mutex mutex_;
    std::condition_variable posted_;
    std::vector<std::function<void()>> messages_;
};

std::string_view Characters(std::string_view text, std::int32_t position, std::int32_t length) {
    const auto skip = [](std::string_view& rest, std::int32_t characters) {
        for (; characters > 0 && !rest.empty(); --characters)
            rest.remove_prefix(engine::CharacterBytes(rest));
    };
    skip(text, position);
    std::string_view behind = text;
    skip(behind, length);
    return text.substr(0, text.size() - behind.size());
}

void Print(const char* event, const Variant& place, std::int32_t position, std::int32_t length,
           std::string_view what) {
    std::printf("%s\t%lld\t%d\t%d\t%.*s\n", event,
                static_cast<long long>(std::get<std::int64_t>(place) / kBytesPerMillisecond),
                position, length, static_cast<int>(what.size()), what.data());
    std::fflush(stdout);
}

SpeechVoiceHandlers Printing(std::string_view text, bool& done) {
    return {
        .Word =
            [text](std::int32_t, const Variant& place, std::int32_t position, std::int32_t length) {
                Print("word", place, position, length, Characters(text, position, length));
            },
        .EndStream =
            [&done](std::int32_t, const Variant& place) {
                Print("end", place, 0, 0, "");
                done = true;
            },
        .AudioLevel =
            [](std::int32_t, const Variant& place, std::int32_t level) {
                Print("level", place, 0, 0, std::to_string(level));
            },
        .Bookmark = [](std::int32_t, const Variant& place, const std::string& name,
                       std::int32_t) { Print("bookmark", place, 0, 0, name); }};
}

void Speak(const std::string& text) {
    MessageQueue messages;
    bool done = false;
    engine::Voice voice("corvane-say", [&messages](std::function<void()> message) {
        messages.Post(std::move(message));
    });
    voice.Advise(Printing(text, done));
    voice.SetEventInterests(kAllInterests);
    voice.Speak(text, SVSFlagsAsync | SVSFIsXML);
    messages.RunUntil(done);
}

void Write(const std::string& text, const std::string& path) {
    if (!engine::CanSynthesize()) throw RuntimeError(kAutomationError, "no voice is installed");
    bool done = false;
    engine::VoiceListener listener;
    listener.Advise(Printing(text, done));
    listener.SetInterests(kAllInterests);
    std::vector<std::int16_t> sound;
    const auto tell = [&listener](std::int64_t sample, const auto& what) {
        listener.Tell({.stream = 1, .sample = sample, .what = what});
    };
    for (engine::Utterance utterance(text, true); !utterance.Done();) {
        const engine::Spoken spoken = utterance.Next();
        for (const engine::Mark& mark : spoken.marks)
            std::visit([&](const auto& what) { tell(std::ssize(sound) + mark.sample, what); },
                       mark.what);
        sound.insert(sound.end(), spoken.sound.begin(), spoken.sound.end());
    }
    tell(std::ssize(sound), engine::LevelMark{0});
    tell(std::ssize(sound), engine::EndMark{});
    engine::WriteWavFile(path, sound, engine::kVoiceRate);
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    const bool to_file = words.size() == 3 && words[0] == "--wav";
    if (!to_file && (words.size() != 1 || words[0].starts_with("--"))) {
        std::cerr << "usage: corvane-say [--wav OUT.wav] TEXT\n";
        return 2;
    }
    try {
        if (to_file)
            Write(words[2], words[1]);
        else
            Speak(words[0]);
    } catch (const RuntimeError& error) {
        std::cerr << "corvane-say: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
