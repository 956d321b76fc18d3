// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Lets the engine hear sound files and writes one line an event, fields parted by tabs:
// file, event (recognition or hypothesis), rule, confidence (-1, 0, 1), score (0 to 1), start_ms,
// end_ms, latency_ms, text. With --all there are lines of the event interference too: why it is
// hard to hear is their text, start_ms and end_ms are where it was noticed, the others are 0.
// With --features a line of the event features follows each recognition: what its score was made
// of, as name=value. With --final there are no hypotheses, which takes half the time.

#include <array>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "engine/audio/memory_source.h"
#include "engine/audio/wav_file.h"
#include "engine/recogniser/reco_result.h"
#include "engine/speech_engine.h"
#include "platform/error.h"

namespace {

using namespace corvane;

/// The stillness behind each file by which its last words find their end.
constexpr std::size_t kStillness = engine::kSampleRate / 2;

struct Arguments {
    std::vector<std::string> grammars;
    std::vector<std::string> files;
    bool all_events = false;
    bool features = false;
    bool hypotheses = true;
};

/// By SpeechInterference.
constexpr std::array kInterferences{"None",     "Noise",   "NoSignal", "TooLoud",
                                    "TooQuiet", "TooFast", "TooSlow"};
constexpr std::int64_t kBytesPerMillisecond = engine::kSampleRate / 1000 * 2;

/// Messages in the order of posting; run when the stream is over.
class MessageQueue {
public:
    void Post(std::function<void()> message) {
        const std::lock_guard lock(mutex_);
        messages_.push_back(std::move(message));
    }

    void Run() {
        for (const auto& message : std::exchange(messages_, {})) message();
    }

private:
    std::mutex mutex_;
    std::vector<std::function<void()>> messages_;
};

void Print(const std::string& file, const char* event, const ISpeechRecoResult& result,
           bool features) {
    const auto* heard = dynamic_cast<const engine::RecoResult*>(&result);
    if (heard == nullptr) return;
    const engine::RecognisedPhrase& phrase = heard->Phrase();
    std::printf("%s\t%s\t%s\t%d\t%.3f\t%lld\t%lld\t%.0f\t%s\n", file.c_str(), event,
                phrase.rule.c_str(), phrase.confidence, phrase.score,
                static_cast<long long>(phrase.begin.count()),
                static_cast<long long>(phrase.end.count()), phrase.latency.count(),
                result.PhraseInfo()->GetText(0, -1, true).c_str());
    if (!features) return;
    std::printf("%s\tfeatures\t\t0\t0\t0\t0\t0\t", file.c_str());
    for (const auto& [name, value] : phrase.features) std::printf("%s=%.4g ", name, value);
    std::printf("\n");
}

void Print(const std::string& file, const Variant& position, std::int32_t interference) {
    const std::int64_t ms = std::get<std::int64_t>(position) / kBytesPerMillisecond;
    std::printf("%s\tinterference\t\t0\t0.000\t%lld\t%lld\t0\t%s\n", file.c_str(),
                static_cast<long long>(ms), static_cast<long long>(ms),
                kInterferences.at(static_cast<std::size_t>(interference)));
}

void Hear(const std::string& file, const Arguments& arguments) {
    std::vector<std::int16_t> samples = engine::ReadWavFile(file);
    samples.insert(samples.end(), kStillness, 0);
    MessageQueue messages;
    SpeechEngine engine(
        {}, [&messages](std::function<void()> message) { messages.Post(std::move(message)); },
        std::make_unique<engine::MemorySource>(std::move(samples)));

    std::vector<std::pair<std::shared_ptr<ISpeechRecoContext>, std::shared_ptr<ISpeechRecoGrammar>>>
        listening;
    for (const std::string& path : arguments.grammars) {
        auto context = engine.CreateSpSharedRecoContext();
        auto grammar = context->CreateGrammar(0);
        grammar->CmdLoadFromFile(path, SLODynamic);
        grammar->CmdSetRuleIdState(0, SGDSActive);
        context->Advise({.Recognition =
                             [&file, &arguments](std::int32_t, const Variant&, std::int32_t,
                                                 const std::shared_ptr<ISpeechRecoResult>& result) {
                                 Print(file, "recognition", *result, arguments.features);
                             },
                         .Hypothesis =
                             [&file](std::int32_t, const Variant&,
                                     const std::shared_ptr<ISpeechRecoResult>& result) {
                                 Print(file, "hypothesis", *result, false);
                             },
                         .AudioLevel = {},
                         .Interference = {},
                         .Adaptation = {}});
        listening.emplace_back(std::move(context), std::move(grammar));
    }
    // A context of its own, since every context is told.
    const auto sound = engine.CreateSpSharedRecoContext();
    sound->Advise({.Recognition = {},
                   .Hypothesis = {},
                   .AudioLevel = {},
                   .Interference =
                       [&file](std::int32_t, const Variant& position, std::int32_t interference) {
                           Print(file, position, interference);
                       },
                   .Adaptation = {}});
    if (arguments.all_events) sound->SetEventInterests(SREInterference);
    for (const auto& [context, grammar] : listening)
        context->SetEventInterests(arguments.hypotheses ? SRERecognition | SREHypothesis
                                                        : SRERecognition);
    engine.WaitForEndOfStream();
    messages.Run();
}

Arguments ArgumentsOf(const std::vector<std::string>& words) {
    Arguments arguments;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--grammar" && i + 1 < words.size())
            arguments.grammars.push_back(words[++i]);
        else if (words[i] == "--all")
            arguments.all_events = true;
        else if (words[i] == "--final")
            arguments.hypotheses = false;
        else if (words[i] == "--features")
            arguments.features = true;
        else
            arguments.files.push_back(words[i]);
    }
    if (arguments.grammars.empty())
        arguments.grammars.push_back(
            std::filesystem::read_symlink("/proc/self/exe").replace_filename("keywords.xml"));
    return arguments;
}

}  // namespace

int main(int argc, char** argv) {
    const Arguments arguments = ArgumentsOf({argv + 1, argv + argc});
    if (arguments.files.empty()) {
        std::cerr << "usage: corvane-hear [--all] [--features] [--final] [--grammar FILE]... WAV...\n";
        return 2;
    }
    try {
        for (const std::string& file : arguments.files) Hear(file, arguments);
    } catch (const RuntimeError& error) {
        std::cerr << "corvane-hear: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
