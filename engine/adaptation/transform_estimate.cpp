// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/transform_estimate.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

namespace corvane::engine {
namespace {

// A mean with a one in front, so that b is A's first column.
constexpr std::size_t kExtended = kStreamSize + 1;
using Extended = std::array<double, kExtended>;

/// G w = k for one row w of (b, A): Leggetter's and Woodland's equations for diagonal variances.
struct RowEquations {
    std::array<Extended, kExtended> g{};
    Extended k{};
};

/// Cholesky's way for a symmetric, positive definite G; nothing if it is none.
std::optional<Extended> Solve(RowEquations equations) {
    auto& g = equations.g;
    for (std::size_t i = 0; i < kExtended; ++i) {
        for (std::size_t j = 0; j <= i; ++j) {
            double rest = g[i][j];
            for (std::size_t n = 0; n < j; ++n) rest -= g[i][n] * g[j][n];
            if (i != j) {
                g[i][j] = rest / g[j][j];
            } else {
                if (!(rest > 0.0)) return std::nullopt;
                g[i][i] = std::sqrt(rest);
            }
        }
    }
    Extended w = equations.k;
    for (std::size_t i = 0; i < kExtended; ++i) {
        for (std::size_t n = 0; n < i; ++n) w[i] -= g[i][n] * w[n];
        w[i] /= g[i][i];
    }
    for (std::size_t i = kExtended; i-- > 0;) {
        for (std::size_t n = i + 1; n < kExtended; ++n) w[i] -= g[n][i] * w[n];
        w[i] /= g[i][i];
    }
    return w;
}

}  // namespace

VoiceStatistics::VoiceStatistics(const GaussianModel& model)
    : heard_(model.Codebooks() * kStreams * GaussianModel::kDensities) {}

void VoiceStatistics::Add(std::span<const FeatureFrame> frames, std::span<const SaidSenone> said,
                          const GaussianModel& model) {
    for (const SaidSenone& one : said) {
        const std::size_t codebook = model.CodebookOf(one.senone);
        for (std::size_t stream = 0; stream < kStreams; ++stream) {
            const StreamVector& feature = frames[one.frame][stream];
            GaussianModel::Weights shares = model.LogDensities(codebook, stream, feature);
            const float most = std::ranges::max(shares);
            for (std::size_t density = 0; density < shares.size(); ++density)
                shares[density] =
                    std::exp(shares[density] - most) * model.Weight(one.senone, stream, density);
            const float all = std::accumulate(shares.begin(), shares.end(), 0.0F);
            if (!(all > 0.0F)) continue;
            Heard* heard = &heard_[(codebook * kStreams + stream) * GaussianModel::kDensities];
            for (std::size_t density = 0; density < shares.size(); ++density) {
                const double share = shares[density] / all;
                heard[density].often += share;
                for (std::size_t i = 0; i < kStreamSize; ++i)
                    heard[density].sum[i] += share * feature[i];
            }
        }
        frames_ += 1.0;
    }
}

void VoiceStatistics::Add(const VoiceStatistics& other) {
    for (std::size_t i = 0; i < heard_.size(); ++i) {
        heard_[i].often += other.heard_[i].often;
        for (std::size_t n = 0; n < kStreamSize; ++n) heard_[i].sum[n] += other.heard_[i].sum[n];
    }
    frames_ += other.frames_;
}

SpeakerTransform VoiceStatistics::Estimate(const GaussianModel& model, double prior_frames) const {
    constexpr std::size_t kDensities = GaussianModel::kDensities;
    const double prior = prior_frames / static_cast<double>(model.Codebooks() * kDensities);
    SpeakerTransform transform = SpeakerTransform::Identity();
    for (std::size_t stream = 0; stream < kStreams; ++stream) {
        std::array<RowEquations, kStreamSize> rows{};
        for (std::size_t codebook = 0; codebook < model.Codebooks(); ++codebook) {
            const GaussianModel::Codebook& gaussians = model.Gaussians(codebook, stream);
            for (std::size_t density = 0; density < kDensities; ++density) {
                const Heard& heard = heard_[(codebook * kStreams + stream) * kDensities + density];
                const double often = heard.often + prior;
                if (often <= 0.0) continue;
                Extended mean{1.0};
                for (std::size_t i = 0; i < kStreamSize; ++i)
                    mean[i + 1] = gaussians.means[i][density];
                std::array<Extended, kExtended> square{};
                for (std::size_t i = 0; i < kExtended; ++i)
                    for (std::size_t j = 0; j <= i; ++j) square[i][j] = mean[i] * mean[j];
                for (std::size_t row = 0; row < kStreamSize; ++row) {
                    const double precision = gaussians.precisions[row][density];
                    const double sum = heard.sum[row] + prior * mean[row + 1];
                    for (std::size_t i = 0; i < kExtended; ++i) {
                        rows[row].k[i] += precision * sum * mean[i];
                        for (std::size_t j = 0; j <= i; ++j)
                            rows[row].g[i][j] += precision * often * square[i][j];
                    }
                }
            }
        }
        // A stream in which too little was heard stays as it is.
        SpeakerTransform::Stream found;
        bool whole = true;
        for (std::size_t row = 0; row < kStreamSize && whole; ++row) {
            const auto w = Solve(rows[row]);
            whole = w.has_value();
            if (!w) continue;
            found.b[row] = static_cast<float>((*w)[0]);
            for (std::size_t i = 0; i < kStreamSize; ++i)
                found.a[row][i] = static_cast<float>((*w)[i + 1]);
        }
        if (whole) transform.streams[stream] = found;
    }
    return transform;
}

}  // namespace corvane::engine
