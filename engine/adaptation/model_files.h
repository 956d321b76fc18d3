// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The acoustic model's files of numbers, of a machine of our own byte order.
namespace corvane::engine {

struct GaussianFileShape {
    std::size_t codebooks = 0;
    std::size_t streams = 0;
    std::size_t densities = 0;    ///< Gaussians of a codebook in a stream
    std::size_t stream_size = 0;  ///< coefficients, as many in each stream
};

/// Means or variances: codebook by codebook, stream by stream, density by density. Nothing if the
/// file is not of this shape.
[[nodiscard]] std::optional<std::vector<float>> ReadGaussianFile(const std::string& path,
                                                                 const GaussianFileShape& shape);

/// How much of each Gaussian each senone has, as negated logarithms: stream by stream, density by
/// density, senone by senone. Nothing if the file is not of this shape.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> ReadSenoneWeights(const std::string& path,
                                                                         std::size_t streams,
                                                                         std::size_t densities,
                                                                         std::size_t senones);

}  // namespace corvane::engine
