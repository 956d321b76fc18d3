// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "engine/audio/audio_source.h"
#include "engine/audio/sample_queue.h"

struct pa_mainloop;

namespace corvane::engine {

/// The default source of the PulseAudio server, captured on a thread of its own. As long as there
/// is no server or no source, and after either has gone, it tries again every second. Whenever it
/// gets no sound for a second it delivers a second of digital silence, so that what was said before
/// and after a break stay apart, and the recogniser learns that there is no signal. What the
/// speaker plays is no microphone, though a server without one offers it as its default source.
class PulseCapture final : public AudioSource {
public:
    /// client_name: what the user's sound settings call the program. Capturing begins with the
    /// first Read.
    explicit PulseCapture(std::string client_name);
    ~PulseCapture() override;
    PulseCapture(const PulseCapture&) = delete;
    PulseCapture& operator=(const PulseCapture&) = delete;

    std::size_t Read(std::span<std::int16_t> block) override;
    [[nodiscard]] std::size_t Waiting() override { return queue_.Waiting(); }
    void Interrupt() override;

private:
    void Run();
    [[nodiscard]] bool Stopping();
    /// Returns true when capturing is to be stopped, false after a while.
    [[nodiscard]] bool WaitToRetry();

    struct FreeLoop {
        void operator()(pa_mainloop* loop) const;
    };

    std::string client_name_;
    SampleQueue queue_;
    std::unique_ptr<pa_mainloop, FreeLoop> loop_;
    std::mutex mutex_;
    std::condition_variable stop_requested_;
    bool stopping_ = false;  ///< guarded by mutex_
    std::thread thread_;
};

}  // namespace corvane::engine
