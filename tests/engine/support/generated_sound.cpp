// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "support/generated_sound.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace corvane::engine::testing {
namespace {

constexpr double kRate = 16000.0;
constexpr double kCircle = 2.0 * std::numbers::pi;
using Wave = std::vector<double>;

std::size_t SamplesOf(std::chrono::milliseconds duration) {
    return static_cast<std::size_t>(duration.count()) * 16;
}

/// A resonance of a mouth or a table.
void Resonate(Wave& wave, double frequency, double bandwidth) {
    const double radius = std::exp(-std::numbers::pi * bandwidth / kRate);
    const double a1 = 2.0 * radius * std::cos(kCircle * frequency / kRate);
    const double a2 = -radius * radius;
    double last = 0.0, before = 0.0;
    for (double& sample : wave) {
        sample += a1 * last + a2 * before;
        before = last;
        last = sample;
    }
}

Sound Scaled(const Wave& wave, double rms) {
    double squares = 0.0;
    for (const double sample : wave) squares += sample * sample;
    const double gain = rms / std::sqrt(squares / static_cast<double>(wave.size()));
    Sound sound(wave.size());
    std::ranges::transform(wave, sound.begin(), [gain](double sample) {
        return static_cast<std::int16_t>(std::clamp(gain * sample, -32768.0, 32767.0));
    });
    return sound;
}

}  // namespace

Sound GeneratedSound::Noise(Milliseconds duration, double rms, double offset) {
    std::normal_distribution<double> noise(offset, rms);
    Sound sound(SamplesOf(duration));
    for (std::int16_t& sample : sound)
        sample = static_cast<std::int16_t>(std::clamp(noise(random_), -32768.0, 32767.0));
    return sound;
}

Sound GeneratedSound::Vowels(Milliseconds duration, double rms, double syllables_a_second,
                             double depth) {
    Wave wave(SamplesOf(duration));
    double turn = 0.0;
    for (std::size_t i = 0; i < wave.size(); ++i) {
        const double time = static_cast<double>(i) / kRate;
        turn += (110.0 + 15.0 * std::sin(kCircle * 0.7 * time)) / kRate;
        if (turn < 1.0) continue;
        turn -= 1.0;  // one pulse of the vocal cords
        wave[i] = 1.0;
    }
    Resonate(wave, 600.0, 90.0);
    Resonate(wave, 1500.0, 120.0);
    for (std::size_t i = 0; i < wave.size(); ++i) {
        const double turns = syllables_a_second * static_cast<double>(i) / kRate;
        wave[i] *= 1.0 - depth * (0.5 + 0.5 * std::cos(kCircle * turns));
    }
    return Scaled(wave, rms);
}

Sound GeneratedSound::Voice(Milliseconds duration, double rms) {
    return Vowels(duration, rms, 5.0, 0.95);
}

Sound GeneratedSound::HeldVowel(Milliseconds duration, double rms) {
    return Vowels(duration, rms, 2.0, 0.45);
}

Sound GeneratedSound::Hum(Milliseconds duration, double rms, double frequency) {
    Wave wave(SamplesOf(duration));
    for (std::size_t i = 0; i < wave.size(); ++i)
        for (const int harmonic : {1, 2, 3, 5, 7})
            wave[i] += std::sin(kCircle * frequency * harmonic * static_cast<double>(i) / kRate) /
                       harmonic;
    return Scaled(wave, rms);
}

Sound GeneratedSound::Knock(Milliseconds duration, double peak) {
    std::normal_distribution<double> noise(0.0, 0.3);
    Sound sound(SamplesOf(duration));
    const double fading = 5.0 / static_cast<double>(sound.size());
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const auto at = static_cast<double>(i);
        const double body = std::sin(kCircle * 220.0 * at / kRate) + noise(random_);
        sound[i] = static_cast<std::int16_t>(
            std::clamp(peak * std::exp(-fading * at) * body, -32768.0, 32767.0));
    }
    return sound;
}

Sound GeneratedSound::Typing(Milliseconds duration, double peak) {
    using std::chrono_literals::operator""ms;
    std::uniform_int_distribution<int> pause(80, 140);
    Sound sound;
    while (sound.size() < SamplesOf(duration)) {
        sound = Joined(std::move(sound), Noise(8ms, peak));
        sound = Joined(std::move(sound), Stillness(Milliseconds(pause(random_) / 2)));
        sound = Joined(std::move(sound), Noise(5ms, peak / 3.0));
        sound = Joined(std::move(sound), Stillness(Milliseconds(pause(random_) / 2)));
    }
    sound.resize(SamplesOf(duration));
    return sound;
}

Sound GeneratedSound::Breath(Milliseconds duration, double rms) {
    std::normal_distribution<double> noise;
    Wave wave(SamplesOf(duration));
    for (double& sample : wave) sample = noise(random_);
    Resonate(wave, 900.0, 600.0);
    Resonate(wave, 1800.0, 800.0);
    for (std::size_t i = 0; i < wave.size(); ++i)
        wave[i] *=
            std::sin(std::numbers::pi * static_cast<double>(i) / static_cast<double>(wave.size()));
    return Scaled(wave, rms);
}

Sound Mixed(Sound one, const Sound& other) {
    one.resize(std::max(one.size(), other.size()));
    for (std::size_t i = 0; i < other.size(); ++i)
        one[i] = static_cast<std::int16_t>(std::clamp(one[i] + other[i], -32768, 32767));
    return one;
}

}  // namespace corvane::engine::testing
