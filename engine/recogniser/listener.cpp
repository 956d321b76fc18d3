// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/listener.h"

#include <algorithm>
#include <array>
#include <utility>

#include "engine/recogniser/confidence.h"

namespace corvane::engine {
namespace {

constexpr auto kFrame = std::chrono::milliseconds(1000 / Endpointer::kFramesPerSecond);
constexpr std::int64_t kBytesPerFrame = Endpointer::kFrameSamples * sizeof(std::int16_t);

/// How much stillness is kept, so that an utterance can begin in it.
constexpr std::size_t kKeptSamples =
    (Endpointer::kLeadingFrames + Endpointer::kTrailingFrames + 20) * Endpointer::kFrameSamples;

constexpr std::int64_t kFramesPerHypothesis = 20;

bool IsWord(const PathSegment& segment) {
    return segment.word != PathSegment::kFiller;
}

}  // namespace

Listener::Listener(std::unique_ptr<Decoder> decoder, AudioSource& source, Post post,
                   std::weak_ptr<Audience> audience)
    : decoder_(std::move(decoder)),
      source_(source),
      post_(std::move(post)),
      feedback_(std::move(audience), post_) {}

Listener::~Listener() {
    stopping_ = true;
    source_.Interrupt();
    if (thread_.joinable()) thread_.join();
}

void Listener::Start() {
    if (!thread_.joinable() && !stopping_) thread_ = std::thread([this] { Run(); });
}

void Listener::WaitForEndOfStream() {
    if (!thread_.joinable()) return;
    thread_.join();
    stopping_ = true;
}

void Listener::SetVocabulary(std::shared_ptr<const Vocabulary> vocabulary) {
    const std::lock_guard lock(mutex_);
    next_vocabulary_ = std::move(vocabulary);
}

void Listener::Run() {
    std::array<std::int16_t, Endpointer::kFrameSamples> frame{};
    while (ReadFrame(frame)) {
        TakeVocabulary();
        Hear(frame);
    }
    if (!stopping_ && endpointer_.Finish() == Endpointer::Event::speech_ended) EndUtterance();
}

bool Listener::ReadFrame(std::span<std::int16_t> frame) {
    while (!frame.empty()) {
        const std::size_t count = source_.Read(frame);
        if (count == 0) return false;
        frame = frame.subspan(count);
    }
    return !stopping_;
}

void Listener::TakeVocabulary() {
    {
        const std::lock_guard lock(mutex_);
        if (!next_vocabulary_) return;
        vocabulary_ = std::exchange(next_vocabulary_, nullptr);
    }
    decoder_->SetGraph(vocabulary_->graph);
    if (endpointer_.InSpeech()) BeginHypotheses();
}

void Listener::Hear(std::span<const std::int16_t> frame) {
    sound_.insert(sound_.end(), frame.begin(), frame.end());
    const Endpointer::Event event = endpointer_.Push(frame);
    feedback_.Hear(frame, endpointer_.Position() * kBytesPerFrame, interests_);
    switch (event) {
        case Endpointer::Event::speech_began:
            BeginHypotheses();
            break;
        case Endpointer::Event::speech_ended:
            EndUtterance();
            break;
        case Endpointer::Event::none:
            if (endpointer_.InSpeech()) {
                if (supposing_) decoder_->FeedLive(frame);
                if (endpointer_.Position() % kFramesPerHypothesis == 0) Suppose();
            } else if (sound_.size() > 2 * kKeptSamples) {
                const std::size_t old = sound_.size() - kKeptSamples;
                sound_.erase(sound_.begin(), sound_.begin() + static_cast<std::ptrdiff_t>(old));
                sound_begin_ += static_cast<std::int64_t>(old / Endpointer::kFrameSamples);
            }
            break;
    }
}

std::span<const std::int16_t> Listener::Utterance() const {
    const auto before = static_cast<std::size_t>(endpointer_.Begin() - sound_begin_);
    return std::span(sound_).subspan(before * Endpointer::kFrameSamples);
}

void Listener::BeginHypotheses() {
    supposed_.clear();
    supposing_ = (interests_ & SREHypothesis) != 0;
    if (!supposing_) return;
    decoder_->BeginLive();
    decoder_->FeedLive(Utterance());
}

void Listener::Suppose() {
    if (!supposing_) return;
    const auto since = Clock::now();
    const Path path = decoder_->LivePath();
    std::optional<RecognisedPhrase> phrase = PhraseOf(path, since);
    if (!phrase || phrase->words == supposed_) return;
    supposed_ = phrase->words;
    // What is still being said may yet turn out to be something else.
    phrase->confidence = std::min(phrase->confidence, SECNormalConfidence);
    PostResult(*std::move(phrase), path, false);
}

void Listener::EndUtterance() {
    const auto since = Clock::now();
    supposing_ = false;
    const Path path = decoder_->Decode(Utterance());
    std::optional<RecognisedPhrase> phrase = PhraseOf(path, since);
    const SpeechEngineConfidence confidence = phrase ? phrase->confidence : SECLowConfidence;
    if (phrase) {
        phrase->latency += kFrame * (endpointer_.Position() - endpointer_.LastLoud());
        PostResult(*std::move(phrase), path, true);
    }
    TellHowItWasSaid(path, confidence);
}

void Listener::TellHowItWasSaid(const Path& path, SpeechEngineConfidence confidence) {
    const std::int64_t frames = endpointer_.LastLoud() - endpointer_.Begin();
    // What finds no end is the room.
    if (endpointer_.Position() - endpointer_.Begin() >= Endpointer::kLongestFrames) return;
    UtteranceSound sound = MeasureUtterance(
        Utterance().first(static_cast<std::size_t>(frames) * Endpointer::kFrameSamples));
    if (confidence > SECLowConfidence) MeasurePace(sound, path, vocabulary_->graph);
    feedback_.HearUtterance(sound, endpointer_.Position() * kBytesPerFrame, interests_);
}

std::optional<RecognisedPhrase> Listener::PhraseOf(const Path& path,
                                                   Clock::time_point since) const {
    const auto first = std::ranges::find_if(path, IsWord);
    if (first == path.end()) return std::nullopt;
    const std::vector<WordGraph::Word>& words = vocabulary_->graph.words;
    RecognisedPhrase phrase;
    for (auto segment = first; segment != path.end(); ++segment) {
        if (!IsWord(*segment)) continue;
        phrase.words.push_back(words[static_cast<std::size_t>(segment->word)].spelling);
        phrase.end = kFrame * (endpointer_.Begin() + segment->last_frame + 1);
    }
    phrase.begin = kFrame * (endpointer_.Begin() + first->first_frame);
    const int rule = words[static_cast<std::size_t>(first->word)].rule;
    phrase.rule = vocabulary_->rules[static_cast<std::size_t>(rule)].name;
    phrase.score = ConfidenceScore(path, vocabulary_->graph);
    phrase.confidence = ConfidenceLevel(phrase.score);
    phrase.features = FeaturesOf(path, vocabulary_->graph);
    phrase.latency = Clock::now() - since;
    return phrase;
}

void Listener::PostResult(RecognisedPhrase phrase, const Path& path, bool final) {
    const auto first = std::ranges::find_if(path, IsWord);
    const auto word = static_cast<std::size_t>(first->word);
    const auto rule = static_cast<std::size_t>(vocabulary_->graph.words[word].rule);
    const std::int64_t position = (endpointer_.Begin() + first->first_frame) * kBytesPerFrame;
    post_([target = vocabulary_->rules[rule].target, position, final,
           result = std::make_shared<RecoResult>(std::move(phrase))] {
        const std::shared_ptr<ResultTarget> listening = target.lock();
        if (!listening) return;
        final ? listening->Recognised(position, result) : listening->Supposed(position, result);
    });
}

}  // namespace corvane::engine
