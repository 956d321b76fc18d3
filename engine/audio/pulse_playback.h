// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <string>

struct pa_mainloop;

namespace corvane::engine {

class PulsePlaybackSession;

/// Sound for the default sink of the PulseAudio server: one stream, kept as long as the server is
/// there, so that sound starts and stops within milliseconds.
///
/// Positions count samples since the beginning: what was appended is heard from Heard() to
/// Appended(), at its own pace. Where there is no server, sound passes unheard at that pace; it is
/// looked for five times a second, and then the rest is heard. A server that takes sound and does
/// not play it is given up until this sound has passed.
///
/// For one thread, which gives its time in Turn(); Wake() alone may be called from any.
class PulsePlayback {
public:
    enum class Wait : bool { no, yes };

    /// client_name: what the user's sound settings call the program. rate: samples a second of the
    /// one channel. Raises kAutomationError when the process can't have another message loop.
    PulsePlayback(std::string client_name, int rate);
    ~PulsePlayback();
    PulsePlayback(const PulsePlayback&) = delete;
    PulsePlayback& operator=(const PulsePlayback&) = delete;

    /// Returns the position of the first sample, which may be behind some silence.
    std::int64_t Append(std::span<const std::int16_t> samples);
    /// Falls silent at once. What was not heard yet never was: its positions are given again.
    void Purge();

    [[nodiscard]] std::int64_t Appended() const { return appended_; }
    [[nodiscard]] std::int64_t Heard() const { return heard_; }

    /// Moves sound to the server and finds out what was heard. With Wait::yes, which also says that
    /// no more sound is at hand, it waits for the server: at most 4 ms while there is sound, else
    /// until the server has something to say or Wake() is called.
    void Turn(Wait wait);
    void Wake();

private:
    using Clock = std::chrono::steady_clock;
    struct FreeLoop {
        void operator()(pa_mainloop* loop) const;
    };

    [[nodiscard]] bool Sounding() const { return heard_ < appended_; }
    void Connect(Clock::time_point now);
    /// The most that can have been heard since the stream was started.
    [[nodiscard]] std::int64_t HeardAtMost(Clock::time_point now) const;
    /// complete: nothing follows soon on what was appended.
    void Play(Clock::time_point now, bool complete);
    void PassUnheard(Clock::time_point now);
    void Rest();
    void MoveOn(std::int64_t heard, Clock::time_point now);

    std::string client_name_;
    int rate_;
    // heard_ <= written_ <= buffered_, and appended_ <= buffered_ unless all of it was heard.
    std::int64_t heard_ = 0;
    std::int64_t written_ = 0;   ///< to the server
    std::int64_t buffered_ = 0;  ///< with the silence that follows what was appended
    std::int64_t appended_ = 0;
    std::deque<std::int16_t> unheard_;  ///< from heard_ to buffered_
    std::int64_t started_ = 0;          ///< where the stream was last started
    Clock::time_point started_at_;
    Clock::time_point connected_at_;
    Clock::time_point moved_at_;  ///< when heard_ last grew, or sound began to wait
    bool given_up_ = false;
    std::atomic<bool> woken_ = false;
    std::unique_ptr<pa_mainloop, FreeLoop> loop_;
    std::unique_ptr<PulsePlaybackSession> session_;  ///< never none
};

}  // namespace corvane::engine
