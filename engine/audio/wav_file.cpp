// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/audio/wav_file.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "engine/audio/audio_source.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

constexpr std::uint32_t kPcm = 1;
constexpr std::uint32_t kExtensible = 0xFFFE;

/// Little-endian number of `bytes` bytes at `offset`.
std::uint32_t Number(std::string_view content, std::size_t offset, std::size_t bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = bytes; i-- > 0;)
        number = number << 8 | static_cast<unsigned char>(content[offset + i]);
    return number;
}

void AppendNumber(std::string& content, std::uint32_t number, std::size_t bytes) {
    for (std::size_t i = 0; i < bytes; ++i) content += static_cast<char>(number >> (8 * i) & 0xFFU);
}

[[noreturn]] void Refuse(const std::string& reason) {
    throw RuntimeError(kAutomationError, "Not a usable WAV file: " + reason);
}

void CheckFormat(std::string_view format) {
    if (format.size() < 16) Refuse("its format is cut short");
    const std::uint32_t coding = Number(format, 0, 2);
    if (coding != kPcm && coding != kExtensible) Refuse("it is not PCM");
    if (Number(format, 2, 2) != 1) Refuse("it has more than one channel");
    if (Number(format, 4, 4) != kSampleRate) Refuse("it has not 16000 samples a second");
    if (Number(format, 14, 2) != 16) Refuse("its samples have not 16 bits");
}

}  // namespace

std::vector<std::int16_t> ParseWav(std::string_view content) {
    constexpr std::size_t kChunkHead = 8;
    if (!content.starts_with("RIFF") || content.size() < 12 || content.substr(8, 4) != "WAVE")
        Refuse("it has no RIFF WAVE head");
    content.remove_prefix(12);
    bool format_known = false;
    while (content.size() >= kChunkHead) {
        const std::string_view name = content.substr(0, 4);
        const std::size_t size = Number(content, 4, 4);
        const std::string_view chunk = content.substr(kChunkHead, size);
        if (name == "fmt ") {
            CheckFormat(chunk);
            format_known = true;
        } else if (name == "data") {
            if (!format_known) Refuse("its sound comes before its format");
            std::vector<std::int16_t> samples(chunk.size() / 2);
            for (std::size_t i = 0; i < samples.size(); ++i)
                samples[i] = static_cast<std::int16_t>(Number(chunk, 2 * i, 2));
            return samples;
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
