// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace corvane::engine::testing {

/// A PulseAudio server of the test's own, with one speaker that nobody hears and no microphone.
/// As long as this is there, PULSE_SERVER names it.
class SoundServer {
public:
    SoundServer();
    ~SoundServer();
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;

    /// Waits until it answers; false if it doesn't.
    [[nodiscard]] bool Start();
    void Kill();
    /// It is there, takes calls, and answers none, until it thaws.
    void Freeze() const;
    void Thaw() const;

    /// Runs pactl with these arguments; false if it fails.
    static bool Tell(const std::string& arguments);
    /// Plugs in a microphone before which somebody whistles one tone for ever.
    static bool Plug(const std::string& name, int frequency);
    static bool Unplug(const std::string& name);

private:
    std::filesystem::path folder_;
    std::string former_server_;
    pid_t process_ = 0;
};

}  // namespace corvane::engine::testing
