// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/confidence.h"

#include <algorithm>
#include <cmath>

namespace corvane::engine {
namespace {

// The decoder's acoustic scores are logarithms of a base close to 1; in hundreds they suit the
// weights.
constexpr double kScoreUnit = 100.0;

// Scores are logistic(discriminant): 1.5 for high, -1.0 for normal.
constexpr double kHighScore = 0.818;
constexpr double kNormalScore = 0.269;

// More phones than this tell no more.
constexpr double kManyPhones = 40.0;

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

// Linear discriminants between right commands and everything else (other speech, near misses,
// noises), fitted by logistic regression on synthesised and real recordings; see README.md.

double WithoutPhones(const SegmentEvidence& path) {
    return 19.96 * path.mean + 7.41 * path.worst_word + 2.32 * std::log(path.word_frames / 100.0) -
           1.76 * path.word_frames / path.letters / 10.0 -
           5.34 * (path.all_frames - path.word_frames) / path.all_frames + 17.54;
}

double WithPhones(const SegmentEvidence& path, const PhoneEvidence& phones) {
    return 34.94 * phones.over_loop - 0.26 * phones.mean_rank - 3.81 * path.mean -
           7.41 * phones.short_share + 5.80 * phones.worst_quarter - 14.12 * phones.mean_fit +
           0.19 * std::min(phones.phones, kManyPhones) - 2.28 * phones.worst_word_rank + 0.30;
}

}  // namespace

double ConfidenceScore(const Path& path, const WordGraph& graph) {
    const SegmentEvidence segments = EvidenceOfSegments(path, graph);
    if (segments.word_frames == 0.0) return 0.0;
    const double z = path.evidence ? WithPhones(segments, *path.evidence) : WithoutPhones(segments);
    return 1.0 / (1.0 + std::exp(-z));
}

SpeechEngineConfidence ConfidenceLevel(double score) {
    if (score > kHighScore) return SECHighConfidence;
    return score > kNormalScore ? SECNormalConfidence : SECLowConfidence;
}

}  // namespace corvane::engine
