// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <thread>

#include "engine/adaptation/reading_catcher.h"
#include "engine/audio/audio_source.h"
#include "engine/recogniser/sound_level.h"

namespace corvane::linux_desktop {

/// Listens to a microphone for what is read aloud, on a thread of its own. What is heard is told on
/// the thread that made this, among its messages.
class ReadingMicrophone {
public:
    struct Events {
        /// Ten times a second of sound; 0 to 100, see engine::AudioLevel.
        std::function<void(int level)> Level;
        /// Whether there is any sound, be it the noise of the room; whenever that changes. At first
        /// it is believed that there is.
        std::function<void(bool there)> Signal;
        std::function<void()> Began;
        /// What had begun was no speech.
        std::function<void()> Denied;
        std::function<void(const engine::ReadingCatcher::Reading& reading)> Ended;
    };

    ReadingMicrophone(std::unique_ptr<engine::AudioSource> source, Events events);
    ~ReadingMicrophone();
    ReadingMicrophone(const ReadingMicrophone&) = delete;
    ReadingMicrophone& operator=(const ReadingMicrophone&) = delete;

    /// From now on a new reading is awaited: nothing more is told of what has begun until now.
    void Await() { ++turn_; }

private:
    void Run();
    void Hear(std::span<const std::int16_t> frame);
    void Measure(std::span<const std::int16_t> frame);
    void TellSignal(bool there);
    void Tell(std::function<void()> message);
    /// Unless another reading is awaited by then.
    void TellInTurn(std::function<void()> message);

    std::unique_ptr<engine::AudioSource> source_;
    Events events_;
    QObject here_;  ///< of the thread that made this
    std::atomic<std::uint32_t> turn_ = 0;

    // The thread's own.
    engine::ReadingCatcher catcher_;
    std::uint32_t known_turn_ = 0;
    engine::SoundPower power_;
    int frames_ = 0;  ///< in the power
    int silent_ = 0;  ///< tenths of a second without any sound on end
    bool signal_ = true;

    std::thread thread_;
};

}  // namespace corvane::linux_desktop
