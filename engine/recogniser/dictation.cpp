// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/dictation.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <fstream>
#include <utility>

#include "engine/audio/audio_source.h"
#include "engine/recogniser/endpointer.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

constexpr auto kFrame = std::chrono::milliseconds(1000 / Endpointer::kFramesPerSecond);

/// What a supposition needs of new sound: four a second at most.
constexpr std::size_t kSamplesPerHypothesis = kSampleRate / 4;

// In texts of high confidence 96 % of the words were right, of normal 73 %; README.md beside this
// file has the measurement.
constexpr double kHighCertainty = 0.8;
constexpr double kNormalCertainty = 0.5;

SpeechEngineConfidence ConfidenceOf(double certainty) {
    if (certainty >= kHighCertainty) return SECHighConfidence;
    return certainty >= kNormalCertainty ? SECNormalConfidence : SECLowConfidence;
}

RecognisedPhrase PhraseOf(DictatedText text, std::int64_t begin) {
    RecognisedPhrase phrase;
    phrase.words = std::move(text.words);
    phrase.begin = kFrame * (begin + text.first_frame);
    phrase.end = kFrame * (begin + text.last_frame + 1);
    phrase.score = text.certainty;
    phrase.confidence = ConfidenceOf(text.certainty);
    return phrase;
}

}  // namespace

Dictation::Dictation(DictationModel model, const Reporter& reporter)
    : model_(std::move(model)), reporter_(reporter) {}

Dictation::~Dictation() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) thread_.join();
}

// The model itself loads later, on the thread, where nobody could be told of a failure.
void Dictation::CheckFiles() const {
    for (const std::string& file :
         {model_.dictionary, model_.language_model, model_.acoustic_model + "/mdef"})
        if (!std::ifstream(file)) throw RuntimeError(kAutomationError, "Dictation needs " + file);
}

void Dictation::Want(bool wanted) {
    {
        const std::lock_guard lock(mutex_);
        if (wanted == wanted_) return;
        wanted_ = wanted;
        failed_ = false;
        // What is heard now goes on, in case that dictation comes back before it is over.
        if (!wanted)
            std::erase_if(queue_, [](const auto& said) { return said->ending.has_value(); });
    }
    if (wanted && !thread_.joinable()) thread_ = std::thread([this] { Run(); });
    changed_.notify_all();
}

void Dictation::Use(DictationModel model, std::function<void()> taken) {
    {
        std::unique_lock lock(mutex_);
        model_ = std::move(model);
        stale_ = true;
        failed_ = false;
        if (taken) taken_.push_back(std::move(taken));
        // Where nothing is loaded there is nothing to wait for.
        if (!wanted_) TellTaken(lock);
    }
    changed_.notify_all();
}

void Dictation::TellTaken(std::unique_lock<std::mutex>& lock) {
    const auto taken = std::exchange(taken_, {});
    lock.unlock();
    for (const auto& tell : taken) tell();
    lock.lock();
}

void Dictation::Begin(std::weak_ptr<ResultTarget> target, std::int64_t begin,
                      std::span<const std::int16_t> sound, bool suppose) {
    Drop();
    hearing_ = std::make_shared<Utterance>();
    hearing_->target = std::move(target);
    hearing_->sound.assign(sound.begin(), sound.end());
    hearing_->suppose = suppose;
    hearing_->begin = begin;
    {
        const std::lock_guard lock(mutex_);
        queue_.push_back(hearing_);
    }
    changed_.notify_all();
}

void Dictation::Hear(std::span<const std::int16_t> sound) {
    if (!hearing_) return;
    const std::size_t before = hearing_->sound.size() / kSamplesPerHypothesis;
    {
        const std::lock_guard lock(mutex_);
        hearing_->sound.insert(hearing_->sound.end(), sound.begin(), sound.end());
    }
    if (hearing_->sound.size() / kSamplesPerHypothesis != before) changed_.notify_all();
}

void Dictation::Write(const Ending& ending) {
    if (!hearing_) return;
    {
        const std::lock_guard lock(mutex_);
        const auto frames = static_cast<std::size_t>(ending.end - hearing_->begin);
        if (hearing_->sound.size() > frames * Endpointer::kFrameSamples)
            hearing_->sound.resize(frames * Endpointer::kFrameSamples);
        hearing_->ending = ending;
    }
    hearing_.reset();
    changed_.notify_all();
}

void Dictation::Drop() {
    if (!hearing_) return;
    {
        const std::lock_guard lock(mutex_);
        hearing_->dropped = true;
    }
    hearing_.reset();
    changed_.notify_all();
}

