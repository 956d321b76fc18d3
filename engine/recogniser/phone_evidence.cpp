// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/phone_evidence.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <numeric>

#include "engine/recogniser/alignment.h"
#include "engine/recogniser/phone_loop.h"

namespace corvane::engine {
namespace {

// As in the other scores of a path.
constexpr double kScoreUnit = 100.0;

// A phone this short was squeezed in, not said.
constexpr std::size_t kShortFrames = 3;

double Mean(const std::vector<double>& values) {
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

/// Mean of the worst quarter, of the worst one at least.
double WorstQuarter(std::vector<double> scores) {
    std::ranges::sort(scores);
    scores.resize(std::max<std::size_t>(1, scores.size() / 4));
    return Mean(scores);
}

/// How well a phone would fit, whatever stands beside it, where this one lies.
double ScoreInPlace(std::size_t phone, const AlignedPhone& place, const SenoneScores& scores,
                    const ModelDefinition& model) {
    const ModelDefinition::States senones = model.Alone(phone);
    double score = 0.0;
    for (std::size_t i = 0; i < place.states.size(); ++i)
        score -= scores.Frame(place.first_frame + i)[senones[place.states[i]]];
    return score;
}

/// How many phones would fit better in this one's place.
double Rank(const AlignedPhone& aligned, const SenoneScores& scores, const ModelDefinition& model) {
    const double own = ScoreInPlace(aligned.phone, aligned, scores, model);
    int better = 0;
    for (std::size_t phone = 0; phone < model.Phones(); ++phone)
        if (ScoreInPlace(phone, aligned, scores, model) > own) ++better;
    return better;
}

/// By how much the loop is better than the phone that it is most better than.
double WorstPhone(const std::vector<AlignedPhone>& phones, const PhoneLoop& loop) {
    double worst = 0.0;
    for (const AlignedPhone& phone : phones) {
        const auto first = loop.frames.begin() + static_cast<std::ptrdiff_t>(phone.first_frame);
        const double rival = std::accumulate(first, first + std::ssize(phone.states), 0.0);
        worst = std::min(worst, (phone.score - rival) / kScoreUnit);
    }
    return worst;
}

/// How far the phones' middle states lie below the best senone, mean over phones and frames: in
/// noise they all come closer.
double Spread(const SenoneScores& scores, const ModelDefinition& model) {
    double sum = 0.0;
    for (std::size_t phone = 0; phone < model.Phones(); ++phone) {
        const std::uint16_t middle = model.Alone(phone)[1];
        for (std::size_t frame = 0; frame < scores.Frames(); ++frame)
            sum += scores.Frame(frame)[middle];
    }
    return sum / static_cast<double>(model.Phones() * scores.Frames()) / kScoreUnit;
}

}  // namespace

std::optional<PhoneEvidence> EvidenceOf(const std::vector<PathSegment>& segments,
                                        const SenoneScores& scores, const ModelDefinition& model) {
    const auto phones = Align(segments, scores, model);
    if (!phones || phones->empty()) return std::nullopt;

    std::vector<double> fits;
    std::vector<double> ranks;
    std::vector<std::vector<double>> word_ranks(phones->back().word + 1);
    std::size_t short_phones = 0;
    for (const AlignedPhone& phone : *phones) {
        const std::size_t frames = phone.states.size();
        fits.push_back(phone.score / static_cast<double>(frames) / kScoreUnit);
        ranks.push_back(Rank(phone, scores, model));
        word_ranks[phone.word].push_back(std::log1p(ranks.back()));
        if (frames <= kShortFrames) ++short_phones;
    }
    std::vector<double> mean_word_ranks;
    std::ranges::transform(word_ranks, std::back_inserter(mean_word_ranks), Mean);

    double path_score = 0.0;
    for (const PathSegment& segment : segments) path_score += segment.acoustic;

    const PhoneLoop loop = RunPhoneLoop(scores, model);
    const auto count = static_cast<double>(phones->size());
    return PhoneEvidence{
        .over_loop = (path_score - loop.score) / kScoreUnit / static_cast<double>(scores.Frames()),
        .mean_rank = Mean(ranks),
        .short_share = static_cast<double>(short_phones) / count,
        .worst_quarter = WorstQuarter(fits),
        .mean_fit = Mean(fits),
        .phones = count,
        .worst_word_rank = std::ranges::max(mean_word_ranks),
        .worst_phone = WorstPhone(*phones, loop),
        .spread = Spread(scores, model),
    };
}

}  // namespace corvane::engine
