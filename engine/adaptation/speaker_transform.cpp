// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/speaker_transform.h"

#include <pocketsphinx.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cmath>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <limits>
#include <locale>
#include <sstream>

namespace corvane::engine {
namespace {

constexpr const char* kModelLine = "model";

// Cepstra lie within some hundreds of zero, and no voice turns one into a thousand times another.
// Beyond that a file was not made by reading sentences aloud.
constexpr float kLargest = 1000.0F;

bool TakeNumber(std::istream& text, float& number) {
    // The stream itself would read "nan", if the library does at all, as nothing: either way it is
    // no number here.
    return static_cast<bool>(text >> number) && std::isfinite(number) &&
           std::abs(number) <= kLargest;
}

bool TakeCount(std::istream& text, std::size_t expected) {
    long long count = 0;
    return static_cast<bool>(text >> count) && count == static_cast<long long>(expected);
}

bool TakeVector(std::istream& text, StreamVector& numbers) {
    for (float& number : numbers)
        if (!TakeNumber(text, number)) return false;
    return true;
}

/// The variances' factors, which all are 1: only means are moved.
bool TakeOnes(std::istream& text) {
    StreamVector factors{};
    if (!TakeVector(text, factors)) return false;
    for (const float factor : factors)
        if (factor != 1.0F) return false;
    return true;
}

void Put(std::ostream& text, const StreamVector& numbers) {
    for (const float number : numbers) text << ' ' << number;
    text << '\n';
}

}  // namespace

SpeakerTransform SpeakerTransform::Identity() {
    SpeakerTransform transform;
    for (Stream& stream : transform.streams)
        for (std::size_t i = 0; i < kStreamSize; ++i) stream.a[i][i] = 1.0F;
    return transform;
}

StreamVector SpeakerTransform::Apply(std::size_t stream, const StreamVector& mean) const {
    StreamVector moved = streams[stream].b;
    for (std::size_t row = 0; row < kStreamSize; ++row)
        for (std::size_t i = 0; i < kStreamSize; ++i)
            moved[row] += streams[stream].a[row][i] * mean[i];
    return moved;
}

std::string WriteTransform(const SpeakerTransform& transform, const std::string& model) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::setprecision(std::numeric_limits<float>::max_digits10);
    StreamVector ones{};
    ones.fill(1.0F);
    text << "1\n" << kStreams << '\n';  // one class of sounds
    for (const SpeakerTransform::Stream& stream : transform.streams) {
        text << kStreamSize << '\n';
        for (const StreamVector& row : stream.a) Put(text, row);
        Put(text, stream.b);
        Put(text, ones);
    }
    text << kModelLine << ' ' << model << '\n';
    return text.str();
}

std::optional<SpeakerTransform> ReadTransform(const std::string& text, const std::string& model,
                                              std::string& why) {
    std::istringstream rest(text);
    rest.imbue(std::locale::classic());
    SpeakerTransform transform;
    if (!TakeCount(rest, 1) || !TakeCount(rest, kStreams)) {
        why = "it does not begin as a voice does";
        return std::nullopt;
    }
    for (SpeakerTransform::Stream& stream : transform.streams) {
        bool whole = TakeCount(rest, kStreamSize);
        for (StreamVector& row : stream.a) whole = whole && TakeVector(rest, row);
        if (!whole || !TakeVector(rest, stream.b) || !TakeOnes(rest)) {
            why = "its numbers are cut short or no voice's";
            return std::nullopt;
        }
    }
    std::string name;
    std::string its_model;
    std::string more;
    if (!(rest >> name >> its_model) || name != kModelLine || rest >> more) {
        why = "it does not end as a voice does";
        return std::nullopt;
    }
    if (its_model != model) {
        why = "it belongs to another acoustic model";
        return std::nullopt;
    }
    return transform;
}

std::string MarkOfModel(const std::string& acoustic_model) {
    std::ifstream file(acoustic_model + "/means", std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    if (content.empty()) return {};
    // Fowler, Noll and Vo's hash (FNV-1a).
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char c : content) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    std::ostringstream mark;
    mark.imbue(std::locale::classic());
    mark << std::hex << hash;
    return mark.str();
}

// The library reads transforms from named files only. This one is in memory, and what it holds was
// read and judged by ReadTransform or made by ourselves: the library checks little.
bool UseTransform(ps_decoder_s& decoder, const SpeakerTransform& transform) {
    const int file = memfd_create("voice", MFD_CLOEXEC);
    if (file < 0) return false;
    const std::string text = WriteTransform(transform, "-");
    ps_mllr_t* read = nullptr;
    if (write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size()))
        read = ps_mllr_read(("/proc/self/fd/" + std::to_string(file)).c_str());
    close(file);
    return read != nullptr && ps_update_mllr(&decoder, read) != nullptr;
}

}  // namespace corvane::engine
