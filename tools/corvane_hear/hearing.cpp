// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "hearing.h"

#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "engine/audio/memory_source.h"
#include "engine/audio/wav_file.h"
#include "engine/recogniser/reco_result.h"
#include "engine/speech_engine.h"
#include "paced_source.h"

namespace corvane::tools {
namespace {

using Clock = PacedSource::Clock;
using engine::RecognisedPhrase;

/// The stillness behind each file by which its last words find their end.
constexpr std::size_t kStillness = engine::kSampleRate / 2;
constexpr std::int64_t kBytesPerMillisecond = std::int64_t{engine::kSampleRate} / 1000 * 2;

/// By SpeechInterference.
constexpr std::array kInterferences{"None",     "Noise",   "NoSignal", "TooLoud",
                                    "TooQuiet", "TooFast", "TooSlow"};

/// The loop's messages and when each was posted. In real time they run as they come, otherwise all
/// at the end.
class MessageQueue {
public:
    void Post(std::function<void()> message) {
        {
            const std::lock_guard lock(mutex_);
            messages_.push_back({std::move(message), Clock::now()});
        }
        changed_.notify_all();
    }

    /// Runs what there is.
    void Run() {
        while (const std::optional<Message> message = Take()) RunOne(*message);
    }

    /// Runs messages as they come, so long.
    void RunFor(std::chrono::milliseconds duration) {
        const auto end = Clock::now() + duration;
        while (Clock::now() < end) {
            Run();
            std::unique_lock lock(mutex_);
            changed_.wait_until(lock, end, [this] { return !messages_.empty(); });
        }
    }

    /// When the message that runs now was posted.
    [[nodiscard]] Clock::time_point Posted() const { return posted_; }

private:
    struct Message {
        std::function<void()> run;
        Clock::time_point posted;
    };

    std::optional<Message> Take() {
        const std::lock_guard lock(mutex_);
        if (messages_.empty()) return std::nullopt;
        Message message = std::move(messages_.front());
        messages_.pop_front();
        return message;
    }

    void RunOne(const Message& message) {
        posted_ = message.posted;
        message.run();
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Message> messages_;  ///< guarded by mutex_
    Clock::time_point posted_;
};

/// One file heard by one engine.
class Hearing {
public:
    Hearing(const std::string& file, const Arguments& arguments);
    void Run();

private:
    [[nodiscard]] std::unique_ptr<engine::AudioSource> MakeSource();
    [[nodiscard]] std::shared_ptr<ISpeechRecoContext> AddContext();
    void Print(const char* event, const RecognisedPhrase& phrase) const;
    void PrintNothing(RecognisedPhrase speech) const;
    void PrintFeatures(const RecognisedPhrase& phrase) const;
    void Print(const char* event, const ISpeechRecoResult& result) const;
    void Print(const Variant& position, std::int32_t interference) const;

