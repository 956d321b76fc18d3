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

/// Old sound is thrown away a second at a time.
constexpr std::int64_t kForgottenFrames = Endpointer::kFramesPerSecond;

constexpr std::int64_t kFramesPerHypothesis = Endpointer::kFramesPerSecond / 4;

/// How often an utterance is judged anew because the rules changed meanwhile.
constexpr int kMostReadings = 3;

bool IsWord(const PathSegment& segment) {
    return segment.word != PathSegment::kFiller;
}

}  // namespace

Listener::Listener(std::unique_ptr<Decoder> decoder, AudioSource& source, Dictation& dictation,
                   const Reporter& reporter, SoundFeedback feedback)
    : decoder_(std::move(decoder)),
      source_(source),
      dictation_(dictation),
      reporter_(reporter),
      feedback_(std::move(feedback)) {}

Listener::~Listener() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    vocabulary_came_.notify_all();
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
    {
        const std::lock_guard lock(mutex_);
        next_vocabulary_ = std::move(vocabulary);
    }
    vocabulary_came_.notify_all();
}

void Listener::Run() {
    std::array<std::int16_t, Endpointer::kFrameSamples> frame{};
    while (ReadFrame(frame)) {
        TakeVocabulary();
        Hear(frame);
    }
    if (!stopping_ && endpointer_.Finish() == Endpointer::Event::speech_ended) EndUtterance();
    dictation_.Drop();
}

bool Listener::ReadFrame(std::span<std::int16_t> frame) {
    while (!frame.empty()) {
        const std::size_t count = source_.Read(frame);
        if (count == 0) return false;
        frame = frame.subspan(count);
    }
    return !stopping_;
}

// With mutex_ held: whether there is a vocabulary to be used now.
bool Listener::VocabularyIsDue() {
    return next_vocabulary_ && next_vocabulary_->holds_from <= Clock::now();
}

void Listener::TakeVocabulary() {
    std::shared_ptr<const Vocabulary> vocabulary;
    {
        const std::lock_guard lock(mutex_);
        if (!VocabularyIsDue()) return;
        vocabulary.swap(next_vocabulary_);
    }
    UseVocabulary(std::move(vocabulary));
}

// To wait keeps the sound from being read, which the source bears: the other half of a change comes
// within milliseconds, and never later than some tenths of a second.
void Listener::AwaitVocabulary() {
    std::shared_ptr<const Vocabulary> vocabulary;
    {
        std::unique_lock lock(mutex_);
        while (next_vocabulary_ && !VocabularyIsDue() && !stopping_) {
            // A copy: the vocabulary may be replaced while this waits.
            const Clock::time_point holds_from = next_vocabulary_->holds_from;
            vocabulary_came_.wait_until(lock, holds_from);
        }
        vocabulary.swap(next_vocabulary_);
    }
    if (vocabulary) UseVocabulary(std::move(vocabulary));
}

void Listener::UseVocabulary(std::shared_ptr<const Vocabulary> vocabulary) {
    vocabulary_ = std::move(vocabulary);
    decoder_->SetVoice(vocabulary_->voice);
    decoder_->SetGraph(vocabulary_->graph);
    supposing_ = false;
    dictation_.Drop();
    if (endpointer_.InSpeech()) BeginUtterance();
}

void Listener::Hear(std::span<const std::int16_t> frame) {
    Forget();
    sound_.insert(sound_.end(), frame.begin(), frame.end());
    const Endpointer::Event event = endpointer_.Push(frame);
    feedback_.Hear(frame, endpointer_.Position() * kBytesPerFrame, interests_);
    switch (event) {
        case Endpointer::Event::speech_began:
            BeginUtterance();
            break;
        case Endpointer::Event::speech_ended:
            EndUtterance();
            break;
        case Endpointer::Event::speech_denied:
            supposing_ = false;
            dictation_.Drop();
            break;
        case Endpointer::Event::none:
            if (endpointer_.InSpeech()) HearSpeech(frame);
            break;
    }
}

void Listener::Forget() {
    const std::int64_t frames = endpointer_.EarliestBegin() - sound_begin_;
    if (frames < kForgottenFrames) return;
    const std::int64_t old = frames * static_cast<std::int64_t>(Endpointer::kFrameSamples);
    sound_.erase(sound_.begin(), sound_.begin() + old);
    sound_begin_ += frames;
}

std::span<const std::int16_t> Listener::Sound(std::int64_t begin, std::int64_t end) const {
    const auto from = static_cast<std::size_t>(begin - sound_begin_);
    const auto frames = static_cast<std::size_t>(end - begin);
    return std::span(sound_).subspan(from * Endpointer::kFrameSamples,
                                     frames * Endpointer::kFrameSamples);
}

