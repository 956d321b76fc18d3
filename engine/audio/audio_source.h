// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace corvane::engine {

inline constexpr int kSampleRate = 16000;

/// A stream of sound: one channel of signed 16-bit samples at kSampleRate. A microphone delivers in
/// its own time, a file as fast as it is read; the recogniser can't tell them apart.
class AudioSource {
public:
    virtual ~AudioSource() = default;

    /// Waits for sound and puts it into `block`. Returns the number of samples, 1 to block.size(),
    /// or 0 for good once the stream is at its end or was interrupted. Called on one thread only.
    virtual std::size_t Read(std::span<std::int16_t> block) = 0;

    /// Samples that were captured already and wait to be read; none where they are made when they
    /// are read. Callable from any thread.
    [[nodiscard]] virtual std::size_t Waiting() { return 0; }

    /// Makes a Read that is waiting, and every later one, return 0. Callable from any thread.
    virtual void Interrupt() = 0;
};

}  // namespace corvane::engine
