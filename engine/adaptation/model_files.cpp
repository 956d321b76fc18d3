// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/model_files.h"

#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string_view>

namespace corvane::engine {
namespace {

constexpr std::string_view kEndOfHeader = "endhdr\n";
constexpr std::int32_t kOwnByteOrder = 0x11223344;

std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Takes a number off the front of a file's bytes, if it is this one.
bool TakeExpected(std::string_view& bytes, std::size_t expected) {
    std::int32_t number = 0;
    if (bytes.size() < sizeof number) return false;
    std::memcpy(&number, bytes.data(), sizeof number);
    bytes.remove_prefix(sizeof number);
    return number == static_cast<std::int32_t>(expected);
}

/// Takes a text with its length in front and a zero behind; an empty one has no zero.
bool TakeText(std::string_view& bytes, std::string_view& text) {
    std::int32_t length = 0;
    if (bytes.size() < sizeof length) return false;
    std::memcpy(&length, bytes.data(), sizeof length);
    bytes.remove_prefix(sizeof length);
    if (length < 0 || static_cast<std::size_t>(length) > bytes.size()) return false;
    text = bytes.substr(0, static_cast<std::size_t>(length));
    bytes.remove_prefix(text.size());
    return true;
}

}  // namespace

std::optional<std::vector<float>> ReadGaussianFile(const std::string& path,
                                                   const GaussianFileShape& shape) {
    const std::string content = Content(path);
    std::string_view bytes = content;
    const std::size_t header = bytes.find(kEndOfHeader);
    if (header == std::string_view::npos) return std::nullopt;
    bytes.remove_prefix(header + kEndOfHeader.size());

    bool fits = TakeExpected(bytes, kOwnByteOrder) && TakeExpected(bytes, shape.codebooks) &&
                TakeExpected(bytes, shape.streams) && TakeExpected(bytes, shape.densities);
    for (std::size_t i = 0; fits && i < shape.streams; ++i)
        fits = TakeExpected(bytes, shape.stream_size);
    const std::size_t count = shape.codebooks * shape.streams * shape.densities * shape.stream_size;
    if (!fits || !TakeExpected(bytes, count) || bytes.size() < count * sizeof(float))
        return std::nullopt;
    std::vector<float> values(count);
    std::memcpy(values.data(), bytes.data(), count * sizeof(float));
    for (const float value : values)
        if (!std::isfinite(value)) return std::nullopt;
    return values;
}

std::optional<std::vector<std::uint8_t>> ReadSenoneWeights(const std::string& path,
                                                           std::size_t streams,
                                                           std::size_t densities,
                                                           std::size_t senones) {
    const std::string content = Content(path);
    std::string_view bytes = content;
    std::string_view text;
    // A title and a header, then settings until an empty one.
    if (!TakeText(bytes, text) || !TakeText(bytes, text)) return std::nullopt;
    do {
        if (!TakeText(bytes, text)) return std::nullopt;
        // Weights in half bytes by way of a table are another kind of model.
        if (text.starts_with("cluster_count ") && !text.starts_with("cluster_count 0"))
            return std::nullopt;
    } while (!text.empty());
    const std::size_t count = streams * densities * senones;
    if (!TakeExpected(bytes, densities) || !TakeExpected(bytes, senones) || bytes.size() < count)
        return std::nullopt;
    std::vector<std::uint8_t> weights(count);
    std::memcpy(weights.data(), bytes.data(), count);
    return weights;
}

}  // namespace corvane::engine
