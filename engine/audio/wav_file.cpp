// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/audio/wav_file.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <fstream>
#include <sstream>

#include "engine/audio/audio_source.h"
#include "engine/audio/resample.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

enum Coding : std::uint32_t { kPcm = 1, kFloat = 3, kExtensible = 0xFFFE };

struct Format {
    std::uint32_t coding = 0;
    std::uint32_t channels = 0;
    std::uint32_t rate = 0;
    std::uint32_t bits = 0;

    [[nodiscard]] std::size_t SampleBytes() const { return bits / 8; }
    [[nodiscard]] std::size_t FrameBytes() const { return SampleBytes() * channels; }
};

/// Little-endian number of `bytes` bytes at `offset`.
std::uint64_t Number(std::string_view content, std::size_t offset, std::size_t bytes) {
    std::uint64_t number = 0;
    for (std::size_t i = bytes; i-- > 0;)
        number = number << 8 | static_cast<unsigned char>(content[offset + i]);
    return number;
}

std::uint32_t ShortNumber(std::string_view content, std::size_t offset, std::size_t bytes) {
    return static_cast<std::uint32_t>(Number(content, offset, bytes));
}

void AppendNumber(std::string& content, std::uint32_t number, std::size_t bytes) {
    for (std::size_t i = 0; i < bytes; ++i) content += static_cast<char>(number >> (8 * i) & 0xFFU);
}

[[noreturn]] void Refuse(const std::string& reason) {
    throw RuntimeError(kAutomationError, "Not a usable WAV file: " + reason);
}

Format FormatOf(std::string_view chunk) {
    constexpr std::size_t kPlain = 16;
    constexpr std::size_t kSubformat = 24;
    if (chunk.size() < kPlain) Refuse("its format is cut short");
    Format format{.coding = ShortNumber(chunk, 0, 2),
                  .channels = ShortNumber(chunk, 2, 2),
                  .rate = ShortNumber(chunk, 4, 4),
                  .bits = ShortNumber(chunk, 14, 2)};
    if (format.coding == kExtensible) {
        if (chunk.size() < kSubformat + 2) Refuse("its format is cut short");
        format.coding = ShortNumber(chunk, kSubformat, 2);
    }
    const bool whole = format.coding == kPcm && (format.bits == 8 || format.bits == 16 ||
                                                 format.bits == 24 || format.bits == 32);
    const bool real = format.coding == kFloat && (format.bits == 32 || format.bits == 64);
    if (format.coding != kPcm && format.coding != kFloat)
        Refuse("its sound is compressed (coding " + std::to_string(format.coding) + ")");
    if (!whole && !real) Refuse("its samples have " + std::to_string(format.bits) + " bits");
    if (format.channels < 1 || format.channels > 8)
        Refuse("it has " + std::to_string(format.channels) + " channels");
    if (format.rate < 4000 || format.rate > 192000)
        Refuse("it has " + std::to_string(format.rate) + " samples a second");
    return format;
}

/// A sample in steps of 16 bits.
double Sample(std::string_view data, std::size_t offset, const Format& format) {
    const std::uint64_t raw = Number(data, offset, format.SampleBytes());
    if (format.coding == kFloat) {
        const double value = format.bits == 32
                                 ? std::bit_cast<float>(static_cast<std::uint32_t>(raw))
                                 : std::bit_cast<double>(raw);
        return std::isfinite(value) ? 32768.0 * value : 0.0;
    }
    // Eight bits alone are counted from 0.
    if (format.bits == 8) return 256.0 * (static_cast<double>(raw) - 128.0);
    const auto left_aligned = static_cast<std::int32_t>(raw << (32 - format.bits));
    return left_aligned / 65536.0;
}

std::vector<std::int16_t> SamplesOf(std::string_view data, const Format& format) {
    const std::size_t frames = data.size() / format.FrameBytes();
    std::vector<double> sound(frames);
    for (std::size_t frame = 0; frame < frames; ++frame) {
        double sum = 0.0;
        for (std::size_t channel = 0; channel < format.channels; ++channel)
            sum +=
                Sample(data, frame * format.FrameBytes() + channel * format.SampleBytes(), format);
        sound[frame] = sum / format.channels;
    }
    sound = Resample(sound, static_cast<int>(format.rate), kSampleRate);
    std::vector<std::int16_t> samples(sound.size());
    std::ranges::transform(sound, samples.begin(), [](double sample) {
        return static_cast<std::int16_t>(std::lround(std::clamp(sample, -32768.0, 32767.0)));
    });
    return samples;
}

}  // namespace

std::vector<std::int16_t> ParseWav(std::string_view content) {
    constexpr std::size_t kChunkHead = 8;
    if (!content.starts_with("RIFF") || content.size() < 12 || content.substr(8, 4) != "WAVE")
        Refuse("it has no RIFF WAVE head");
    content.remove_prefix(12);
    Format format;
    while (content.size() >= kChunkHead) {
        const std::string_view name = content.substr(0, 4);
        const std::size_t size = ShortNumber(content, 4, 4);
        const std::string_view chunk = content.substr(kChunkHead, size);
        if (name == "fmt ") {
            format = FormatOf(chunk);
        } else if (name == "data") {
            if (format.coding == 0) Refuse("its sound comes before its format");
            return SamplesOf(chunk, format);
        }
        // Chunks are padded to even lengths.
        content.remove_prefix(std::min(content.size(), kChunkHead + size + size % 2));
    }
    Refuse("it has no sound");
}

std::vector<std::int16_t> ReadWavFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw RuntimeError(kFileNotFound, "There is no sound file " + path);
    std::ostringstream content;
    content << file.rdbuf();
    return ParseWav(content.view());
}

void WriteWavFile(const std::string& path, std::span<const std::int16_t> samples, int rate) {
    constexpr std::uint32_t kSampleBytes = 2;
    constexpr std::uint32_t kHeadBytes = 36;
    if (samples.size() > (0xFFFFFFFFU - kHeadBytes) / kSampleBytes)
        throw RuntimeError(kAutomationError, "Too much sound for a WAV file");
    const auto data_bytes = static_cast<std::uint32_t>(samples.size()) * kSampleBytes;
    const auto samples_a_second = static_cast<std::uint32_t>(rate);
    std::string content = "RIFF";
    AppendNumber(content, kHeadBytes + data_bytes, 4);
    content += "WAVEfmt ";
    AppendNumber(content, 16, 4);
    AppendNumber(content, kPcm, 2);
    AppendNumber(content, 1, 2);
    AppendNumber(content, samples_a_second, 4);
    AppendNumber(content, samples_a_second * kSampleBytes, 4);
    AppendNumber(content, kSampleBytes, 2);
    AppendNumber(content, 8 * kSampleBytes, 2);
    content += "data";
    AppendNumber(content, data_bytes, 4);
    for (const std::int16_t sample : samples)
        AppendNumber(content, static_cast<std::uint16_t>(sample), kSampleBytes);
    std::ofstream file(path, std::ios::binary);
    if (!(file << content << std::flush))
        throw RuntimeError(kPermissionDenied, "Cannot write the sound file " + path);
}

}  // namespace corvane::engine
