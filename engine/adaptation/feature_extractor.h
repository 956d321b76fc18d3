// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

struct ps_decoder_s;

namespace corvane::engine {

/// The acoustic model sees a frame of 10 ms as three streams: cepstra, how they change, and how
/// that changes.
inline constexpr std::size_t kStreams = 3;
inline constexpr std::size_t kStreamSize = 13;
using StreamVector = std::array<float, kStreamSize>;
using FeatureFrame = std::array<StreamVector, kStreams>;

/// What the decoder makes of sound before it compares it with anything. For one thread at a time.
class FeatureExtractor {
public:
    /// Raises kAutomationError when the acoustic model in this folder can't be loaded.
    explicit FeatureExtractor(const std::string& acoustic_model);

    /// Frames of a whole utterance, prepared as for the search of commands; none of a model whose
    /// frames are not of the three streams.
    [[nodiscard]] std::vector<FeatureFrame> Extract(std::span<const std::int16_t> utterance) const;

private:
    struct FreeDecoder {
        void operator()(ps_decoder_s* decoder) const;
    };
    std::unique_ptr<ps_decoder_s, FreeDecoder> decoder_;
};

}  // namespace corvane::engine
