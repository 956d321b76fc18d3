// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/spoken_choice.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "engine/grammar/dictionary.h"
#include "engine/grammar/grammar.h"
#include "engine/grammar/lexicon.h"
#include "engine/recogniser/confidence.h"

namespace corvane::engine {
namespace {

/// A rule for each phrase.
WordGraph GraphOf(const std::vector<std::string>& phrases, const std::string& dictionary) {
    Grammar grammar;
    for (const std::string& text : phrases) {
        Phrase phrase;
        std::istringstream rest(text);
        for (std::string word; rest >> word;) phrase.push_back(word);
        grammar.rules.push_back({.name = text,
                                 .id = static_cast<std::int32_t>(grammar.rules.size()),
                                 .marked_active = true,
                                 .elements = {{.optional = false, .choices = {phrase}}}});
    }
    Lexicon lexicon{Dictionary(dictionary)};
    lexicon.Learn(grammar);
    std::vector<const GrammarRule*> rules;
    for (const GrammarRule& rule : grammar.rules) rules.push_back(&rule);
    return CompileGraph(rules, lexicon);
}

}  // namespace

SpokenChoice::SpokenChoice(const std::string& acoustic_model, const std::string& dictionary,
                           const std::vector<std::string>& phrases,
                           std::shared_ptr<const SpeakerTransform> voice)
    : graph_(GraphOf(phrases, dictionary)), decoder_(acoustic_model) {
    decoder_.SetVoice(std::move(voice));
    decoder_.SetGraph(graph_);
}

std::optional<std::size_t> SpokenChoice::Heard(std::span<const std::int16_t> sound) {
    const Path path = decoder_.Decode(sound);
    const auto word = std::ranges::find_if(
        path, [](const PathSegment& segment) { return segment.word != PathSegment::kFiller; });
    if (word == path.end()) return std::nullopt;
    if (ConfidenceLevel(ConfidenceScore(path, graph_)) < SECHighConfidence) return std::nullopt;
    return static_cast<std::size_t>(graph_.words[static_cast<std::size_t>(word->word)].rule);
}

}  // namespace corvane::engine
