// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/voice_training.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <string_view>

#include "engine/grammar/word_graph.h"
#include "engine/recogniser/alignment.h"
#include "engine/recogniser/phone_loop.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

// As in the other scores of a path.
constexpr double kScoreUnit = 100.0;

// Each sentence is judged by what was learnt from the other parts.
constexpr std::size_t kParts = 4;

// Two seconds of the model's own voices, which weigh little beside a minute of reading and hold a
// transform of a few words in place. Chosen, not fitted.
constexpr double kPriorFrames = 200.0;

// What was read lies at most so far below the best string of phones, in the unit of
// TrainingResult; something else was said if it lies further down.
constexpr double kFurthestBelow = -1.5;

ModelDefinition DefinitionOf(const std::string& acoustic_model) {
    auto definition = ModelDefinition::Load(acoustic_model);
    if (!definition)
        throw RuntimeError(kAutomationError, "No voice can be trained for " + acoustic_model);
    return *std::move(definition);
}

GaussianModel GaussiansOf(const std::string& acoustic_model, const ModelDefinition& definition) {
    auto model = GaussianModel::Load(acoustic_model, definition);
    if (!model)
        throw RuntimeError(kAutomationError, "No voice can be trained for " + acoustic_model);
    return *std::move(model);
}

/// With the signs that printed text has as keyboards have them.
std::string AsTyped(std::string text) {
    struct Sign {
        std::string_view printed;
        std::string_view typed;
    };
    constexpr std::array<Sign, 11> kPrinted{{{"\u2018", "'"},
                                             {"\u2019", "'"},
                                             {"\u201c", "\""},
                                             {"\u201d", "\""},
                                             {"\u201e", "\""},
                                             {"\u00ab", "\""},
                                             {"\u00bb", "\""},
                                             {"\u2013", " "},
                                             {"\u2014", " "},
                                             {"\u2026", " "},
                                             {"\u00a0", " "}}};
    for (const auto& [printed, typed] : kPrinted)
        for (std::size_t at = 0; (at = text.find(printed, at)) != std::string::npos;)
            text.replace(at, printed.size(), typed);
    return text;
}

/// Words of a sentence without the signs around them.
Phrase WordsOf(const std::string& text) {
    constexpr const char* kSigns = ".,;:!?\"()[]{}<>*_-/\\";
    const std::string sentence = AsTyped(text);
    Phrase words;
    std::size_t at = 0;
    while (at < sentence.size()) {
        const std::size_t end = std::min(sentence.find_first_of(" \t\r\n", at), sentence.size());
        const std::string word = sentence.substr(at, end - at);
        const std::size_t first = word.find_first_not_of(kSigns);
        if (first != std::string::npos)
            words.push_back(word.substr(first, word.find_last_not_of(kSigns) - first + 1));
        at = end + 1;
    }
    return words;
}

/// What can be said when this is to be read.
WordGraph GraphOf(const Phrase& words, Lexicon& lexicon) {
    Grammar grammar;
    grammar.rules.push_back({.name = "sentence",
                             .id = 0,
                             .marked_active = true,
                             .elements = {{.optional = false, .choices = {words}}}});
    lexicon.Learn(grammar);
    const std::vector<const GrammarRule*> rules{grammar.rules.data()};
    return CompileGraph(rules, lexicon);
}

double Mean(const std::vector<double>& values) {
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

/// Whether gains are more than chance: their mean lies more than its standard error above zero.
bool Helps(const std::vector<double>& gains) {
    const double mean = Mean(gains);
    double squares = 0.0;
    for (const double gain : gains) squares += (gain - mean) * (gain - mean);
    const auto count = static_cast<double>(gains.size());
    return mean > std::sqrt(squares / (count - 1.0) / count);
}

}  // namespace

/// A reading as one model hears it.
struct VoiceTraining::Heard {
    std::vector<SaidSenone> said;
    double below_loop = 0.0;  ///< mean over its frames, see TrainingResult
};

