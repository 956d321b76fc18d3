// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/confidence.h"

#include <algorithm>
#include <cmath>

namespace corvane::engine {
namespace {

// The decoder's acoustic scores are logarithms of a base close to 1; in hundreds they suit the
// weights.
constexpr double kScoreUnit = 100.0;

// Linear discriminant between right commands and everything else (other speech, near misses,
// noises), fitted by logistic regression on synthesised and real recordings; see README.md.
constexpr double kMeanWeight = 19.96;
constexpr double kWorstWordWeight = 7.41;
constexpr double kLengthWeight = 2.32;
constexpr double kPaceWeight = -1.76;
constexpr double kFillerWeight = -5.34;
constexpr double kOffset = 17.54;

// Scores are logistic(discriminant): 1.0 for high, -1.0 for normal.
constexpr double kHighScore = 0.731;
constexpr double kNormalScore = 0.269;

double Frames(const PathSegment& segment) {
    return segment.last_frame - segment.first_frame + 1;
}

}  // namespace

double ConfidenceScore(const Path& path, const WordGraph& graph) {
    double all_frames = 0.0;
    double word_frames = 0.0;
    double acoustic = 0.0;
    double worst_word = 0.0;
    double letters = 0.0;
    for (const PathSegment& segment : path) {
        const double frames = Frames(segment);
        const double score = segment.acoustic / kScoreUnit;
        all_frames += frames;
        acoustic += score;
        if (segment.word == PathSegment::kFiller) continue;
        word_frames += frames;
        worst_word = std::min(worst_word, score / frames);
        letters += static_cast<double>(
            graph.words[static_cast<std::size_t>(segment.word)].spelling.size());
    }
    if (word_frames == 0.0) return 0.0;
    const double z = kMeanWeight * acoustic / all_frames + kWorstWordWeight * worst_word +
                     kLengthWeight * std::log(word_frames / 100.0) +
                     kPaceWeight * word_frames / letters / 10.0 +
                     kFillerWeight * (all_frames - word_frames) / all_frames + kOffset;
    return 1.0 / (1.0 + std::exp(-z));
}

SpeechEngineConfidence ConfidenceLevel(double score) {
    if (score > kHighScore) return SECHighConfidence;
    return score > kNormalScore ? SECNormalConfidence : SECLowConfidence;
}

}  // namespace corvane::engine
