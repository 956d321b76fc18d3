// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/gaussian_model.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "engine/adaptation/model_files.h"

namespace corvane::engine {
namespace {

// The decoder reckons with logarithms to the base 1.0001, 1024 of them a unit.
const float kScoreUnit = 1024.0F * std::log(1.0001F);

// As the decoder does: a variance below that is no variance, and further Gaussians say little.
constexpr float kLeastVariance = 1e-4F;
constexpr std::size_t kBest = 4;

/// A codebook's best Gaussians for one feature.
struct Best {
    std::array<std::uint8_t, kBest> density{};
    std::array<float, kBest> likelihood{};  ///< relative to the best one's
    float best = 0.0F;                      ///< its log density
};

Best BestOf(const GaussianModel::Weights& log_densities) {
    Best best;
    std::array<float, kBest> values;
    values.fill(-std::numeric_limits<float>::max());
    for (std::size_t i = 0; i < log_densities.size(); ++i) {
        if (log_densities[i] <= values.back()) continue;
        std::size_t place = kBest - 1;
        for (; place > 0 && values[place - 1] < log_densities[i]; --place) {
            values[place] = values[place - 1];
            best.density[place] = best.density[place - 1];
        }
        values[place] = log_densities[i];
        best.density[place] = static_cast<std::uint8_t>(i);
    }
    best.best = values.front();
    std::ranges::transform(values, best.likelihood.begin(),
                           [&](float value) { return std::exp(value - best.best); });
    return best;
}

/// By the file's byte.
const std::array<float, 256>& WeightTable() {
    static const auto kTable = [] {
        std::array<float, 256> table{};
        for (std::size_t i = 0; i < table.size(); ++i)
            table[i] = std::exp(-kScoreUnit * static_cast<float>(i));
        return table;
    }();
    return kTable;
}

}  // namespace

std::optional<GaussianModel> GaussianModel::Load(const std::string& acoustic_model,
                                                 const ModelDefinition& definition) {
    GaussianModel model;
    model.senones_ = definition.Senones();
    model.codebooks_.resize(definition.Phones() * kStreams);
    if (!model.ReadGaussians(acoustic_model) || !model.ReadWeights(acoustic_model))
        return std::nullopt;
    model.FindOwners(definition);
    return model;
}

bool GaussianModel::ReadGaussians(const std::string& acoustic_model) {
    const GaussianFileShape shape{.codebooks = Codebooks(),
                                  .streams = kStreams,
                                  .densities = kDensities,
                                  .stream_size = kStreamSize};
    const auto means = ReadGaussianFile(acoustic_model + "/means", shape);
    const auto variances = ReadGaussianFile(acoustic_model + "/variances", shape);
    if (!means || !variances) return false;
    std::size_t value = 0;
    for (Codebook& codebook : codebooks_) {
        for (std::size_t density = 0; density < kDensities; ++density) {
            double log_spread = static_cast<double>(kStreamSize) * std::log(2.0 * std::numbers::pi);
            for (std::size_t i = 0; i < kStreamSize; ++i, ++value) {
                const float variance = std::max((*variances)[value], kLeastVariance);
                codebook.means[i][density] = (*means)[value];
                codebook.precisions[i][density] = 1.0F / variance;
                log_spread += std::log(static_cast<double>(variance));
            }
            codebook.norms[density] = static_cast<float>(-0.5 * log_spread);
        }
    }
    return true;
}

bool GaussianModel::ReadWeights(const std::string& acoustic_model) {
    const auto bytes =
        ReadSenoneWeights(acoustic_model + "/sendump", kStreams, kDensities, senones_);
    if (!bytes) return false;
    // The file has one Gaussian of all senones after the other.
    weights_.resize(bytes->size());
    for (std::size_t part = 0; part < kStreams * kDensities; ++part)
        for (std::size_t senone = 0; senone < senones_; ++senone)
            weights_[senone * kStreams * kDensities + part] = (*bytes)[part * senones_ + senone];
    return true;
}

/// A senone belongs to one phone, whatever stands beside it.
void GaussianModel::FindOwners(const ModelDefinition& definition) {
    using Position = ModelDefinition::Position;
    owners_.resize(senones_);
    const std::size_t phones = definition.Phones();
    for (std::size_t phone = 0; phone < phones; ++phone) {
        const auto own = [&](const ModelDefinition::States& states) {
            for (const std::uint16_t senone : states)
                owners_[senone] = static_cast<std::uint8_t>(phone);
        };
        own(definition.Alone(phone));
        for (const Position position :
             {Position::inside, Position::first, Position::last, Position::only})
            for (std::size_t before = 0; before < phones; ++before)
                for (std::size_t after = 0; after < phones; ++after)
                    own(definition.Between(before, phone, after, position));
    }
}

GaussianModel GaussianModel::Adapted(const SpeakerTransform& transform) const {
    GaussianModel adapted = *this;
    for (std::size_t part = 0; part < codebooks_.size(); ++part) {
        Codebook& codebook = adapted.codebooks_[part];
        for (std::size_t density = 0; density < kDensities; ++density) {
            StreamVector mean{};
            for (std::size_t i = 0; i < kStreamSize; ++i) mean[i] = codebook.means[i][density];
            mean = transform.Apply(part % kStreams, mean);
            for (std::size_t i = 0; i < kStreamSize; ++i) codebook.means[i][density] = mean[i];
        }
    }
    return adapted;
}

GaussianModel::Weights GaussianModel::LogDensities(std::size_t codebook, std::size_t stream,
                                                   const StreamVector& feature) const {
    const Codebook& gaussians = Gaussians(codebook, stream);
    Weights distances{};
    for (std::size_t i = 0; i < kStreamSize; ++i) {
        const auto& means = gaussians.means[i];
        const auto& precisions = gaussians.precisions[i];
        const float value = feature[i];
        for (std::size_t density = 0; density < kDensities; ++density) {
            const float apart = value - means[density];
            distances[density] += apart * apart * precisions[density];
        }
    }
    for (std::size_t density = 0; density < kDensities; ++density)
        distances[density] = gaussians.norms[density] - 0.5F * distances[density];
    return distances;
}

float GaussianModel::Weight(std::uint16_t senone, std::size_t stream, std::size_t density) const {
    return WeightTable()[weights_[(senone * kStreams + stream) * kDensities + density]];
}

SenoneScores GaussianModel::Score(std::span<const FeatureFrame> frames) const {
    SenoneScores scores{.senones = senones_, .costs = {}};
    scores.costs.resize(frames.size() * senones_);
    for (std::size_t i = 0; i < frames.size(); ++i)
        ScoreFrame(frames[i], std::span(scores.costs).subspan(i * senones_, senones_));
    return scores;
}

void GaussianModel::ScoreFrame(const FeatureFrame& frame, std::span<std::int16_t> costs) const {
    std::vector<Best> best(codebooks_.size());
    for (std::size_t part = 0; part < codebooks_.size(); ++part)
        best[part] = BestOf(LogDensities(part / kStreams, part % kStreams, frame[part % kStreams]));

    const auto& table = WeightTable();
    std::vector<float> logs(senones_);
    for (std::size_t senone = 0; senone < senones_; ++senone) {
        const Best* own = &best[owners_[senone] * kStreams];
        const std::uint8_t* weights = &weights_[senone * kStreams * kDensities];
        double product = 1.0;
        float scale = 0.0F;
        for (std::size_t stream = 0; stream < kStreams; ++stream) {
            float sum = 0.0F;
            for (std::size_t i = 0; i < kBest; ++i)
                sum += own[stream].likelihood[i] *
                       table[weights[stream * kDensities + own[stream].density[i]]];
            product *= static_cast<double>(sum);
            scale += own[stream].best;
        }
        logs[senone] = scale + static_cast<float>(std::log(product));
    }
    const float most = std::ranges::max(logs);
    std::ranges::transform(logs, costs.begin(), [most](float log) {
        return static_cast<std::int16_t>(std::min((most - log) / kScoreUnit, 32767.0F));
    });
}

}  // namespace corvane::engine