VoiceTraining::VoiceTraining(const std::string& acoustic_model, const std::string& dictionary,
                             const std::map<std::string, std::vector<std::string>>& user_words,
                             const std::shared_ptr<const SpeakerTransform>& voice)
    : definition_(DefinitionOf(acoustic_model)),
      model_(GaussiansOf(acoustic_model, definition_)),
      features_(acoustic_model),
      decoder_(acoustic_model),
      lexicon_(Dictionary(dictionary)) {
    lexicon_.SetUserWords(user_words);
    if (voice) present_ = model_.Adapted(*voice);
}

ReadingVerdict VoiceTraining::Read(const std::string& sentence,
                                   std::span<const std::int16_t> sound) {
    const Phrase words = WordsOf(sentence);
    if (words.empty() || words.size() > kLongestPhrase) return ReadingVerdict::no_words;
    const WordGraph graph = GraphOf(words, lexicon_);
    if (graph.arcs.empty()) return ReadingVerdict::no_words;
    decoder_.SetGraph(graph);
    Reading reading{.frames = features_.Extract(sound),
                    .segments = decoder_.Decode(sound).segments};
    if (reading.frames.empty()) return ReadingVerdict::nothing;
    const auto heard = Hear(reading, model_);
    if (!heard || heard->below_loop < kFurthestBelow) return ReadingVerdict::other;
    readings_.push_back(std::move(reading));
    return ReadingVerdict::good;
}

std::optional<VoiceTraining::Heard> VoiceTraining::Hear(const Reading& reading,
                                                        const GaussianModel& model) const {
    const SenoneScores scores = model.Score(reading.frames);
    const auto phones = Align(reading.segments, scores, definition_);
    if (!phones || phones->empty()) return std::nullopt;
    const PhoneLoop loop = RunPhoneLoop(scores, definition_);
    Heard heard;
    double below = 0.0;
    for (const AlignedPhone& phone : *phones) {
        below += phone.score;
        for (std::size_t i = 0; i < phone.senones.size(); ++i) {
            const std::size_t frame = phone.first_frame + i;
            below -= loop.frames[frame];
            heard.said.push_back({.frame = frame, .senone = phone.senones[i]});
        }
    }
    heard.below_loop = below / kScoreUnit / static_cast<double>(heard.said.size());
    return heard;
}

void VoiceTraining::Forget() {
    if (!readings_.empty()) readings_.pop_back();
}

TrainingResult VoiceTraining::Train(const GoOn& go_on) const {
    TrainingResult result;
    if (readings_.size() < kFewestSentences) return result;
    // Each sentence is heard as the model hears it, as it is heard until now, and as it would be.
    const double times = present_ ? 3.0 : 2.0;
    const double steps = times * static_cast<double>(readings_.size());
    double heard_of = 0.0;
    const auto stopped = [&] { return !go_on(heard_of++ / steps); };

    std::vector<VoiceStatistics> parts(kParts, VoiceStatistics(model_));
    std::vector<double> before;
    for (std::size_t i = 0; i < readings_.size(); ++i) {
        if (stopped()) return {};
        const auto heard = Hear(readings_[i], model_);
        parts[i % kParts].Add(readings_[i].frames, heard->said, model_);
        before.push_back(heard->below_loop);
        if (!present_) continue;
        // What is learnt replaces the voice that there is, so it is that which it must surpass.
        if (stopped()) return {};
        if (const auto until_now = Hear(readings_[i], *present_))
            before.back() = until_now->below_loop;
    }

    // By how much each sentence gains from all parts but its own.
    std::vector<double> gains;
    for (std::size_t held_back = 0; held_back < kParts; ++held_back) {
        VoiceStatistics others(model_);
        for (std::size_t part = 0; part < kParts; ++part)
            if (part != held_back) others.Add(parts[part]);
        const GaussianModel adapted = model_.Adapted(others.Estimate(model_, kPriorFrames));
        for (std::size_t i = held_back; i < readings_.size(); i += kParts) {
            if (stopped()) return {};
            const auto heard = Hear(readings_[i], adapted);
            gains.push_back(heard ? heard->below_loop - before[i] : 0.0);
        }
    }
    result.before = Mean(before);
    result.after = result.before + Mean(gains);
    if (!Helps(gains)) return result;
    if (stopped()) return {};

    VoiceStatistics all(model_);
    for (const VoiceStatistics& part : parts) all.Add(part);
    result.transform = all.Estimate(model_, kPriorFrames);
    return result;
}

}  // namespace corvane::engine
