// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::engine {

/// The sound of a WAV file as the engine hears it: 16 kHz, one channel, the mean of all there are.
///
/// It may have 4,000 to 192,000 samples a second, 1 to 8 channels, and samples of 8, 16, 24 or 32
/// bits or floating-point ones of 32 or 64. Samples of 16 bits in one channel at 16 kHz are taken
/// as they are. Chunks that are no sound are passed over; a file cut short gives what is there.
///
/// Raises kFileNotFound when there is no such file, kAutomationError, with the reason as its text,
/// when it is of another kind.
[[nodiscard]] std::vector<std::int16_t> ReadWavFile(const std::string& path);

/// As ReadWavFile, of a file's content.
[[nodiscard]] std::vector<std::int16_t> ParseWav(std::string_view content);

/// Writes samples of one channel as a 16-bit PCM file, in place of any that is there.
///
/// Raises kPermissionDenied when it can't be written, kAutomationError when it would be longer than
/// such a file can be (about 4 GB).
void WriteWavFile(const std::string& path, std::span<const std::int16_t> samples, int rate);

}  // namespace corvane::engine
