// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// The speech engine: what a change of the grammar costs, and decoding against the length of speech.

#include <benchmark/benchmark.h>

#include <array>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "engine/grammar/grammar_loader.h"
#include "engine/grammar/lexicon.h"
#include "engine/grammar/word_graph.h"
#include "engine/recogniser/decoder.h"
#include "engine/recogniser/endpointer.h"
#include "support/keywords.h"
#include "support/room.h"
#include "support/speech.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

using testing::CommandsWith;
using testing::MadeUpKeywords;
using testing::TemporaryFile;

/// What is said in the decoding figures; each by three voices.
std::vector<std::vector<std::int16_t>> Speech() {
    std::vector<std::vector<std::int16_t>> sayings;
    std::ifstream file(CORVANE_PROJECT_FOLDER "/tests/engine/sayings.txt");
    for (std::string rule, text; std::getline(file, rule, '\t') && std::getline(file, text);)
        for (const char* voice : {"slt", "rms", "awb"})
            sayings.push_back(testing::Say(text, voice));
    return sayings;
}

double Seconds(const std::vector<std::vector<std::int16_t>>& sayings) {
    std::size_t samples = 0;
    for (const auto& saying : sayings) samples += saying.size();
    return static_cast<double>(samples) / kSampleRate;
}

/// The graph of the commands and so many keywords, none of which was seen before.
class Preparation {
public:
    WordGraph Graph(std::size_t keywords) {
        grammar_ = ParseGrammar(CommandsWith(MadeUpKeywords(keywords, ++seed_)));
        lexicon_.Learn(grammar_);
        std::vector<const GrammarRule*> rules;
        for (const GrammarRule& rule : grammar_.rules) rules.push_back(&rule);
        return CompileGraph(rules, lexicon_);
    }

private:
    std::uint32_t seed_ = 0;
    Grammar grammar_;
    Lexicon lexicon_{Dictionary(SpeechEngineConfig().dictionary)};
};

/// What init_rec does on the loop's thread: a new context instead of the old one, its grammar
/// loaded and switched on. All keywords are new each time, so that each has to be pronounced.
void InitRecWithNewKeywords(benchmark::State& state) {
    testing::Room room;
    std::uint32_t seed = 0;
    std::shared_ptr<ISpeechRecoContext> context;
    std::shared_ptr<ISpeechRecoGrammar> grammar;
    for ([[maybe_unused]] const auto iteration : state) {
        state.PauseTiming();
        const TemporaryFile file(
            CommandsWith(MadeUpKeywords(static_cast<std::size_t>(state.range(0)), ++seed)));
        state.ResumeTiming();
        context = room.engine->CreateSpSharedRecoContext();
        grammar = context->CreateGrammar(0);
        grammar->CmdLoadFromFile(file.Path(), SLODynamic);
        const auto rules = grammar->Rules();
        for (std::int32_t i = 0; i < rules->Count(); ++i) (void)rules->Item(i)->Id();
        grammar->CmdSetRuleIdState(0, SGDSActive);
        context->SetEventInterests(SRERecognition | SREHypothesis | SREInterference |
                                   SREAudioLevel);
    }
}

/// The same again with the words of the last time: "disable" and "enable", or one keyword more.
void InitRecWithKnownKeywords(benchmark::State& state) {
    testing::Room room;
    const TemporaryFile file(
        CommandsWith(MadeUpKeywords(static_cast<std::size_t>(state.range(0)), 1)));
    for ([[maybe_unused]] const auto iteration : state)
        const testing::Listening listening(*room.engine, file.Path());
}

/// What follows on the listening thread until the new words can be heard.
void SetGraphOfNewKeywords(benchmark::State& state) {
    Preparation preparation;
    Decoder decoder(SpeechEngineConfig().acoustic_model);
    for ([[maybe_unused]] const auto iteration : state) {
        state.PauseTiming();
        const WordGraph graph = preparation.Graph(static_cast<std::size_t>(state.range(0)));
        state.ResumeTiming();
        decoder.SetGraph(graph);
    }
}

/// Whole utterances; rtf is the time over the length of the speech, stillness around it included.
void DecodeUtterances(benchmark::State& state) {
    Preparation preparation;
    Decoder decoder(SpeechEngineConfig().acoustic_model);
    decoder.SetGraph(preparation.Graph(static_cast<std::size_t>(state.range(0))));
    const auto sayings = Speech();
    for ([[maybe_unused]] const auto iteration : state)
        for (const auto& saying : sayings) benchmark::DoNotOptimize(decoder.Decode(saying));
    // Inverted: seconds of time for each second of speech.
    state.counters["rtf"] =
        benchmark::Counter(Seconds(sayings) * static_cast<double>(state.iterations()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// As speech goes on, with a hypothesis every 0.2 s.
void DecodeLive(benchmark::State& state) {
    constexpr std::size_t kBlock = kSampleRate / 5;
    Preparation preparation;
    Decoder decoder(SpeechEngineConfig().acoustic_model);
    decoder.SetGraph(preparation.Graph(static_cast<std::size_t>(state.range(0))));
    const auto sayings = Speech();
    for ([[maybe_unused]] const auto iteration : state)
        for (const auto& saying : sayings) {
            decoder.BeginLive();
            for (std::span rest(saying); !rest.empty();
                 rest = rest.subspan(std::min(kBlock, rest.size()))) {
                decoder.FeedLive(rest.first(std::min(kBlock, rest.size())));
                benchmark::DoNotOptimize(decoder.LivePath());
            }
            decoder.EndLive();
        }
    state.counters["rtf"] =
        benchmark::Counter(Seconds(sayings) * static_cast<double>(state.iterations()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

BENCHMARK(InitRecWithNewKeywords)->Arg(0)->Arg(1'000)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(InitRecWithKnownKeywords)->Arg(1'000)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(SetGraphOfNewKeywords)->Arg(0)->Arg(1'000)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(DecodeUtterances)->Arg(0)->Arg(1'000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(DecodeLive)->Arg(0)->Arg(1'000)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
}  // namespace corvane::engine

BENCHMARK_MAIN();
