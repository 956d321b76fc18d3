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

}  // namespace corvane::engine
