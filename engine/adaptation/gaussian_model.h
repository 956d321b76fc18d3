// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/adaptation/feature_extractor.h"
#include "engine/adaptation/speaker_transform.h"
#include "engine/recogniser/model_definition.h"
#include "engine/recogniser/senone_scores.h"

namespace corvane::engine {

/// The sounds of an acoustic model whose senones of one phone share that phone's codebook: in each
/// stream 128 Gaussians, of which a senone has so much each.
class GaussianModel {
public:
    static constexpr std::size_t kDensities = 128;
    using Weights = std::array<float, kDensities>;

    /// A codebook's Gaussians in one stream, coefficient by coefficient.
    struct Codebook {
        std::array<std::array<float, kDensities>, kStreamSize> means{};
        std::array<std::array<float, kDensities>, kStreamSize> precisions{};  ///< 1 / variance
        std::array<float, kDensities> norms{};  ///< log density at the mean
    };

    /// Reads "means", "variances" and "sendump" of the model's folder; nothing if they are not of
    /// this kind or don't fit the definition.
    [[nodiscard]] static std::optional<GaussianModel> Load(const std::string& acoustic_model,
                                                           const ModelDefinition& definition);

    /// With each mean where this person has it.
    [[nodiscard]] GaussianModel Adapted(const SpeakerTransform& transform) const;

    /// What each senone costs in each frame, as the decoder reckons: by its four best Gaussians.
    [[nodiscard]] SenoneScores Score(std::span<const FeatureFrame> frames) const;

    [[nodiscard]] std::size_t Codebooks() const { return codebooks_.size() / kStreams; }
    [[nodiscard]] std::size_t CodebookOf(std::uint16_t senone) const { return owners_[senone]; }
    [[nodiscard]] const Codebook& Gaussians(std::size_t codebook, std::size_t stream) const {
        return codebooks_[codebook * kStreams + stream];
    }
    /// Log densities of all Gaussians there.
    [[nodiscard]] Weights LogDensities(std::size_t codebook, std::size_t stream,
                                       const StreamVector& feature) const;
    /// How much of the Gaussian a senone has, 0 to 1.
    [[nodiscard]] float Weight(std::uint16_t senone, std::size_t stream, std::size_t density) const;

private:
    [[nodiscard]] bool ReadGaussians(const std::string& acoustic_model);
    [[nodiscard]] bool ReadWeights(const std::string& acoustic_model);
    void FindOwners(const ModelDefinition& definition);
    void ScoreFrame(const FeatureFrame& frame, std::span<std::int16_t> costs) const;

    std::size_t senones_ = 0;
    std::vector<Codebook> codebooks_;
    std::vector<std::uint8_t> owners_;   ///< by senone: its codebook
    std::vector<std::uint8_t> weights_;  ///< by senone, stream and density: a log, see Weight
};

}  // namespace corvane::engine
