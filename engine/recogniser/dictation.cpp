// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/dictation.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <algorithm>
#include <numeric>
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

// What the rules' graph hears as dictation's own phrase may yet be text that sounds like it, such
// as "clear everything up". How much better the text's sounds fit is a mean over the phrase's
// frames.
constexpr double kSureText = 0.65;       ///< certainty with which it is that text
constexpr double kFitOfSureText = 5.0;   ///< if it fits so much better
constexpr double kLeastOwnScore = 0.35;  ///< of a phrase without high confidence
constexpr double kScorePerFit = 0.015;   ///< taken off that

SpeechEngineConfidence ConfidenceOf(double certainty) {
    if (certainty >= kHighCertainty) return SECHighConfidence;
    return certainty >= kNormalCertainty ? SECNormalConfidence : SECLowConfidence;
}

/// Sound that may wait to be written. A machine on which so much does never catches up, and what
/// was said is forgotten by then.
constexpr std::size_t kMostWaiting = std::size_t{5} * 60 * kSampleRate;

std::vector<std::string> SpokenWords(const DictatedText& text) {
    std::vector<std::string> words;
    for (const DictatedText::Word& word : text.words) words.push_back(word.text);
    return words;
}

RecognisedPhrase PhraseOf(WrittenPhrase written, const DictatedText& text, std::int64_t begin) {
    RecognisedPhrase phrase;
    phrase.words = std::move(written.words);
    phrase.begin = kFrame * (begin + text.words[written.first].first_frame);
    phrase.end = kFrame * (begin + text.words[written.last].last_frame + 1);
    phrase.score = text.certainty;
    phrase.confidence = ConfidenceOf(text.certainty);
    return phrase;
}

/// "\r" alone, which a line of a log can't bear.
bool IsBreak(const WrittenPhrase& written) {
    return written.words.front() == "\r";
}

bool IsSurelyOwn(const Dictation::Ending& ending) {
    return ending.own_phrase && ending.own_phrase->phrase.confidence == SECHighConfidence;
}

/// Whether it is this phrase rather than this text.
bool IsOwn(const Dictation::OwnPhrase& own, const DictatedText& text) {
    const double frames = static_cast<double>((own.phrase.end - own.phrase.begin) / kFrame);
    // Where no text was found, none fits better.
    const double better = text.words.empty()
                              ? 0
                              : std::max(0.0, text.acoustic - own.acoustic) / std::max(1.0, frames);
    if (text.certainty >= kSureText && better >= kFitOfSureText) return false;
    return own.phrase.confidence == SECHighConfidence ||
           own.phrase.score - kScorePerFit * better >= kLeastOwnScore;
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

void Dictation::Want(bool wanted) {
    {
        std::unique_lock lock(mutex_);
        if (wanted == wanted_) return;
        wanted_ = wanted;
        failed_ = false;
        anew_ = anew_ || wanted;
        // What is heard now goes on, in case that dictation comes back before it is over.
        if (!wanted) {
            std::erase_if(queue_, [](const auto& said) { return said->ending.has_value(); });
            // The next to be loaded is the model of these, whenever that is.
            TellTaken(lock);
        }
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
    if (IsFull()) return;
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

bool Dictation::IsFull() {
    const std::lock_guard lock(mutex_);
    const auto waiting = [](std::size_t sum, const auto& said) { return sum + said->sound.size(); };
    return std::accumulate(queue_.begin(), queue_.end(), std::size_t{0}, waiting) >= kMostWaiting;
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

void Dictation::Write(Ending ending) {
    if (!hearing_) return;
    {
        const std::lock_guard lock(mutex_);
        const auto frames = static_cast<std::size_t>(ending.end - hearing_->begin);
        if (hearing_->sound.size() > frames * Endpointer::kFrameSamples)
            hearing_->sound.resize(frames * Endpointer::kFrameSamples);
        hearing_->ending = std::move(ending);
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
    if (first.dropped) return Task::discard;
    // Where no text can be written, a phrase such as "quit dictation" still can.
    if (first.ending) return decoder_ || IsSurelyOwn(*first.ending) ? Task::write : Task::discard;
    if (!decoder_) return Task::none;
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
    const DictatedText text = decoder_->LiveText();
    // The text goes on from here once all of it has been said, not from what is supposed.
    TextWriter writer = writer_;
    std::vector<std::string> words;
    for (const WrittenPhrase& written : writer.Write(SpokenWords(text)))
        if (!IsBreak(written))
            words.insert(words.end(), written.words.begin(), written.words.end());
    if (words.empty() || words == supposed_) return;
    supposed_ = words;
    RecognisedPhrase phrase =
        PhraseOf({.words = std::move(words), .first = 0, .last = text.words.size() - 1}, text,
                 utterance.begin);
    phrase.latency = Clock::now() - since;
    reporter_.Supposed(utterance.target, std::move(phrase));
}

/// The phrases that an utterance is.
std::vector<RecognisedPhrase> Dictation::Read(const Utterance& utterance) {
    const std::optional<OwnPhrase>& own = utterance.ending->own_phrase;
    const DictatedText text = decoder_ ? decoder_->Decode(utterance.sound) : DictatedText{};
    std::vector<RecognisedPhrase> phrases;
    if (own && IsOwn(*own, text)) {
        for (WrittenPhrase& written : writer_.Write(own->phrase.words)) {
            phrases.push_back(own->phrase);
            phrases.back().words = std::move(written.words);
        }
    } else {
        for (WrittenPhrase& written : writer_.Write(SpokenWords(text)))
            phrases.push_back(PhraseOf(std::move(written), text, utterance.begin));
    }
    return phrases;
}

void Dictation::WriteFirst(std::unique_lock<std::mutex>& lock) {
    const std::shared_ptr<Utterance> utterance = queue_.front();
    if (std::exchange(anew_, false)) writer_.StartAnew();
    lock.unlock();
    std::vector<RecognisedPhrase> phrases = Read(*utterance);
    const Ending& ending = *utterance->ending;
    const auto spoken_until = kFrame * ending.last_loud;
    const auto latency = kFrame * (ending.known - ending.last_loud) + (Clock::now() - ending.since);
    const bool heard = !phrases.empty();
    if (!heard) {
        phrases.emplace_back();
        phrases.back().begin = kFrame * utterance->begin;
        phrases.back().end = spoken_until;
    }
    lock.lock();
    for (RecognisedPhrase& phrase : phrases) {
        // Dictation may have ended meanwhile, or the engine be about to.
        if (!wanted_ || stopping_) break;
        phrase.spoken_until = spoken_until;
        phrase.latency = latency;
        if (heard)
            reporter_.Recognised(utterance->target, std::move(phrase));
        else
            reporter_.NothingIn(std::move(phrase));
    }
    std::erase(queue_, utterance);
    changed_.notify_all();
}

}  // namespace corvane::engine
