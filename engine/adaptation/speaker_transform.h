// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "engine/adaptation/feature_extractor.h"

struct ps_decoder_s;

namespace corvane::engine {

/// How one person's voice lies beside the voices of the acoustic model: each of the model's means m
/// becomes A m + b, in each stream on its own.
struct SpeakerTransform {
    struct Stream {
        std::array<StreamVector, kStreamSize> a{};  ///< by rows
        StreamVector b{};
    };
    std::array<Stream, kStreams> streams{};

    /// The one that changes nothing.
    [[nodiscard]] static SpeakerTransform Identity();

    [[nodiscard]] StreamVector Apply(std::size_t stream, const StreamVector& mean) const;
};

/// The transform as the decoder's library reads it, and behind that a line with the acoustic model
/// that it belongs to, which the library does not read.
[[nodiscard]] std::string WriteTransform(const SpeakerTransform& transform,
                                         const std::string& model);

/// Reads what WriteTransform wrote. Nothing if the text is not that to its last line, belongs to
/// another model, or holds numbers that no voice has; `why` says which.
[[nodiscard]] std::optional<SpeakerTransform> ReadTransform(const std::string& text,
                                                            const std::string& model,
                                                            std::string& why);

/// Tells acoustic models apart: a mark of the content of this one's means. Empty if they can't be
/// read.
[[nodiscard]] std::string MarkOfModel(const std::string& acoustic_model);

/// Has the decoder take the model's voices for this person's from its next utterance on, in place
/// of an earlier transform. False, and nothing has changed, when it can't.
[[nodiscard]] bool UseTransform(ps_decoder_s& decoder, const SpeakerTransform& transform);

}  // namespace corvane::engine