    const std::string& file_;
    const Arguments& arguments_;
    std::vector<std::int16_t> samples_;
    std::chrono::milliseconds duration_{};
    PacedSource* paced_ = nullptr;  ///< the engine's, in real time
    MessageQueue messages_;
    SpeechEngine engine_;
    std::vector<std::shared_ptr<ISpeechRecoContext>> contexts_;
    std::vector<std::shared_ptr<ISpeechRecoGrammar>> grammars_;
};

SpeechEngineConfig ConfigurationTelling(std::function<void(const RecognisedPhrase&)> unmatched,
                                        const std::string& user) {
    SpeechEngineConfig config;
    config.user_folder = user;
    config.complain = [](const std::string& line) { std::fprintf(stderr, "%s\n", line.c_str()); };
    config.unmatched = std::move(unmatched);
    return config;
}

Hearing::Hearing(const std::string& file, const Arguments& arguments)
    : file_(file),
      arguments_(arguments),
      samples_(engine::ReadWavFile(file)),
      engine_(
          ConfigurationTelling([this](const RecognisedPhrase& speech) { PrintNothing(speech); },
                               arguments.user),
          [this](std::function<void()> message) { messages_.Post(std::move(message)); },
          MakeSource()) {
    for (const std::string& path : arguments.grammars) {
        auto grammar = AddContext()->CreateGrammar(0);
        grammar->CmdLoadFromFile(path, SLODynamic);
        grammar->CmdSetRuleIdState(0, SGDSActive);
        grammars_.push_back(std::move(grammar));
    }
    if (arguments.dictation) {
        auto grammar = AddContext()->CreateGrammar(0);
        grammar->DictationLoad("", SLOStatic);
        grammar->DictationSetState(SGDSActive);
        grammars_.push_back(std::move(grammar));
    }
}

std::unique_ptr<engine::AudioSource> Hearing::MakeSource() {
    samples_.insert(samples_.end(), kStillness, 0);
    duration_ = std::chrono::milliseconds(samples_.size() / (engine::kSampleRate / 1000));
    if (!arguments_.realtime) return std::make_unique<engine::MemorySource>(std::move(samples_));
    auto source = std::make_unique<PacedSource>(std::move(samples_));
    paced_ = source.get();
    return source;
}

std::shared_ptr<ISpeechRecoContext> Hearing::AddContext() {
    auto context = engine_.CreateSpSharedRecoContext();
    context->Advise(
        {.Recognition =
             [this](std::int32_t, const Variant&, std::int32_t,
                    const std::shared_ptr<ISpeechRecoResult>& result) {
                 Print("recognition", *result);
             },
         .Hypothesis =
             [this](std::int32_t, const Variant&,
                    const std::shared_ptr<ISpeechRecoResult>& result) {
                 Print("hypothesis", *result);
             },
         .AudioLevel = {},
         .Interference = [this](std::int32_t, const Variant& position,
                                std::int32_t interference) { Print(position, interference); },
         .Adaptation = {}});
    contexts_.push_back(context);
    return context;
}

void Hearing::Run() {
    // Every context is told of interferences; one of them is enough.
    for (const auto& context : contexts_)
        context->SetEventInterests(
            SRERecognition | (arguments_.hypotheses ? SREHypothesis : 0) |
            (arguments_.all_events && context == contexts_.front() ? SREInterference : 0));
    if (arguments_.realtime) messages_.RunFor(duration_);
    engine_.WaitForEndOfStream();
    messages_.Run();
}

void Hearing::Print(const char* event, const RecognisedPhrase& phrase) const {
    std::chrono::duration<double, std::milli> latency = phrase.latency;
    // In real time it is what a person waits. Suppositions have no end of speech.
    if (paced_ != nullptr && phrase.spoken_until.count() > 0)
        latency = messages_.Posted() - (paced_->Begin() + phrase.spoken_until);
    std::string text;
    for (const std::string& word : phrase.words)
        text += (text.empty() ? "" : " ") + (word == "\r" ? R"(\r)" : word);
    std::printf("%s\t%s\t%s\t%d\t%.3f\t%lld\t%lld\t%.0f\t%s\n", file_.c_str(), event,
                phrase.rule.c_str(), phrase.confidence, phrase.score,
                static_cast<long long>(phrase.begin.count()),
                static_cast<long long>(phrase.end.count()), latency.count(), text.c_str());
    if (arguments_.features) PrintFeatures(phrase);
    std::fflush(stdout);
}

void Hearing::PrintNothing(RecognisedPhrase speech) const {
    // Whoever looks at features wants to know of what, even where it came to nothing.
    if (!arguments_.features) {
        speech.rule.clear();
        speech.words.clear();
        speech.score = 0.0;
    }
    speech.confidence = SECLowConfidence;
    Print("none", speech);
}

void Hearing::PrintFeatures(const RecognisedPhrase& phrase) const {
    if (phrase.features.empty()) return;
    std::printf("%s\tfeatures\t\t0\t0\t0\t0\t0\t", file_.c_str());
    for (const auto& [name, value] : phrase.features) std::printf("%s=%.4g ", name, value);
    std::printf("\n");
}

void Hearing::Print(const char* event, const ISpeechRecoResult& result) const {
    if (const auto* heard = dynamic_cast<const engine::RecoResult*>(&result))
        Print(event, heard->Phrase());
}

void Hearing::Print(const Variant& position, std::int32_t interference) const {
    const std::int64_t ms = std::get<std::int64_t>(position) / kBytesPerMillisecond;
    std::printf("%s\tinterference\t\t0\t0.000\t%lld\t%lld\t0\t%s\n", file_.c_str(),
                static_cast<long long>(ms), static_cast<long long>(ms),
                kInterferences.at(static_cast<std::size_t>(interference)));
}

}  // namespace

void Hear(const std::string& file, const Arguments& arguments) {
    Hearing(file, arguments).Run();
}

}  // namespace corvane::tools
