// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/listener.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "engine/recogniser/confidence.h"

namespace corvane::engine {
namespace {

constexpr auto kFrame = std::chrono::milliseconds(1000 / Endpointer::kFramesPerSecond);
constexpr std::int64_t kBytesPerFrame = Endpointer::kFrameSamples * sizeof(std::int16_t);

/// Old sound is thrown away a second at a time.
constexpr std::int64_t kForgottenFrames = Endpointer::kFramesPerSecond;

constexpr std::int64_t kFramesPerHypothesis = Endpointer::kFramesPerSecond / 4;

/// An utterance longer than this is not read before it is over: it would be in each of its pauses.
constexpr std::int64_t kLongestForeseen = std::int64_t{4} * Endpointer::kFramesPerSecond;

/// How often an utterance is judged anew because the rules changed meanwhile.
constexpr int kMostReadings = 3;

bool IsWord(const PathSegment& segment) {
    return segment.word != PathSegment::kFiller;
}

double AcousticOf(const Path& path) {
    double sum = 0.0;
    for (const PathSegment& segment : path) sum += segment.acoustic;
    return sum;
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
        TakePause();
        Hear(frame);
    }
    if (!stopping_) Follow(endpointer_.Finish());
    dictation_.Drop();
}

bool Listener::ReadFrame(std::span<std::int16_t> frame) {
    while (!frame.empty()) {
        const std::size_t count = source_.Read(frame);
        if (count == 0) return false;
        frame = frame.subspan(count);
        read_ += static_cast<std::int64_t>(count);
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
    ForgetUtterance();
    if (endpointer_.InSpeech()) BeginUtterance();
}

// What the thread has yet to read was said to the dialog as well: it may be seconds behind.
void Listener::Resume() {
    resumed_ = read_ + static_cast<std::int64_t>(source_.Waiting());
    ++pauses_;
}

void Listener::TakePause() {
    const std::uint32_t pauses = pauses_;
    if (pauses == known_pauses_) return;
    known_pauses_ = pauses;
    const bool ended = pauses % 2 == 0;
    constexpr std::int64_t kSamples = Endpointer::kFrameSamples;
    heard_from_ =
        ended ? (resumed_ + kSamples - 1) / kSamples : std::numeric_limits<std::int64_t>::max();
    ForgetUtterance();
}

void Listener::ForgetUtterance() {
    supposing_ = false;
    foreseen_.reset();
    dictation_.Drop();
}

void Listener::Hear(std::span<const std::int16_t> frame) {
    Forget();
    sound_.insert(sound_.end(), frame.begin(), frame.end());
    const Endpointer::Event event = endpointer_.Push(frame);
    feedback_.Hear(frame, endpointer_.Position() * kBytesPerFrame, interests_);
    if (event != Endpointer::Event::none) return Follow(event);
    if (endpointer_.InSpeech()) HearSpeech(frame);
}

void Listener::Follow(Endpointer::Event event) {
    switch (event) {
        case Endpointer::Event::speech_began:
            BeginUtterance();
            break;
        case Endpointer::Event::speech_ended:
            EndUtterance();
            break;
        case Endpointer::Event::speech_denied:
            ForgetUtterance();
            break;
        case Endpointer::Event::none:
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
    foreseen_.reset();
    if (!IsHeard()) return;
    FollowInterests();
    if (vocabulary_->dictating) BeginText((interests_ & SREHypothesis) != 0);
}

void Listener::BeginText(bool suppose) {
    dictation_.Begin(vocabulary_->dictation_target, endpointer_.Begin(),
                     Sound(endpointer_.Begin(), endpointer_.Position()), suppose);
}

// Nothing is supposed while nobody wants to know, or once more is known.
void Listener::FollowInterests() {
    const bool wanted = endpointer_.Whole() && (interests_ & SREHypothesis) != 0 && !Foreseen();
    if (wanted == supposing_) return;
    supposing_ = wanted;
    if (!wanted) return decoder_->EndLive();
    decoder_->BeginLive();
    decoder_->FeedLive(Sound(endpointer_.Begin(), endpointer_.Position()));
}

void Listener::HearSpeech(std::span<const std::int16_t> frame) {
    if (!IsHeard()) return;
    dictation_.Hear(frame);
    if (supposing_) decoder_->FeedLive(frame);
    FollowInterests();
    if (supposing_ && endpointer_.Position() % kFramesPerHypothesis == 0) Suppose();
    if (endpointer_.Rests()) Foresee();
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
    // Dictation supposes what its text is; until all is said it may begin like one of these.
    if (RuleOf(path).of_dictation) return;
    supposed_ = phrase->words;
    // What is still being said may yet turn out to be something else.
    phrase->confidence = std::min(phrase->confidence, SECNormalConfidence);
    reporter_.Supposed(RuleOf(path).target, *std::move(phrase));
}

bool Listener::Foreseen() const {
    return foreseen_ && foreseen_->last_loud == endpointer_.LastLoud();
}

// Reads what may be over while it is not yet still for long enough to be sure. Either it is a
// command to which nothing can be added, and nobody has to wait, or the reading is at hand when the
// stillness has lasted.
void Listener::Foresee() {
    // Who dictates may go on after anything.
    if (Foreseen() || vocabulary_->dictating || !endpointer_.Whole() ||
        endpointer_.Position() - endpointer_.Begin() > kLongestForeseen)
        return;
    {
        const std::lock_guard lock(mutex_);
        if (next_vocabulary_) return;
    }
    const auto since = Clock::now();
    supposing_ = false;
    foreseen_ = Foresight{};
    foreseen_->last_loud = endpointer_.LastLoud();
    foreseen_->path = decoder_->Decode(Sound(endpointer_.Begin(), endpointer_.Position()));
    foreseen_->latency =
        kFrame * (endpointer_.Position() - foreseen_->last_loud) + (Clock::now() - since);
    if (IsSurelyAll(foreseen_->path)) Follow(endpointer_.Finish());
}

bool Listener::IsSurelyAll(const Path& path) const {
    std::vector<int> words;
    for (const PathSegment& segment : path)
        if (IsWord(segment)) words.push_back(segment.word);
    const WordGraph& graph = vocabulary_->graph;
    return !words.empty() && !graph.CanGoOn(words) &&
           ConfidenceLevel(ConfidenceScore(path, graph)) == SECHighConfidence;
}

void Listener::EndUtterance() {
    if (!IsHeard()) return ForgetUtterance();
    const auto since = Clock::now();
    Path path;
    std::optional<RecognisedPhrase> phrase;
    // From the end of speech until now, or until the reading was known, whichever was later.
    Clock::duration known = kFrame * (endpointer_.Position() - endpointer_.LastLoud());
    // Again, if the rules change while it is judged: who would be told of the first reading may
    // have gone. Not without end, for one who changes them all the time.
    for (int attempt = 0; attempt < kMostReadings; ++attempt) {
        AwaitVocabulary();
        supposing_ = false;
        // A command is all that is said at a time: what a television says at the end of a minute
        // is none. Text may be as long as it likes.
        if (!endpointer_.Whole()) break;
        if (Foreseen()) {
            path = std::move(foreseen_->path);
            known = std::max(known, foreseen_->latency);
            foreseen_.reset();
        } else {
            path = decoder_->Decode(Sound(endpointer_.Begin(), endpointer_.End()));
        }
        phrase = PhraseOf(path, since);
        const std::lock_guard lock(mutex_);
        if (!next_vocabulary_) break;
    }
    foreseen_.reset();
    const SpeechEngineConfidence confidence = phrase ? phrase->confidence : SECLowConfidence;
    Tell(std::move(phrase), path, since, known);
    if (endpointer_.Whole()) TellHowItWasSaid(path, confidence);
}

void Listener::Tell(std::optional<RecognisedPhrase> phrase, const Path& path,
                    Clock::time_point since, Clock::duration known) {
    const std::int64_t last_loud = endpointer_.LastLoud();
    const std::int64_t position = endpointer_.Position();
    const bool of_dictation = phrase && RuleOf(path).of_dictation;
    // What is surely a command is no text; all else is, where somebody dictates.
    if (vocabulary_->dictating &&
        (of_dictation || !phrase || phrase->confidence < SECHighConfidence)) {
        if (!dictation_.Hearing()) BeginText(false);
        if (dictation_.Hearing()) {
            Dictation::Ending ending{.last_loud = last_loud,
                                     .end = endpointer_.End(),
                                     .known = position,
                                     .since = since,
                                     .own_phrase = {}};
            if (of_dictation) ending.own_phrase = {*std::move(phrase), AcousticOf(path)};
            return dictation_.Write(std::move(ending));
        }
        // No room for more text. Who says so surely can still edit, and above all get out.
        if (!of_dictation || phrase->confidence < SECHighConfidence) phrase.reset();
    }
    dictation_.Drop();
    if (!phrase) {
        phrase.emplace();
        phrase->begin = kFrame * endpointer_.Begin();
        phrase->end = kFrame * last_loud;
    }
    phrase->spoken_until = kFrame * last_loud;
    phrase->latency = known + (Clock::now() - since);
    if (!phrase->words.empty() && IsWorthTelling(phrase->score))
        reporter_.Recognised(RuleOf(path).target, *std::move(phrase));
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
    phrase.rule = RuleOf(path).name;
    phrase.score = ConfidenceScore(path, vocabulary_->graph);
    phrase.confidence = ConfidenceLevel(phrase.score);
    phrase.features = FeaturesOf(path, vocabulary_->graph);
    phrase.latency = Clock::now() - since;
    return phrase;
}

const Vocabulary::Rule& Listener::RuleOf(const Path& path) const {
    const auto word = static_cast<std::size_t>(std::ranges::find_if(path, IsWord)->word);
    const auto rule = static_cast<std::size_t>(vocabulary_->graph.words[word].rule);
    return vocabulary_->rules[rule];
}

}  // namespace corvane::engine