void Dictation::WaitUntilWritten() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] {
        return !wanted_ || failed_ || stopping_ || !thread_.joinable() || queue_.empty();
    });
}

// The first may have gone otherwise than by this thread: Want forgets.
void Dictation::TakeFirst() {
    const std::shared_ptr<Utterance> first = queue_.empty() ? nullptr : queue_.front();
    if (first == followed_utterance_) return;
    followed_utterance_ = first;
    followed_ = supposed_at_ = 0;
}

Dictation::Task Dictation::NextTask() const {
    if ((!wanted_ || stale_) && decoder_) return Task::unload;
    if (wanted_ && !decoder_ && !failed_) return Task::load;
    if (queue_.empty()) return Task::none;
    const Utterance& first = *queue_.front();
    // Where it can't be written it still is taken off the queue.
    if (first.dropped || (first.ending && !decoder_)) return Task::discard;
    if (!decoder_) return Task::none;
    if (first.ending) return Task::write;
    const bool news = first.sound.size() >= supposed_at_ + kSamplesPerHypothesis;
    return first.suppose && news ? Task::follow : Task::none;
}

void Dictation::Run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] {
            TakeFirst();
            return stopping_ || NextTask() != Task::none;
        });
        if (stopping_) return;
        switch (NextTask()) {
            case Task::load:
                Load(lock);
                break;
            case Task::unload:
                Unload(lock);
                break;
            case Task::follow:
                Follow(lock);
                break;
            case Task::write:
                WriteFirst(lock);
                break;
            case Task::discard:
                queue_.pop_front();
                changed_.notify_all();
                break;
            case Task::none:
                break;
        }
    }
}

void Dictation::Load(std::unique_lock<std::mutex>& lock) {
    const DictationModel model = model_;
    stale_ = false;
    lock.unlock();
    bool loaded = true;
    try {
        decoder_ = std::make_unique<DictationDecoder>(model);
    } catch (const RuntimeError&) {
        // The files are there, but are no model. Whoever dictates is heard by the commands alone.
        loaded = false;
    }
    lock.lock();
    failed_ = !loaded && wanted_ && !stale_;
    if (!stale_) TellTaken(lock);
    followed_ = supposed_at_ = 0;
    changed_.notify_all();
}

void Dictation::Unload(std::unique_lock<std::mutex>& lock) {
    lock.unlock();
    decoder_.reset();
    lock.lock();
    if (!wanted_) TellTaken(lock);
    lock.unlock();
#ifdef __GLIBC__
    // Half of it is small pieces, which the allocator would keep.
    malloc_trim(0);
#endif
    lock.lock();
}

void Dictation::Follow(std::unique_lock<std::mutex>& lock) {
    const std::shared_ptr<Utterance> utterance = queue_.front();
    const auto news = utterance->sound.begin() + static_cast<std::ptrdiff_t>(followed_);
    const std::vector<std::int16_t> sound(news, utterance->sound.end());
    lock.unlock();
    if (followed_ == 0) {
        decoder_->BeginLive();
        supposed_.clear();
    }
    decoder_->FeedLive(sound);
    followed_ += sound.size();
    supposed_at_ = followed_;
    Suppose(*utterance);
    lock.lock();
}

void Dictation::Suppose(const Utterance& utterance) {
    const auto since = Clock::now();
    RecognisedPhrase phrase = PhraseOf(decoder_->LiveText(), utterance.begin);
    if (phrase.words.empty() || phrase.words == supposed_) return;
    supposed_ = phrase.words;
    phrase.latency = Clock::now() - since;
    reporter_.Supposed(utterance.target, std::move(phrase));
}

void Dictation::WriteFirst(std::unique_lock<std::mutex>& lock) {
    const std::shared_ptr<Utterance> utterance = queue_.front();
    lock.unlock();
    RecognisedPhrase phrase = PhraseOf(decoder_->Decode(utterance->sound), utterance->begin);
    const Ending& ending = *utterance->ending;
    phrase.spoken_until = kFrame * ending.last_loud;
    phrase.latency = kFrame * (ending.known - ending.last_loud) + (Clock::now() - ending.since);
    lock.lock();
    // Dictation may have ended meanwhile, or the engine be about to.
    if (wanted_ && !stopping_) {
        if (phrase.words.empty()) {
            phrase.begin = kFrame * utterance->begin;
            phrase.end = phrase.spoken_until;
            reporter_.NothingIn(std::move(phrase));
        } else {
            reporter_.Recognised(utterance->target, std::move(phrase));
        }
    }
    std::erase(queue_, utterance);
    changed_.notify_all();
}

}  // namespace corvane::engine
