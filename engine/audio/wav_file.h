// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::engine {

/// The samples of a WAV file: 16-bit PCM, 16 kHz, one channel; anything else is refused, since a
/// poor conversion would be taken for a poor recogniser. Chunks that are no sound are passed over;
/// a file cut short gives what is there.
///
/// Raises kFileNotFound when there is no such file, kAutomationError when it is of another kind.
[[nodiscard]] std::vector<std::int16_t> ReadWavFile(const std::string& path);

/// As ReadWavFile, of a file's content.
[[nodiscard]] std::vector<std::int16_t> ParseWav(std::string_view content);

/// Writes samples of one channel as a 16-bit PCM file, in place of any that is there.
///
/// Raises kPermissionDenied when it can't be written, kAutomationError when it would be longer than
/// such a file can be (about 4 GB).
void WriteWavFile(const std::string& path, std::span<const std::int16_t> samples, int rate);

}  // namespace corvane::engine
