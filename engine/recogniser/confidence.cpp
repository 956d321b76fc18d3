// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/confidence.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "engine/recogniser/confidence_weights.h"

namespace corvane::engine {
namespace {

// The decoder's acoustic scores are logarithms of a base close to 1; in hundreds they suit the
// weights.
constexpr double kScoreUnit = 100.0;

constexpr double kHighScore = 0.75;
constexpr double kNormalScore = 0.3;
constexpr double kLeastScore = 0.01;

// A letter that leads another by less than this is never sure, however well it fits: a wrong letter
// costs more than one that has to be said again.
constexpr double kSureChoice = 400.0;

// More phones than this tell no more, nor does a wider margin or a still worse phone.
constexpr double kManyPhones = 20.0;
constexpr double kWideMargin = 3.0;
constexpr double kWorstPhone = -20.0;

/// What the scores of a path's segments tell by themselves. Scores are means over frames.
struct SegmentEvidence {
    double mean = 0.0;
    double worst_word = 0.0;
    double word_frames = 0.0;
    double all_frames = 0.0;
    double letters = 0.0;
};

SegmentEvidence EvidenceOfSegments(const Path& path, const WordGraph& graph) {
    SegmentEvidence evidence;
    double acoustic = 0.0;
    for (const PathSegment& segment : path) {
        const double frames = segment.last_frame - segment.first_frame + 1;
        const double score = segment.acoustic / kScoreUnit;
        evidence.all_frames += frames;
        acoustic += score;
        if (segment.word == PathSegment::kFiller) continue;
        evidence.word_frames += frames;
        evidence.worst_word = std::min(evidence.worst_word, score / frames);
        evidence.letters += static_cast<double>(
            graph.words[static_cast<std::size_t>(segment.word)].spelling.size());
    }
    evidence.mean = acoustic / evidence.all_frames;
    return evidence;
}

// What is left to judge by where the phones are not known. Its bias makes it as strict.
double WithoutPhones(const SegmentEvidence& path) {
    return 19.96 * path.mean + 7.41 * path.worst_word + 2.32 * std::log(path.word_frames / 100.0) -
           1.76 * path.word_frames / path.letters / 10.0 -
           5.34 * (path.all_frames - path.word_frames) / path.all_frames + 17.14;
}

double Likelihood(double z) {
    return 1.0 / (1.0 + std::exp(-z));
}

double ValueOf(std::string_view name, const std::vector<Feature>& features) {
    const auto feature = std::ranges::find(features, name, &Feature::name);
    return feature == features.end() ? 0.0 : feature->value;
}

double Weigh(const auto& weights, double bias, const std::vector<Feature>& features) {
    for (const FeatureWeight& part : weights) bias += part.weight * ValueOf(part.feature, features);
    return Likelihood(bias);
}

/// A margin without the part of it that tells no more.
double Narrow(double margin) {
    return std::clamp(margin / kScoreUnit, -2.0, kWideMargin);
}

}  // namespace

std::vector<Feature> FeaturesOf(const Path& path, const WordGraph& graph) {
    std::vector<Feature> features;
    const SegmentEvidence segments = EvidenceOfSegments(path, graph);
    if (segments.word_frames == 0.0) return features;
    features.assign({{"mean_score", segments.mean}, {"worst_word", segments.worst_word}});
    if (path.evidence) {
        const PhoneEvidence& phones = *path.evidence;
        features.insert(features.end(), {{"over_loop", phones.over_loop},
                                         {"mean_rank", phones.mean_rank},
                                         {"short_share", phones.short_share},
                                         {"worst_quarter", phones.worst_quarter},
                                         {"mean_fit", phones.mean_fit},
                                         {"phones", std::min(phones.phones, kManyPhones)},
                                         {"worst_word_rank", phones.worst_word_rank},
                                         {"worst_phone", std::max(phones.worst_phone, kWorstPhone)},
                                         {"spread", phones.spread}});
    }
    if (path.rivals) {
        features.insert(features.end(), {{"rule_margin", Narrow(path.rivals->rule)},
                                         {"choice_margin", Narrow(path.rivals->choice)}});
    }
    return features;
}

double ConfidenceScore(const Path& path, const WordGraph& graph) {
    const SegmentEvidence segments = EvidenceOfSegments(path, graph);
    if (segments.word_frames == 0.0) return 0.0;
    if (!path.evidence || !path.rivals) return Likelihood(WithoutPhones(segments));
    const std::vector<Feature> features = FeaturesOf(path, graph);
    const double score = Weigh(kCommandWeights, kCommandBias, features) *
                         Weigh(kReadingWeights, kReadingBias, features);
    return path.rivals->choice < kSureChoice ? std::min(score, kHighScore) : score;
}

SpeechEngineConfidence ConfidenceLevel(double score) {
    if (score > kHighScore) return SECHighConfidence;
    return score > kNormalScore ? SECNormalConfidence : SECLowConfidence;
}

bool IsWorthTelling(double score) {
    return score >= kLeastScore;
}

}  // namespace corvane::engine
