// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "support/speech.h"

#include <cstdlib>

#include "engine/audio/wav_file.h"
#include "support/temporary_file.h"

namespace corvane::engine::testing {

bool CanSpeak() {
    return std::system("command -v flite > /dev/null 2>&1") == 0;
}

Sound Say(const std::string& text, const std::string& voice, double stretch) {
    const TemporaryFile words(text);
    const TemporaryFile sound;
    const std::string command = "flite -voice " + voice +
                                " --setf duration_stretch=" + std::to_string(stretch) + " -f '" +
                                words.Path() + "' -o '" + sound.Path() + "'";
    if (std::system(command.c_str()) != 0) return {};
    using std::chrono_literals::operator""ms;
    return Joined(Joined(Stillness(400ms), ReadWavFile(sound.Path())), Stillness(500ms));
}

Sound Smaller(const Sound& sound, double factor) {
    Sound smaller;
    for (double at = 0.0; at + 1.0 < static_cast<double>(sound.size()); at += factor) {
        const auto index = static_cast<std::size_t>(at);
        const double part = at - static_cast<double>(index);
        smaller.push_back(
            static_cast<std::int16_t>((1.0 - part) * sound[index] + part * sound[index + 1]));
    }
    return smaller;
}

Sound SayAsSomebodySmall(const std::string& text) {
    constexpr double kFactor = 1.2;
    return Smaller(Say(text, "slt", kFactor), kFactor);
}

Sound Stillness(std::chrono::milliseconds duration) {
    Sound sound;
    sound.resize(static_cast<std::size_t>(duration.count()) * 16);
    return sound;
}

Sound Joined(Sound first, const Sound& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

}  // namespace corvane::engine::testing
