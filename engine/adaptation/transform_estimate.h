// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <span>
#include <vector>

#include "engine/adaptation/feature_extractor.h"
#include "engine/adaptation/gaussian_model.h"
#include "engine/adaptation/speaker_transform.h"

namespace corvane::engine {

/// Which senone was said in a frame.
struct SaidSenone {
    std::size_t frame = 0;
    std::uint16_t senone = 0;
};

/// What was heard of one person's sounds, Gaussian by Gaussian, and the transform that fits it
/// best: maximum likelihood linear regression of the means, after C. J. Leggetter and P. C.
/// Woodland, "Maximum likelihood linear regression for speaker adaptation of continuous density
/// hidden Markov models", Computer Speech and Language 9 (1995), one class of sounds, full matrices
/// a stream.
class VoiceStatistics {
public:
    explicit VoiceStatistics(const GaussianModel& model);

    /// `model` says how likely each Gaussian was; the statistics stay those of the model that they
    /// were made with, so an adapted one may stand in for it.
    void Add(std::span<const FeatureFrame> frames, std::span<const SaidSenone> said,
             const GaussianModel& model);
    void Add(const VoiceStatistics& other);

    /// Frames that were added.
    [[nodiscard]] double Frames() const { return frames_; }

    /// The transform, drawn to the one that changes nothing as if so many frames had been heard in
    /// which every Gaussian was said equally often and exactly as the model has it: with little
    /// read, little is changed.
    [[nodiscard]] SpeakerTransform Estimate(const GaussianModel& model, double prior_frames) const;

private:
    struct Heard {
        double often = 0.0;
        std::array<double, kStreamSize> sum{};
    };
    std::vector<Heard> heard_;  ///< by codebook, stream and density
    double frames_ = 0.0;
};

}  // namespace corvane::engine