void Listener::BeginUtterance() {
    supposed_.clear();
    supposing_ = false;
    FollowInterests();
    if (vocabulary_->dictating) BeginText((interests_ & SREHypothesis) != 0);
}

void Listener::BeginText(bool suppose) {
    dictation_.Begin(vocabulary_->dictation_target, endpointer_.Begin(),
                     Sound(endpointer_.Begin(), endpointer_.Position()), suppose);
}

// Nothing is supposed while nobody wants to know.
void Listener::FollowInterests() {
    const bool wanted = endpointer_.Whole() && (interests_ & SREHypothesis) != 0;
    if (wanted == supposing_) return;
    supposing_ = wanted;
    if (!wanted) return decoder_->EndLive();
    decoder_->BeginLive();
    decoder_->FeedLive(Sound(endpointer_.Begin(), endpointer_.Position()));
}

void Listener::HearSpeech(std::span<const std::int16_t> frame) {
    dictation_.Hear(frame);
    if (supposing_) decoder_->FeedLive(frame);
    FollowInterests();
    if (supposing_ && endpointer_.Position() % kFramesPerHypothesis == 0) Suppose();
}

void Listener::Suppose() {
    {
        // Half of a change has come already: what was active until now may be so no longer.
        const std::lock_guard lock(mutex_);
        if (next_vocabulary_) return;
    }
    const auto since = Clock::now();
    const Path path = decoder_->LivePath();
    std::optional<RecognisedPhrase> phrase = PhraseOf(path, since);
    if (!phrase || phrase->words == supposed_) return;
    supposed_ = phrase->words;
    // What is still being said may yet turn out to be something else.
    phrase->confidence = std::min(phrase->confidence, SECNormalConfidence);
    reporter_.Supposed(TargetOf(path), *std::move(phrase));
}

void Listener::EndUtterance() {
    const auto since = Clock::now();
    Path path;
    std::optional<RecognisedPhrase> phrase;
    // Again, if the rules change while it is judged: who would be told of the first reading may
    // have gone. Not without end, for one who changes them all the time.
    for (int attempt = 0; attempt < kMostReadings; ++attempt) {
        AwaitVocabulary();
        supposing_ = false;
        // A command is all that is said at a time: what a television says at the end of a minute
        // is none. Text may be as long as it likes.
        if (!endpointer_.Whole()) break;
        path = decoder_->Decode(Sound(endpointer_.Begin(), endpointer_.End()));
        phrase = PhraseOf(path, since);
        const std::lock_guard lock(mutex_);
        if (!next_vocabulary_) break;
    }
    const SpeechEngineConfidence confidence = phrase ? phrase->confidence : SECLowConfidence;
    Tell(std::move(phrase), path, since);
    if (endpointer_.Whole()) TellHowItWasSaid(path, confidence);
}

void Listener::Tell(std::optional<RecognisedPhrase> phrase, const Path& path,
                    Clock::time_point since) {
    const std::int64_t last_loud = endpointer_.LastLoud();
    const std::int64_t position = endpointer_.Position();
    // What is surely a command is no text; all else is, where somebody dictates.
    if (vocabulary_->dictating && (!phrase || phrase->confidence < SECHighConfidence)) {
        if (!dictation_.Hearing()) BeginText(false);
        return dictation_.Write(
            {.last_loud = last_loud, .end = endpointer_.End(), .known = position, .since = since});
    }
    dictation_.Drop();
    const bool heard = phrase.has_value();
    if (!heard) {
        phrase.emplace();
        phrase->begin = kFrame * endpointer_.Begin();
        phrase->end = kFrame * last_loud;
    }
    phrase->spoken_until = kFrame * last_loud;
    phrase->latency = kFrame * (position - last_loud) + (Clock::now() - since);
    if (heard)
        reporter_.Recognised(TargetOf(path), *std::move(phrase));
    else
        reporter_.NothingIn(*std::move(phrase));
}

void Listener::TellHowItWasSaid(const Path& path, SpeechEngineConfidence confidence) {
    UtteranceSound sound = MeasureUtterance(Sound(endpointer_.Begin(), endpointer_.LastLoud()));
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

std::weak_ptr<ResultTarget> Listener::TargetOf(const Path& path) const {
    const auto word = static_cast<std::size_t>(std::ranges::find_if(path, IsWord)->word);
    const auto rule = static_cast<std::size_t>(vocabulary_->graph.words[word].rule);
    return vocabulary_->rules[rule].target;
}

}  // namespace corvane::engine
