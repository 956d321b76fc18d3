// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace corvane::engine::testing {

using Sound = std::vector<std::int16_t>;

/// Whether the machine has the voices that speak in the tests.
[[nodiscard]] bool CanSpeak();

/// The text as a voice of flite ("slt", "rms", "awb") says it, with stillness on both sides.
/// stretch: how many times as long as usual it takes.
[[nodiscard]] Sound Say(const std::string& text, const std::string& voice = "slt",
                        double stretch = 1.0);

/// As if the speaker were smaller by this factor: all of the sound higher and shorter.
[[nodiscard]] Sound Smaller(const Sound& sound, double factor);

/// A voice unlike the acoustic model's, at the usual pace.
[[nodiscard]] Sound SayAsSomebodySmall(const std::string& text);

[[nodiscard]] Sound Stillness(std::chrono::milliseconds duration);

/// One sound after the other.
[[nodiscard]] Sound Joined(Sound first, const Sound& second);

}  // namespace corvane::engine::testing
